/// A window that formats its text for EM_FORMATRANGE as Windows' rich-text controls do, and those of Wine do
/// not.
#pragma once

#include <windows.h>
// After <windows.h>.
#include <richedit.h>

#include <algorithm>
#include <memory>
#include <string>

#include "host/memory_object.h"

namespace t_genproc::test {

class FormattingWindow {
   public:
    /// Words of ASCII letters, a blank behind each.
    explicit FormattingWindow(std::string text) : text_(std::move(text)) {
        WNDCLASSA description{};
        description.lpfnWndProc = &receive;
        description.lpszClassName = "FormattingWindow";
        ::RegisterClassA(&description);
        window_ = ::CreateWindowA(description.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  nullptr, nullptr);
        ::SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    FormattingWindow(const FormattingWindow&) = delete;
    FormattingWindow& operator=(const FormattingWindow&) = delete;
    ~FormattingWindow() { ::DestroyWindow(window_); }

    HWND handle() const { return window_; }
    int timesForgotten() const { return timesForgotten_; }

   private:
    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != EM_FORMATRANGE) return ::DefWindowProcA(window, message, wParam, lParam);
        auto* const self = reinterpret_cast<FormattingWindow*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
        if (lParam == 0) return ++self->timesForgotten_;
        return self->format(*reinterpret_cast<const FORMATRANGE*>(lParam), wParam != 0);
    }

    LONG format(const FORMATRANGE& range, bool render) const {
        const int perInchX = ::GetDeviceCaps(range.hdc, LOGPIXELSX);
        const int perInchY = ::GetDeviceCaps(range.hdc, LOGPIXELSY);
        const int left = ::MulDiv(range.rc.left, perInchX, 1440);
        const int width = ::MulDiv(range.rc.right, perInchX, 1440) - left;
        const int bottom = ::MulDiv(range.rc.bottom, perInchY, 1440);
        const int height = perInchY / 6;
        const HFONT font = ::CreateFontA(height, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Liberation Serif");
        const HGDIOBJ previous = ::SelectObject(range.hdc, font);

        const auto length = static_cast<LONG>(text_.size());
        const LONG end = range.chrg.cpMax < 0 ? length : std::min(range.chrg.cpMax, length);
        LONG next = range.chrg.cpMin;
        for (int y = ::MulDiv(range.rc.top, perInchY, 1440); next < end && y + height <= bottom;
             y += height) {
            const char* const line = &text_[static_cast<std::size_t>(next)];
            int fitting = 0;
            SIZE size{};
            ::GetTextExtentExPointA(range.hdc, line, std::min<LONG>(end - next, 1000), width, &fitting,
                                    nullptr, &size);
            while (next + fitting < end && fitting > 1 && line[fitting - 1] != ' ') --fitting;
            if (render) ::TextOutA(range.hdc, left, y, line, fitting);
            next += std::max(fitting, 1);
        }
        ::DeleteObject(::SelectObject(range.hdc, previous));
        return next;
    }

    std::string text_;
    HWND window_;
    int timesForgotten_ = 0;
};

}  // namespace t_genproc::test
