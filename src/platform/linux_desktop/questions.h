/// What the dialogs ask, on the terminal unless the host's functions answer. None: cancelled.
#pragma once

#include <optional>

#include "platform/linux_desktop/linux_desktop.h"

namespace t_genproc::linux_desktop {

/// `preset` is what an empty answer means.
std::optional<PrinterAnswer> askForPrinter(const LinuxDesktopOptions& options, const PrinterAnswer& preset,
                                           bool offersSelection);

/// What is missing in `preset` is not asked for.
std::optional<PageAnswer> askForPage(const LinuxDesktopOptions& options, const PageAnswer& preset);

}  // namespace t_genproc::linux_desktop
