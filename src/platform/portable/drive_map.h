/// Drives on a system that has none: drive C is a folder of its own, drive Z the root of the file system.
///
/// Paths are taken as Windows takes them: "/" is "\", each drive has a current folder, "." and ".." are
/// resolved by the text alone, blanks and dots at the end of a path and a dot at the end of a folder name do
/// not count, and letter case does not tell names apart (of two that differ in case only, the one that is
/// spelled exactly wins).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "platform/system_error.h"

namespace t_genproc::portable {

class DriveMap {
   public:
    explicit DriveMap(std::string driveC);

    /// The full backslash form of `path`, for example "C:\Jobs\A". InvalidName: it holds a character that no
    /// path may hold, or only blanks; FileNameTooLong; PathNotFound: it names a computer on the network.
    Outcome<std::string> fullPath(std::string_view path) const;

    /// Where `path` is on this system, spelled as given: right for whatever exists under exactly that name.
    /// Fails as fullPath does, and with PathNotFound where there is no such drive.
    Outcome<std::string> exactPath(std::string_view path) const;

    /// Where `path` is on this system, each part spelled as it exists there; parts that do not exist stay as
    /// given.
    Outcome<std::string> actualPath(std::string_view path) const;

    /// The backslash path of an absolute path of this system: on drive C where that holds it, else on drive
    /// Z.
    std::string drivePath(std::string_view location) const;

    /// Makes `folder`, in its full form, the current one.
    void setCurrent(std::string_view folder);

   private:
    struct Location {
        std::string path;
        std::size_t rootLength = 0;  // bytes of it that are the drive
    };
    Outcome<Location> locate(std::string_view path) const;

    static constexpr std::size_t kDrives = 26;
    static std::size_t driveIndex(char letter);

    std::array<std::optional<std::string>, kDrives> roots_;  // where a drive is, without a trailing "/"
    std::array<std::string, kDrives> current_;               // without the drive: "\" or "\Jobs\"
    std::size_t currentDrive_ = 2;
};

}  // namespace t_genproc::portable
