/// What is asked about the windows of an X display.
#pragma once

#include "platform/graphics.h"
#include "platform/linux_desktop/x_display.h"

namespace t_genproc::linux_desktop {

/// A window as it is now. Its own place 0, 0 is the corner within its border.
struct XWindow {
    xcb_window_t window = 0;
    xcb_window_t root = 0;
    std::int32_t left = 0;  ///< of its own 0, 0 on the screen
    std::int32_t top = 0;
    std::int32_t border = 0;
    Rectangle outside{};  ///< with its border
    Rectangle visible{};  ///< what of `outside` is within all windows around it, and on the screen
};
/// InvalidHandle: there is no such window; NotReady: no display.
Outcome<XWindow> lookAt(XDisplay& display, xcb_window_t window);

/// The frame that a window manager has put around `window`, or `window` itself.
xcb_window_t frameOf(XDisplay& display, xcb_window_t window);

/// What the window manager calls the active window, else the window below the root that has the keyboard; 0:
/// none.
xcb_window_t activeWindow(XDisplay& display);

struct Resolution {
    std::int32_t x = 96;  ///< pixels per inch
    std::int32_t y = 96;
};
/// 96 each where the screen does not tell its size.
Resolution resolutionOf(const xcb_screen_t& screen);

}  // namespace t_genproc::linux_desktop
