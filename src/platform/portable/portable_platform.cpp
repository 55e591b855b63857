#include "platform/portable/portable_platform.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/portable/adapters.h"

namespace t_genproc {
namespace {

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

std::string homeFolder() {
    std::string home = environment("HOME");
    if (!home.empty()) return home;
    const passwd* const user = ::getpwuid(::getuid());
    return user == nullptr ? std::string() : user->pw_dir;
}

std::string defaultDriveC() {
    std::string data = environment("XDG_DATA_HOME");
    if (data.empty()) data = homeFolder() + "/.local/share";
    return data + "/tavoru/drive_c";
}

}  // namespace

Platform portablePlatform(PortableOptions options) {
    if (options.driveC.empty()) options.driveC = defaultDriveC();
    std::error_code ignored;  // a drive that cannot be made shows in every call that uses it
    const std::filesystem::path driveC = std::filesystem::absolute(options.driveC, ignored);
    std::filesystem::create_directories(driveC, ignored);

    const auto drives = std::make_shared<portable::DriveMap>(driveC.string());
    return {portable::makeProfileFiles(drives), portable::makeFiles(drives), portable::makeFolders(drives),
            portable::makeWindowsAndMessages(options)};
}

}  // namespace t_genproc
