#include "platform/portable/portable_platform.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/portable/adapters.h"
#include "platform/portable/posix.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr std::string_view kNotInNames = "<>\"|?*:\\/";

std::string loginName() {
    const passwd* const user = ::getpwuid(::getuid());
    return user == nullptr ? std::string() : user->pw_name;
}

/// `name` as a part of a path, with "_" for what that cannot be or end with.
std::string asFolderName(std::string name) {
    std::ranges::replace_if(
        name,
        [](char c) {
            return static_cast<unsigned char>(c) < ' ' || text::contains(kNotInNames, {&c, 1});
        },
        '_');
    if (name.ends_with('.') || name.ends_with(' ')) name.back() = '_';
    return name;
}

}  // namespace

Platform portablePlatform(PortableOptions options) {
    if (options.driveC.empty()) options.driveC = portable::dataFolder() + "/tavoru/drive_c";
    if (options.userName.empty()) options.userName = loginName();
    options.userName = options.userName.empty() ? "User" : asFolderName(options.userName);
    std::error_code ignored;  // a drive that cannot be made shows in every call that uses it
    const std::filesystem::path driveC = std::filesystem::absolute(options.driveC, ignored);
    std::filesystem::create_directories(driveC, ignored);

    const auto drives = std::make_shared<portable::DriveMap>(driveC.string());
    Platform platform;
    platform.profileFiles = portable::makeProfileFiles(drives);
    platform.files = portable::makeFiles(drives);
    platform.folders = portable::makeFolders(drives);
    platform.windows = portable::makeWindowsAndMessages(options);
    platform.registry = portable::makeRegistry(drives);
    platform.shell = portable::makeShell(drives, options);
    platform.processes = portable::makeProcesses(drives);
    platform.system = portable::makeSystemInformation(drives, options);
    platform.clock = portable::makeClock();
    platform.helpViewer = portable::makeHelpViewer(drives, options);
    platform.printing = portable::makePrinting();
    platform.graphics = portable::makeGraphics();
    return platform;
}

}  // namespace t_genproc
