#include <gtest/gtest.h>

#include <optional>

#include "platform/linux_desktop/linux_desktop.h"
#include "support/platform_under_test.h"
#include "support/xvfb.h"

namespace t_genproc::test {
namespace {

TEST(LinuxDisplay, IsOpenedAgainWhenItComesBack) {
    PlatformUnderTest system;
    std::optional<Xvfb> display(std::in_place);
    LinuxDesktopOptions options;
    options.display = display->name();
    addLinuxDesktop(system.platform, std::move(options));
    Graphics& graphics = *system.platform.graphics;
    const DeviceContext screen = graphics.GetDC(0).value;
    const DeviceContext memory = graphics.CreateCompatibleDC(0).value;
    const std::function<SystemError()> calls[]{
        [&] { return graphics.BitBlt(memory, 0, 0, 1, 1, screen, 0, 0, kSourceCopy).error; },
        [&] { return graphics.GetDC(0).error; },
        [&] { return graphics.GetWindowDC(0).error; },
        [&] { return graphics.CreateCompatibleDC(0).error; },
    };
    const std::string name = display->name();
    for (const auto& call : calls) EXPECT_EQ(call(), SystemError::Success);
    display.reset();
    for (const auto& call : calls) EXPECT_EQ(call(), SystemError::NotReady);
    display.emplace(name);
    for (const auto& call : calls) EXPECT_EQ(call(), SystemError::Success);
}

}  // namespace
}  // namespace t_genproc::test
