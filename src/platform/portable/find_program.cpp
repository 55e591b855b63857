#include "platform/portable/find_program.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/portable/command_line.h"
#include "platform/portable/posix.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

constexpr std::ptrdiff_t kLongestCommandLine = 32766;  // characters, as on Windows

SystemError checkProgram(const std::string& location) {
    struct stat found {};
    if (::stat(location.c_str(), &found) != 0) return systemError(errno, location);
    const bool isProgram = S_ISREG(found.st_mode) && ::access(location.c_str(), X_OK) == 0;
    return isProgram ? SystemError::Success : SystemError::AccessDenied;
}

/// Of several failures the first is told, but rather one that met something.
void note(SystemError& failure, SystemError next) {
    if (failure == SystemError::Success || next == SystemError::AccessDenied) failure = next;
}

/// Adds `name` in each folder of PATH that does not depend on where this process stands.
void addPlacesOfPath(std::vector<std::string>& places, const std::string& name) {
    const char* const path = std::getenv("PATH");
    std::string_view rest = path == nullptr ? "" : path;
    while (!rest.empty()) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
        if (folder.starts_with('/')) places.push_back("Z:" + std::string(folder) + '/' + name);
    }
}

/// Where the program `name` may be: a bare name in this program's own folder, the current one, those of the
/// system, and those of PATH.
std::vector<std::string> placesOf(const std::string& name) {
    if (name.find_first_of("\\/:") != std::string::npos) return {name};
    std::error_code ignored;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ignored);
    std::vector<std::string> places;
    if (!self.empty()) places.push_back("Z:" + self.parent_path().string() + '/' + name);
    for (const char* folder : {".\\", "C:\\Windows\\System32\\", "C:\\Windows\\"}) {
        places.push_back(folder + name);
    }
    addPlacesOfPath(places, name);
    return places;
}

/// The file of the program `name`. One that is spelled exactly so goes first everywhere: folders of PATH hold
/// different programs whose names differ in letter case only.
Outcome<std::string> locate(const DriveMap& drives, const std::string& name) {
    if (name.empty()) return {{}, SystemError::InvalidParameter};
    const std::vector<std::string> places = placesOf(name);
    const bool hasExtension = name.find('.', name.find_last_of("\\/:") + 1) != std::string::npos;
    const std::vector<const char*> endings{hasExtension ? std::vector{""} : std::vector{"", ".exe"}};
    SystemError failure = SystemError::Success;
    for (const auto onDisk : {&DriveMap::exactPath, &DriveMap::actualPath}) {
        for (const std::string& place : places) {
            for (const char* ending : endings) {
                Outcome<std::string> location = (drives.*onDisk)(place + ending);
                if (location) location.error = checkProgram(location.value);
                if (location) return location;
                note(failure, location.error);
            }
        }
    }
    return {{}, failure};
}

}  // namespace

Outcome<Program> findProgram(const DriveMap& drives, const std::string& commandLine) {
    if (commandLine.find('\0') != std::string::npos) return {{}, SystemError::InvalidParameter};
    if (text::length(commandLine) > kLongestCommandLine) return {{}, SystemError::FileNameTooLong};
    SystemError failure = SystemError::Success;
    for (const CommandLineReading& reading : readings(commandLine)) {
        Outcome<std::string> location = locate(drives, reading.program);
        if (location) {
            std::vector<std::string> words = splitArguments(reading.rest);
            words.insert(words.begin(), reading.program);
            return {{std::move(location.value), std::move(words)}};
        }
        note(failure, location.error);
    }
    return {{}, failure};
}

}  // namespace t_genproc::portable
