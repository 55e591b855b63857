#include <windows.h>
// After <windows.h>.
#include <richedit.h>
#include <winspool.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <span>
#include <stdexcept>

#include "desk.h"
#include "host/rich_text_control.h"
#include "platform/windows/ansi.h"

namespace tavoru {
namespace {

// ---- A rich-text control that nobody sees

DWORD CALLBACK readNext(DWORD_PTR cookie, LPBYTE buffer, LONG room, LONG* count) {
    auto& rest = *reinterpret_cast<std::string_view*>(cookie);
    *count = static_cast<LONG>(rest.copy(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(room)));
    rest.remove_prefix(static_cast<std::size_t>(*count));
    return 0;
}

/// A control with the text of `rtf`.
HWND createRichEdit(std::string_view rtf) {
    const bool isNew = ::LoadLibraryA("msftedit.dll") != nullptr;
    if (!isNew) ::LoadLibraryA("riched20.dll");
    const HWND window = ::CreateWindowExW(0, isNew ? L"RICHEDIT50W" : L"RichEdit20W", L"", ES_MULTILINE, 0, 0,
                                          0, 0, HWND_MESSAGE, nullptr, ::GetModuleHandleA(nullptr), nullptr);
    if (window == nullptr) throw std::runtime_error("this system has no rich-text control");

    constexpr LPARAM kMost = 0x7FFFFFFE;
    ::SendMessageW(window, EM_EXLIMITTEXT, 0, kMost);
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rtf);
    stream.pfnCallback = &readNext;
    ::SendMessageW(window, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    return window;
}

/// The text as the control counts it when it prints: one character for the end of a paragraph, two for what
/// takes two words of UTF-16.
std::string textOf(HWND window) {
    constexpr UINT kUtf16 = 1200;
    GETTEXTLENGTHEX counted{.flags = GTL_NUMCHARS | GTL_PRECISE, .codepage = kUtf16};
    const LRESULT length = ::SendMessageW(window, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&counted), 0);
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
    GETTEXTEX wanted{};
    wanted.cb = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    wanted.flags = GT_DEFAULT;
    wanted.codepage = kUtf16;
    const LRESULT got = ::SendMessageW(window, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&wanted),
                                       reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(got, 0)));
    constexpr wchar_t kUnknown = 0xFFFD;
    std::ranges::replace_if(
        text, [](wchar_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }, kUnknown);
    return t_genproc::fromWide(text);
}

struct RichEdit {
    explicit RichEdit(std::string_view rtf) : window(createRichEdit(rtf)) {}
    RichEdit(const RichEdit&) = delete;
    RichEdit& operator=(const RichEdit&) = delete;
    ~RichEdit() { ::DestroyWindow(window); }

    HWND window;
    t_gencvf::RichTextControl control{HandleToLong(window), std::make_shared<const t_gencvf::RichText>(
                                                                t_gencvf::RichText{.text = textOf(window)})};
};

// ---- The desk

class WindowsDesk final : public Desk {
   public:
    std::vector<std::string> printerNames() override {
        constexpr DWORD kWhich = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, kLevel = 4;
        DWORD size = 0, count = 0;
        ::EnumPrintersA(kWhich, nullptr, kLevel, nullptr, 0, &size, &count);
        const std::unique_ptr<std::byte[]> bytes(new std::byte[size]);
        auto* const printers = reinterpret_cast<PRINTER_INFO_4A*>(bytes.get());
        if (!::EnumPrintersA(kWhich, nullptr, kLevel, reinterpret_cast<BYTE*>(printers), size, &size,
                             &count)) {
            return {};
        }
        std::vector<std::string> names;
        for (const auto& each : std::span(printers, count)) {
            names.push_back(t_genproc::fromAnsi(each.pPrinterName));
        }
        return names;
    }

    t_genproc::ObjectPointer openRichText(const std::string& rtf) override {
        const auto opened = std::make_shared<RichEdit>(rtf);
        return {opened, &opened->control};
    }

    /// Windows tells it in a box of its own.
    std::string failure() const override { return {}; }

    t_genproc::WindowHandle windowTitled(const std::string& title) override {
        const HWND window = ::FindWindowA(nullptr, t_genproc::toAnsiWithLoss(title).c_str());
        return reinterpret_cast<t_genproc::WindowHandle>(window);
    }
};

}  // namespace

const bool kAnswersPrintDialog = false;

std::unique_ptr<Desk> openDesk(t_genproc::Platform& /*platform*/,
                               const std::optional<PrinterChoice>& /*choice*/) {
    return std::make_unique<WindowsDesk>();
}

std::string pathOnDrive(const std::string& name) {
    return std::filesystem::absolute(name).lexically_normal().make_preferred().string();
}

}  // namespace tavoru
