#include <windows.h>
// After <windows.h>.
#include <ocidl.h>
// After both.
#include <gdiplus.h>

#include "support/desktop.h"

namespace t_genproc::test {
namespace {

HWND win(WindowHandle window) { return reinterpret_cast<HWND>(window); }

COLORREF reversed(std::uint32_t colour) { return RGB(colour >> 16U, colour >> 8U, colour); }

LRESULT CALLBACK answer(HWND window, UINT message, WPARAM word, LPARAM longWord) {
    if (message == WM_NCPAINT) {
        const RECT whole{0, 0, TestWindow::kWidth + 2, TestWindow::kHeight + 2};
        const HDC context = ::GetWindowDC(window);
        const HBRUSH brush = ::CreateSolidBrush(reversed(TestWindow::kFrameColour));
        ::FrameRect(context, &whole, brush);
        ::DeleteObject(brush);
        ::ReleaseDC(window, context);
        return 0;
    }
    if (message != WM_PAINT) return ::DefWindowProcA(window, message, word, longWord);
    PAINTSTRUCT painting{};
    const HDC context = ::BeginPaint(window, &painting);
    for (int row = 0; row < TestWindow::kHeight; ++row) {
        for (int column = 0; column < TestWindow::kWidth; ++column) {
            ::SetPixelV(context, column, row, reversed(TestWindow::colour(column, row)));
        }
    }
    ::EndPaint(window, &painting);
    return 0;
}

}  // namespace

const Rectangle TestWindow::kInside{1, 1, 1 + kWidth, 1 + kHeight};
const int TestWindow::kScreens = 1;

TestWindow::TestWindow(int /*screen*/) {
    WNDCLASSA kind{};
    kind.lpfnWndProc = &answer;
    kind.lpszClassName = "t_genproc test";
    ::RegisterClassA(&kind);
    window_ = reinterpret_cast<WindowHandle>(
        ::CreateWindowExA(WS_EX_TOPMOST, kind.lpszClassName, "", WS_POPUP | WS_BORDER | WS_VISIBLE, 0, 0,
                          kWidth + 2, kHeight + 2, nullptr, nullptr, nullptr, nullptr));
    ::UpdateWindow(win(window_));
}

void TestWindow::moveTo(std::int32_t left, std::int32_t top) {
    ::SetWindowPos(win(window_), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    ::UpdateWindow(win(window_));
}

void TestWindow::activate(bool /*byManager*/) { ::SetForegroundWindow(win(window_)); }

void TestWindow::hide() { ::ShowWindow(win(window_), SW_HIDE); }

void TestWindow::close() { ::DestroyWindow(win(window_)); }

Desktop::Desktop(Platform& /*platform*/) {}

std::size_t Desktop::count() const {
    // Wine counts nothing, but finds its objects by the lower half of their handles.
    std::size_t count = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    for (std::uintptr_t i = 1; i <= 0xFFFF; ++i)
        count += ::GetObjectType(reinterpret_cast<HGDIOBJ>(i)) != 0 ? 1 : 0;
    return count;
}

Image readPng(const std::filesystem::path& file) {
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    Image image;
    {
        Gdiplus::Bitmap bitmap(file.c_str());
        image.width = static_cast<std::int32_t>(bitmap.GetWidth());
        image.height = static_cast<std::int32_t>(bitmap.GetHeight());
        for (std::int32_t i = 0; i < image.width * image.height; ++i) {
            Gdiplus::Color colour;
            bitmap.GetPixel(i % image.width, i / image.width, &colour);
            image.pixels.push_back(colour.GetValue() & 0xFFFFFFU);
        }
    }
    Gdiplus::GdiplusShutdown(token);
    return image;
}

}  // namespace t_genproc::test
