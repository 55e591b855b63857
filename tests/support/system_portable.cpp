#include <cstdlib>

#include "platform/portable/portable_platform.h"
#include "support/child_process.h"
#include "support/platform_under_test.h"

namespace t_genproc::test {

std::string systemName() { return "portable"; }

Platform PlatformUnderTest::makePlatform() {
    folderOnDisk_ = onDisk_ / "work";
    std::filesystem::create_directory(folderOnDisk_);
    folder_ = "C:\\work\\";
    setVariable("XDG_DATA_HOME", (onDisk_ / "data").string());  // nor is the user's own trash touched
    PortableOptions options;
    options.driveC = onDisk_.string();
    return portablePlatform(std::move(options));
}

void PlatformUnderTest::hide(const std::string&) {}

void setVariable(const std::string& name, const std::string& value) {
    ::setenv(name.c_str(), value.c_str(), 1);
}

std::optional<bool> asOrdinaryUser(const std::function<bool()>& body) {
    return succeeds(start([&] { return becomeOrdinaryUser() && body(); }));
}

}  // namespace t_genproc::test
