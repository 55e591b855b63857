#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "platform/device_settings.h"
#include "platform/linux_desktop/linux_desktop.h"
#include "runtime/text.h"
#include "support/platform_under_test.h"
#include "support/printed_pages.h"

namespace t_genproc {
namespace {

using t_gencvf::RichText;
using Member = DeviceSettings::Member;

/// A platform that prints `text` and tells nothing but failures.
struct PrintingDesk {
    PrintingDesk() {
        test::setVariable("CUPS_SERVER", system.onDisk("no server").string());
        use({});
    }
    void use(LinuxDesktopOptions options) {
        options.questions = &questions;
        options.answers = &answers;
        options.failed = [this](const std::string& message) { failures += message; };
        options.richText = [this](WindowHandle window) { return window == 7 ? text : nullptr; };
        addLinuxDesktop(system.platform, std::move(options));
    }
    Printing& printing() { return *system.platform.printing; }

    /// Prints the text into `area` until `end`; gives where each page ended.
    std::vector<std::intptr_t> print(const std::string& output, FormatRange range,
                                     const DeviceSettings& settings = {}) {
        range.context = range.target = printing().CreateDCA(kPdfPrinter, settings.bytes());
        printing().StartDocA(range.context, {0, "A title", output});
        const std::ptrdiff_t length = text::length(text->text);
        const std::ptrdiff_t end = range.endCharacter < 0 ? length : range.endCharacter;
        std::vector<std::intptr_t> ends;
        do {
            printing().StartPage(range.context);
            ends.push_back(printing().SendMessageA(7, kFormatRange, true, &range));
            printing().EndPage(range.context);
            if (ends.back() <= range.firstCharacter) break;
            range.firstCharacter = static_cast<std::int32_t>(ends.back());
        } while (ends.back() < end);
        printing().EndDoc(range.context);
        printing().SendMessageA(7, kFormatRange, false, nullptr);
        system.platform.graphics->DeleteDC(range.context);
        return ends;
    }
    auto pages(const std::string& name) { return test::printedPages(system.onDisk(name)); }

