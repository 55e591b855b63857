/// The operating system under the sample host. The build picks platform_choice_posix.cpp or
/// platform_choice_windows.cpp, so that no other file asks which one it is.
#pragma once

#include <filesystem>
#include <string>

#include "platform/platform.h"
#include "platform/sqlite/sqlite_engine.h"

namespace tavoru {

struct Drive {
    Drive(t_genproc::Platform services, std::string rootFolder)
        : platform(std::move(services)), root(std::move(rootFolder)) {
        platform.databases = t_genproc::sqliteEngine(*platform.files);
    }

    t_genproc::Platform platform;
    std::string root;  ///< as the library names the folder, ending in "\"
};

/// The platform's services, with `folder`, an absolute path, as the place of everything that the host keeps.
Drive openDrive(const std::filesystem::path& folder);

/// Sets the platform's clock to another time zone, for as long as the program runs. `name` is what this
/// system calls it: "Europe/Zurich" or a rule such as "CET-1CEST,M3.5.0,M10.5.0/3", on Windows "W. Europe
/// Standard Time". Throws std::runtime_error: there is no such zone.
void setZone(t_genproc::Platform& platform, const std::string& name);

/// A zone that every system knows.
extern const char* const kCentralEurope;

}  // namespace tavoru
