#include "platform/portable/portable_platform.h"
#include "support/platform_under_test.h"

namespace t_genproc::test {

std::string systemName() { return "portable"; }

Platform PlatformUnderTest::makePlatform() {
    std::filesystem::create_directory(onDisk_ / "work");
    folder_ = "C:\\work\\";
    PortableOptions options;
    options.driveC = onDisk_.string();
    return portablePlatform(std::move(options));
}

void PlatformUnderTest::hide(const std::string&) {}

}  // namespace t_genproc::test