    test::PlatformUnderTest system;
    std::ostringstream questions;
    std::istringstream answers;
    std::string failures;
    std::shared_ptr<const RichText> text;
};

std::shared_ptr<const RichText> richText(std::string text, t_gencvf::ParagraphFormat paragraph = {},
                                         double size = 12) {
    RichText made;
    made.runs.push_back({text.size(), {"Arial", size}});
    made.paragraphs.push_back({text.size(), std::move(paragraph)});
    made.text = std::move(text);
    return std::make_shared<RichText>(std::move(made));
}

DeviceSettings landscape() {
    DeviceSettings settings;
    settings.fields(DeviceFields::Orientation);
    settings.set(Member::Orientation, 2);
    return settings;
}

constexpr Rectangle kArea{1440, 720, 8640, 10080};  // 72 to 432 points across, 36 to 504 down

TEST(LinuxPrinting, PrintsEachWordOnceWithinTheArea) {
    PrintingDesk desk;
    std::string words, text;
    for (int i = 0; i < 6000; ++i) {
        const std::string word = "w" + std::to_string(i * i);
        words += (i == 0 ? "" : " ") + word;
        text += word + (i % 500 == 499 ? "\n" : " ");  // no single line takes a whole paragraph
    }
    desk.text = richText(text);
    for (const bool turned : {false, true}) {
        const auto ends =
            desk.print(desk.system.path("a.pdf"), {.area = kArea}, turned ? landscape() : DeviceSettings{});
        const auto pages = desk.pages("a.pdf");
        ASSERT_EQ(pages.size(), ends.size());
        EXPECT_EQ(test::wordsOf(pages), words);
        EXPECT_NEAR(pages[0].width, turned ? 841.89 : 595.28, 0.01);
        EXPECT_NEAR(pages[0].height, turned ? 595.28 : 841.89, 0.01);
        for (const test::PrintedPage& page : pages) {
            EXPECT_NEAR(page.words.front().left, 72, 1);
            EXPECT_NEAR(page.words.front().top, 36, 1);
            for (const test::PrintedWord& word : page.words)
                EXPECT_TRUE(word.right <= 433 && word.bottom <= 505) << word.text;
            if (&page == &pages.back()) break;
            EXPECT_GT(page.words.back().bottom, 504 - 14.5);  // not one more line
        }
    }
    EXPECT_EQ(desk.failures, "");
    const std::string file = desk.system.onDisk("a.pdf").string();
    EXPECT_TRUE(text::contains(test::outputOf("pdfinfo " + file), "A title"));
    EXPECT_TRUE(text::contains(test::outputOf("pdffonts " + file), "LiberationSans")) << "not embedded";
    EXPECT_EQ(desk.print(desk.system.path("b.pdf"), {.area = kArea, .firstCharacter = 1, .endCharacter = 10}),
              std::vector<std::intptr_t>{10});
    EXPECT_EQ(test::wordsOf(desk.pages("b.pdf")), text.substr(1, 9));
}

TEST(LinuxPrinting, BreaksLinesAndPagesWhereTheTextSays) {
    PrintingDesk desk;
    const t_gencvf::ParagraphFormat hanging{.leftIndent = 1440, .firstLineIndent = -720, .tabs = {2880}};
    const t_gencvf::ParagraphFormat right{
        .alignment = t_gencvf::Alignment::Right, .rightIndent = 720, .spaceBefore = 1440};
    struct Row {
        std::string what, text;
        t_gencvf::ParagraphFormat paragraph;
        double size;
        std::vector<std::intptr_t> ends;
        std::string places;  // page, left, top and right of each word, in points
    };
    const Row rows[] = {
        {"empty", "", {}, 12, {0}, ""},
        {"a line within a paragraph", "a\vb", hanging, 20, {3}, "1:108,36,119 1:144,58,155 "},
        {"tabs", "a\tb\tc", hanging, 20, {5}, "1:108,36,119 1:216,36,227 1:252,36,262 "},
        {"from the right, space between", "a\nb", right, 20, {3}, "1:385,36,396 1:385,130,396 "},
        {"pages", "a\fb\n\f\fc", {}, 20, {2, 5, 6, 7}, "1:72,36,83 2:72,36,83 4:72,36,82 "},
        {"taller than the area", "ab", {}, 1500, {1, 2}, ""},
        {"bytes of no character", "a\xFF\xC3", {}, 20, {3}, "1:72,36,105 "},
        {"a size that is none", "a", {}, NAN, {1}, "1:72,36,73 "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        desk.text = richText(row.text, row.paragraph, row.size);
        EXPECT_EQ(desk.print(desk.system.path("a.pdf"), {.area = kArea}), row.ends);
        std::ostringstream places;
        const auto pages = desk.pages("a.pdf");
        for (std::size_t i = 0; i < pages.size(); ++i) {
            for (const test::PrintedWord& word : pages[i].words)
                places << i + 1 << ':' << std::lround(word.left) << ',' << std::lround(word.top) << ','
                       << std::lround(word.right) << ' ';
        }
        EXPECT_EQ(pages.size(), row.ends.size());
        EXPECT_EQ(places.str(), row.places);
    }
    for (const Rectangle& area : {Rectangle{}, Rectangle{5, 5, 5, 50}, Rectangle{5, 9, 50, 1}})
        EXPECT_EQ(desk.print(desk.system.path("a.pdf"), {.area = area, .firstCharacter = 0}),
                  std::vector<std::intptr_t>{0});
}

/// What a dialog has left in the blocks: driver and output, paper, orientation, copies.
std::string blocksOf(PrintingDesk& desk, MemoryBlock devMode, MemoryBlock devNames) {
    DeviceSettings settings;
    DeviceNames names;
    const auto copy = [&](MemoryBlock block, auto bytes) {
        ASSERT_GE(desk.printing().GlobalSize(block), bytes.size());
        std::copy_n(desk.printing().GlobalLock(block), bytes.size(), bytes.begin());
        desk.printing().GlobalFree(block);
    };
    copy(devMode, settings.bytes());
    copy(devNames, names.bytes());
    std::ostringstream text;
    text << names.from(DeviceNames::Name::Driver).data() << ' '
         << names.from(DeviceNames::Name::Output).data();
    for (const Member member : {Member::Size, Member::PaperSize, Member::Orientation, Member::Copies})
        text << ' ' << settings.get(member);
    return text.str();
}

TEST(LinuxPrinting, AsksOnTheTerminalOrTheHost) {
    const std::string longPath = "C:\\" + std::string(200, 'x');
    const PageAnswer none, letter{true, "Letter", Rectangle{2000, 1000, 2000, 550}}, a3{.paper = "A3"},
        a9{.paper = "A9"}, narrow{.margins = Rectangle{1000, 1000, 1000, 1000}};
    struct Row {
        bool isPage;  // the page-setup dialog
        std::uint32_t flags;
        std::string typed;
        PrinterAnswer printer;  // the same by the host
        PageAnswer page;
        std::string outcome;  // the blocks; flags and copies, or flags, size of the paper and margins
    };
    const Row rows[] = {
        {false,
         0,
         "None\nPDF file\n\na.pdf\ny\n2\n",
         {"PDF file", "a.pdf", true, 2},
         {},
         "pdf a.pdf 156 9 1 1 1 2"},
        {false, 0x40005, "\na.pdf\n3\n", {"", "a.pdf", true, 3}, {}, "pdf a.pdf 156 9 1 3 262148 1"},
        {false, 0x400, "", {}, {}, "pdf  156 9 1 1 1024 0"},
        {false, 0, "\na.pdf\nno\ncancel\n", {"None"}, {}, "0"},
        {false, 0, "", {"PDF file"}, {}, "0"},
        {false, 0, "\n" + longPath + "\n\n\n", {"", longPath}, {}, "0"},
        {true,
         2,
         "A9\nletter\nl\n20,10,20\n20, 10, 20, 5.5\n",
         {},
         letter,
         "pdf  156 1 2 1 10 27940x21590 2000,1000,2000,550"},
        {true, 11, "\n\n\n", {}, none, "pdf  156 9 1 1 11 21000x29700 2000,1000,2000,600"},
        {true, 4, "\n\n10,10,10,10\n", {}, narrow, "pdf  156 9 1 1 4 8268x11693 394,394,394,394"},
        {true, 0x310, "", {}, letter, "pdf  156 9 1 1 792 21000x29700 2540,2540,2540,2540"},
        {true, 0x400, "", {}, a3, "pdf  156 9 1 1 1032 21000x29700 2540,2540,2540,2540"},
        {true, 0, "A3\nCANCEL\n", {}, a9, "0"},
    };
    for (const bool byHost : {false, true}) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.outcome);
            PrintingDesk desk;
            desk.answers.str(row.typed);
            if (byHost)
                desk.use(
                    {.choosePrinter = [&] { return row.printer; }, .setUpPage = [&] { return row.page; }});
            PrintDialog print{.flags = row.flags};
            PageSetupDialog page{
                .flags = row.flags, .minMargin = {600, 600, 600, 600}, .margin = {2000, 1000, 2000, 500}};
            std::ostringstream outcome;
            if (row.isPage && desk.printing().PageSetupDlgA(page) == kDialogConfirmed) {
                const Rectangle& margin = page.margin;
                outcome << blocksOf(desk, page.devMode, page.devNames) << ' ' << page.flags << ' '
                        << page.paperWidth << 'x' << page.paperHeight << ' ' << margin.left << ','
                        << margin.top << ',' << margin.right << ',' << margin.bottom;
            } else if (!row.isPage && desk.printing().PrintDlgA(print) == kDialogConfirmed) {
                outcome << blocksOf(desk, print.devMode, print.devNames) << ' ' << print.flags << ' '
                        << print.copies;
            } else {
                outcome << (print.devMode | page.devMode);
            }
            EXPECT_EQ(outcome.str(), row.outcome);
        }
    }
}

