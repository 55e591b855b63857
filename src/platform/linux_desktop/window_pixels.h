/// The pixels of windows, whatever colours their display has.
#pragma once

#include "platform/linux_desktop/surface.h"
#include "platform/linux_desktop/x_windows.h"

namespace t_genproc::linux_desktop {

/// The pixels of `area`, which must be visible. GeneralFailure: the window is hidden.
Outcome<Surface> pixelsOf(XDisplay& display, xcb_window_t window, const Rectangle& area);

}  // namespace t_genproc::linux_desktop
