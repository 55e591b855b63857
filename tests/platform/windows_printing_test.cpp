// Printing on Windows, on the printer whose pages come to the folder PRINTED_PAGES: A4, 300 dots per inch.

#include <gtest/gtest.h>
#include <windows.h>
// After <windows.h>.
#include <dlgs.h>
#include <winspool.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <regex>
#include <thread>

#include "printing/cPrinter.h"
#include "support/formatting_window.h"
#include "support/test_world.h"
#include "support/windows_dialog.h"

namespace t_genproc {
namespace {

namespace fs = std::filesystem;

/// In points from the upper left corner of the page.
struct Word {
    double left, top, right, bottom;
    std::string text;
};
using Page = std::vector<Word>;

std::vector<Page> pagesOf(const fs::path& file) {
    static const std::regex item(R"re(<page |xMin="(.*)" yMin="(.*)" xMax="(.*)" yMax="(.*)">(.*)</word>)re");
    std::vector<Page> pages;
    std::ifstream lines(file);
    std::smatch found;
    for (std::string line; std::getline(lines, line);) {
        if (!std::regex_search(line, found, item)) continue;
        if (!found[1].matched) pages.emplace_back();
        if (!found[1].matched) continue;
        const auto number = [&](std::size_t i) { return std::stod(found[i]); };
        pages.back().push_back({number(1), number(2), number(3), number(4), found[5]});
    }
    return pages;
}

/// Of this process, where the lower half of a handle does for the whole, as on Wine.
int fonts() {
    int count = 0;
    for (UINT_PTR i = 0; i <= 0xFFFF; ++i) {
        count += ::GetObjectType(reinterpret_cast<HGDIOBJ>(i)) == OBJ_FONT;
    }
    return count;
}

ObjectPointer controlOf(HWND window, const std::string& text, std::size_t start, std::size_t length) {
    auto control = std::make_shared<t_gencvf::MemoryObject>();
    control->add("hWnd", static_cast<std::int32_t>(HandleToLong(window))).add("Text", text);
    control->add("SelStart", static_cast<std::int32_t>(start));
    control->add("SelLength", static_cast<std::int32_t>(length));
    return control;
}

struct WindowsPrinting : testing::Test, test::TestWorld {
    void SetUp() override {
        if (folder == nullptr) GTEST_SKIP() << "PRINTED_PAGES names no folder";
    }

    /// While `body` shows a dialog, somebody clicks what is in it, then the button that ends it.
    template <class Body>
    auto answering(const std::vector<int>& clicks, int button, Body body) {
        const std::jthread somebody([&] {
            const HWND dialog = test::waitForDialog();
            for (const int each : clicks) ::SendDlgItemMessageA(dialog, each, BM_CLICK, 0, 0);
            test::press(dialog, button);
        });
        return body();
    }

    /// What the next job has printed, once; without a job nothing, after a while.
    std::vector<Page> printed() const {
        for (int i = 0; i < 100; ++i, ::Sleep(50)) {
            for (const auto& entry : fs::directory_iterator(std::string("Z:") + folder)) {
                if (entry.path().extension() != ".html") continue;
                std::vector<Page> pages = pagesOf(entry.path());
                fs::remove(entry.path());
                return pages;
            }
        }
        return {};
    }