TEST(LinuxPrinting, LeavesTheOldFileWherePrintingFails) {
    PrintingDesk desk;
    desk.text = richText(std::string(100000, 'x'));
    std::filesystem::create_directory(desk.system.onDisk("folder"));
    desk.system.write(desk.system.path("read-only.pdf"), "old");
    std::filesystem::permissions(desk.system.onDisk("read-only.pdf"), std::filesystem::perms::owner_read);
    desk.system.write(desk.system.path("old.pdf"), "old");
    const std::string folder = desk.system.path("");
    const std::pair<std::string, std::string> rows[] = {
        {"Z:\\dev\\full", "Cannot write Z:\\dev\\full: No space left on device."},
        {folder + "folder", "Cannot write " + folder + "folder: Is a directory."},
        {folder + "none\\a.pdf", "Cannot write " + folder + "none\\a.pdf: No such file or directory."},
        {folder + "read-only.pdf", "Cannot write " + folder + "read-only.pdf: Permission denied."},
        {"", "Cannot write a PDF file: it has no name."},
    };
    for (const auto& [output, message] : rows) {
        desk.failures.clear();
        desk.print(output, {.area = kArea});
        EXPECT_EQ(desk.failures, message);
    }
    EXPECT_EQ(desk.printing().CreateDCA("", {}) + desk.printing().CreateDCA("Gone", {}), 0);
    EXPECT_EQ(desk.failures, rows[4].second + "There is no printer Gone.");
    for (const std::size_t size : {0U, 1U, 41U, 47U, 121U, 122U, 10000U}) {
        const std::vector<std::byte> odd(size, std::byte{0xFF});
        const DeviceContext context = desk.printing().CreateDCA(kPdfPrinter, odd);
        EXPECT_EQ(desk.system.platform.graphics->GetDeviceCaps(context, DeviceCaps::PhysicalWidth), 4961);
    }
    // A context that is deleted before its document ends, and one without pages
    Printing& printing = desk.printing();
    for (const bool hasPage : {true, false}) {
        const DeviceContext context = printing.CreateDCA(kPdfPrinter, {});
        EXPECT_EQ(printing.StartDocA(context, {0, "\xFF", folder + "old.pdf"}), 1);
        EXPECT_EQ(printing.StartDocA(context, {0, "", folder + "old.pdf"}), 0);
        EXPECT_EQ(hasPage ? printing.StartPage(context) : printing.EndDoc(context), 1);
        EXPECT_TRUE(desk.system.platform.graphics->DeleteDC(context));
        EXPECT_EQ(printing.StartPage(context) + printing.EndPage(context) + printing.EndDoc(context), 0);
    }
    EXPECT_EQ(desk.system.read(folder + "old.pdf") + desk.system.read(folder + "read-only.pdf"), "oldold");
    // With "." and ".."
    EXPECT_EQ(desk.system.platform.files->FindFirstFileA(folder + "*").value.size(), 5U);
}

}  // namespace
}  // namespace t_genproc
