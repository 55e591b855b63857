#include <windows.h>

#include "platform/windows/windows_platform.h"
#include "support/platform_under_test.h"

namespace t_genproc::test {

std::string systemName() {
    return ::GetProcAddress(::GetModuleHandleA("ntdll"), "wine_get_version") != nullptr ? "Wine" : "Windows";
}

Platform PlatformUnderTest::makePlatform() {
    folderOnDisk_ = onDisk_;
    folder_ = onDisk_.string() + '\\';
    return windowsPlatform();
}

void PlatformUnderTest::hide(const std::string& path) {
    ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
}

void setVariable(const std::string& name, const std::string& value) {
    ::SetEnvironmentVariableA(name.c_str(), value.c_str());
}

std::optional<bool> asOrdinaryUser(const std::function<bool()>&) { return std::nullopt; }

}  // namespace t_genproc::test