    const char* const folder = std::getenv("PRINTED_PAGES");
    Printing& printing = *system.platform.printing;
    Graphics& graphics = *system.platform.graphics;
};

TEST_F(WindowsPrinting, DialogsHandOverBlocksAndKeepOptions) {
    constexpr std::uint32_t kFlags = PD_NOSELECTION | PD_NOPAGENUMS | PD_HIDEPRINTTOFILE;
    PrintDialog chosen{.flags = kFlags, .fromPage = 1, .toPage = 65535, .minPage = 1, .maxPage = 65535};
    for (const auto& [button, result] : {std::pair{IDCANCEL, 0}, {IDOK, kDialogConfirmed}}) {
        EXPECT_EQ(answering({}, button, [&] { return printing.PrintDlgA(chosen); }), result);
        EXPECT_EQ(chosen.flags & kFlags, kFlags);
        EXPECT_EQ(chosen.toPage, 65535);
        EXPECT_EQ(chosen.devMode != 0 && chosen.devNames != 0, result == kDialogConfirmed);
    }
    const Rectangle upright{1500, 1200, 1600, 1300}, turned{1300, 1500, 1200, 1600};
    PageSetupDialog pages{.devMode = chosen.devMode,
                          .devNames = chosen.devNames,
                          .flags = PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS,
                          .margin = upright};
    EXPECT_EQ(answering({}, IDCANCEL, [&] { return printing.PageSetupDlgA(pages); }), 0);
    EXPECT_EQ(pages.margin, upright);
    EXPECT_EQ(answering({rad2}, IDOK, [&] { return printing.PageSetupDlgA(pages); }), kDialogConfirmed);
    EXPECT_EQ(pages.margin, turned);
    EXPECT_NEAR(pages.paperWidth, 29700, 10);
    EXPECT_NEAR(pages.paperHeight, 21000, 10);

    std::int16_t orientation = 0;
    std::memcpy(&orientation, printing.GlobalLock(pages.devMode) + 44, sizeof orientation);
    EXPECT_EQ(orientation, DMORIENT_LANDSCAPE);
    printing.GlobalUnlock(pages.devMode);
    for (const MemoryBlock block : {pages.devMode, pages.devNames}) {
        EXPECT_GT(printing.GlobalSize(block), 8U);
        printing.GlobalFree(block);
        EXPECT_EQ(printing.GlobalSize(block), 0U);
    }
}

TEST_F(WindowsPrinting, SettingsOfAnySizeOpenAPrinter) {
    DEVMODEA settings{};
    settings.dmSize = settings.dmDriverExtra = 0xFFFF;
    settings.dmFields = DM_ORIENTATION | DM_ICMMETHOD | DM_PANNINGHEIGHT;
    settings.dmOrientation = DMORIENT_LANDSCAPE;
    constexpr std::size_t kRoom = 0x4000;  // whole pages of memory, behind which nothing can be read
    auto* const room =
        static_cast<std::byte*>(::VirtualAlloc(nullptr, 2 * kRoom, MEM_RESERVE, PAGE_NOACCESS));
    ::VirtualAlloc(room, kRoom, MEM_COMMIT, PAGE_READWRITE);
    for (const std::size_t size : {0, 37, 38, 45, 46, 121, 122, 123, 10000}) {
        std::byte* const given = room + kRoom - size;
        std::memset(given, 0xFF, size);
        std::memcpy(given, &settings, std::min(size, std::size_t{122}));
        const DeviceContext context = printing.CreateDCA("Pages", {given, size});
        EXPECT_EQ(graphics.GetDeviceCaps(context, DeviceCaps::LogPixelsX), 300) << size;
        EXPECT_EQ(graphics.GetDeviceCaps(context, DeviceCaps::PhysicalWidth) >
                      graphics.GetDeviceCaps(context, DeviceCaps::PhysicalHeight),
                  size >= 46)
            << size;
        EXPECT_TRUE(graphics.DeleteDC(context)) << size;
    }
    ::VirtualFree(room, 0, MEM_RELEASE);
}

TEST_F(WindowsPrinting, EveryPageComesWithItsHeader) {
    std::string text;
    for (int i = 10000; i < 13000; ++i) text += std::to_string(i) + ' ';
    const struct {
        int orientation;
        std::vector<int> clicks;
        std::string text, project;
        std::size_t start, length;  // of what is selected
        std::string printed;
        std::size_t pages;
    } rows[] = {
        {rad2, {rad2}, text, "Quarry", 600, 12000, text.substr(600, 12000), 3},
        {rad1, {}, text, "Quarry", 0, 0, text, 4},
        {rad1, {rad1}, text, "", 600, 12000, text, 4},
        {rad1, {}, "", "Quarry", 0, 0, "", 1},
    };
    constexpr double kMargin = 20 * 72 / 25.4, kHeaderBottom = 11 * 72 / 25.4;
    for (const auto& row : rows) {
        const test::FormattingWindow window(row.text);
        const ObjectPointer control = controlOf(window.handle(), row.text, row.start, row.length);
        DeviceContext context = 0;
        {
            cPrinter printer(library);
            const auto setUpPage = [&] {
                bool isCancelled = false;
                printer.PageSetup(0, PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS, false, isCancelled, true);
                return isCancelled;
            };
            answering({}, IDCANCEL, [&] { printer.PrintRTF(control, "None", "None"); });
            EXPECT_TRUE(answering({}, IDCANCEL, setUpPage));
            EXPECT_EQ(printer.DeviceName(), "");
            EXPECT_FALSE(answering({row.orientation}, IDOK, setUpPage));
            const int before = fonts();
            answering(row.clicks, IDOK, [&] { printer.PrintRTF(control, "Report", row.project, &context); });
            EXPECT_EQ(fonts(), before);
            EXPECT_EQ(printer.DeviceName(), "Pages");
            EXPECT_EQ(::GetObjectType(reinterpret_cast<HGDIOBJ>(context)), OBJ_DC);
        }
        EXPECT_EQ(::GetObjectType(reinterpret_cast<HGDIOBJ>(context)), 0U);
        EXPECT_EQ(window.timesForgotten(), 1);

        const std::vector<Page> pages = printed();
        EXPECT_EQ(pages.size(), row.pages);
        const double width = row.orientation == rad2 ? 842 : 595, height = 1437 - width;
        std::string words;
        for (const Page& page : pages) {
            std::string headers;
            for (const Word& word : page) {
                (word.text == row.project ? headers : words) += word.text + ' ';
                const bool isInside = word.left > kMargin - 1 && word.right < width - kMargin + 1 &&
                                      word.top > kMargin - 1 && word.bottom < height - kMargin + 1;
                const bool isAbove =
                    std::abs(word.right - (width - kMargin)) < 1 && std::abs(word.bottom - kHeaderBottom) < 1;
                EXPECT_TRUE(word.text == row.project ? isAbove : isInside)
                    << word.text << ' ' << word.left << ' ' << word.top << ' ' << word.right << ' '
                    << word.bottom;
            }
            EXPECT_EQ(headers, row.project.empty() ? "" : row.project + ' ');
        }
        EXPECT_EQ(words, row.printed);
    }
}

TEST_F(WindowsPrinting, AControlThatPrintsNothingEndsTheJob) {
    if (test::systemName() != "Wine") GTEST_SKIP() << "the rich-text controls of Windows print";
    ::LoadLibraryA("msftedit.dll");
    const HWND edit =
        ::CreateWindowA("RICHEDIT50W", "text", 0, 0, 0, 9, 9, HWND_MESSAGE, nullptr, nullptr, nullptr);
    cPrinter printer(library);
    EXPECT_EQ(test::errorOf([&] {
                  answering({}, IDOK,
                            [&] { printer.PrintRTF(controlOf(edit, "text", 0, 0), "Report", "Quarry"); });
              }),
              482);
    EXPECT_EQ(printed().size(), 1U);
    ::DestroyWindow(edit);
}

TEST_F(WindowsPrinting, PrintersMayDisappear) {
    HANDLE pages = nullptr;
    std::string name = "Pages", description(10000, '\0');
    auto* const record = reinterpret_cast<BYTE*>(description.data());
    DWORD size = 0;
    ASSERT_TRUE(::OpenPrinterA(name.data(), &pages, nullptr));
    ASSERT_TRUE(::GetPrinterA(pages, 2, record, 10000, &size));
    cPrinter printer(library);
    answering({}, IDOK, [&] { printer.ShowPrintDlg(0, PD_HIDEPRINTTOFILE); });
    EXPECT_EQ(printer.DeviceName(), "Pages");

    EXPECT_TRUE(::DeletePrinter(pages));  // the only one
    EXPECT_TRUE(::ClosePrinter(pages));
    for (const char* const none : {"Pages", "", "None", "\xE2\x82\xAC\xFF"})
        EXPECT_EQ(printing.CreateDCA(none, {}), 0);
    printer.StartDocument("Report");
    EXPECT_EQ(boxes, "Unable to print|Tavoru procedures|0\n");
    const test::FormattingWindow window("text ");
    DeviceContext context = 0;
    answering({}, IDOK,
              [&] { printer.PrintRTF(controlOf(window.handle(), "text ", 0, 0), "Report", "", &context); });
    EXPECT_EQ(context, 0);
    EXPECT_EQ(window.timesForgotten(), 0);

    EXPECT_TRUE(::ClosePrinter(::AddPrinterA(nullptr, 2, record)));
    EXPECT_TRUE(::SetDefaultPrinterA("Pages"));
}

}  // namespace
}  // namespace t_genproc
