#include "platform/portable/portable_platform.h"
#include "support/platform_under_test.h"

namespace t_genproc::test {

std::string systemName() { return "portable"; }

Platform PlatformUnderTest::makePlatform() {
    folderOnDisk_ = onDisk_ / "work";
    std::filesystem::create_directory(folderOnDisk_);
    folder_ = "C:\\work\\";
    PortableOptions options;
    options.driveC = onDisk_.string();
    return portablePlatform(std::move(options));
}

void PlatformUnderTest::hide(const std::string&) {}

}  // namespace t_genproc::test
