/// What the system says of itself: version, memory, folders, environment.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/system_error.h"

namespace t_genproc {

/// The two families of Windows.
namespace VersionPlatform {
inline constexpr std::uint32_t Windows9x = 1;
inline constexpr std::uint32_t WindowsNT = 2;
}  // namespace VersionPlatform

struct OsVersion {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t build = 0;  ///< on Windows 95 and 98 the low 16 bits only
    std::uint32_t platform = 0;
    std::string servicePack;
};

/// A text for a buffer of given size.
struct CountedText {
    std::size_t count = 0;  ///< its characters; the room that it needs, where it does not fit; 0: failed
    std::string text;       ///< empty where it does not fit
};

using Guid = std::array<std::uint8_t, 16>;  ///< in the order in which its text shows the bytes

class SystemInformation {
   public:
    virtual ~SystemInformation() = default;

    virtual Outcome<OsVersion> GetVersionExA() = 0;
    /// The physical memory in bytes.
    virtual std::uint64_t GlobalMemoryStatus() = 0;

    /// Folders that exist, made where they can be. `size` counts characters, a terminating zero among them.
    /// Of these three only GetTempPathA gives a "\" at the end.
    virtual CountedText GetSystemDirectoryA(std::size_t size) = 0;
    virtual CountedText GetWindowsDirectoryA(std::size_t size) = 0;
    virtual CountedText GetTempPathA(std::size_t size) = 0;

    /// Makes an empty file with a new name in `folder`: the first three characters of `prefix`, a number,
    /// ".tmp". Gives its full name.
    virtual Outcome<std::string> GetTempFileNameA(const std::string& folder, const std::string& prefix) = 0;

    /// A variable of this process, whatever the letter case of its name. `size` as above. Elsewhere than on
    /// Windows, USERPROFILE is the user's home folder, as a path with a drive.
    virtual CountedText GetEnvironmentVariableA(const std::string& name, std::size_t size) = 0;
    /// All of them: "name=value" and a zero each, one more zero at the end. Not the call for ANSI text: that
    /// one is a macro, and answers in the code page of the console.
    virtual std::string GetEnvironmentStringsW() = 0;

    /// A new identifier, not given before.
    virtual Outcome<Guid> CoCreateGuid() = 0;
};

}  // namespace t_genproc
