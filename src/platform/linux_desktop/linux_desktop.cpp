#include "platform/linux_desktop/linux_desktop.h"

#include "platform/linux_desktop/desktop.h"

namespace t_genproc {

void addLinuxDesktop(Platform& platform, LinuxDesktopOptions options) {
    auto desktop = std::make_shared<linux_desktop::Desktop>(std::move(options), *platform.files);
    platform.printing = linux_desktop::makePrinting(desktop);
    platform.graphics = linux_desktop::makeGraphics(std::move(desktop));
}

}  // namespace t_genproc
