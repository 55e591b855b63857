/// The shell: operations on files that can be undone, and the special folders.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace t_genproc {

namespace FileOperation {
inline constexpr std::uint32_t Delete = 3;  // FO_DELETE

// Flags, added up
inline constexpr std::uint16_t NoConfirmation = 0x10;
inline constexpr std::uint16_t AllowUndo = 0x40;
inline constexpr std::uint16_t SimpleProgress = 0x100;
}  // namespace FileOperation

/// Status codes of the special-folder calls. Negative ones are failures.
namespace ShellStatus {
inline constexpr std::int32_t Success = 0;
inline constexpr std::int32_t NoPath = 1;                     ///< the folder is virtual
inline constexpr std::int32_t InvalidArgument = -2147024809;  ///< 80070057: no folder has the identifier
}  // namespace ShellStatus

template <class Value>
struct ShellOutcome {
    std::int32_t status = ShellStatus::Success;
    Value value{};
};

/// What names a place of the shell: to be given back with CoTaskMemFree.
using ItemIdList = std::intptr_t;

/// Added to a folder's identifier: make the folder where it is missing.
inline constexpr std::int32_t kCreateFolder = 0x8000;

/// Whether `path` ends in the name of one thing: in no wild card, nor in "", "." or "..".
inline bool endsInName(std::string_view path) {
    const std::string_view name = path.substr(path.find_last_of("\\/:") + 1);
    return name.find_first_of("*?") == std::string_view::npos &&
           name.find_first_not_of(". ") != std::string_view::npos;
}

class Shell {
   public:
    virtual ~Shell() = default;

    /// Does `operation` to the file or folder `from`; `to` is the target of those that have one. Delete with
    /// AllowUndo moves it to the recycle bin. Non-zero, and the file as it was, where that fails. What does
    /// not end in a name is refused. A folder on another file system that is changed while it is moved may be
    /// left in part, with all of it in the bin. (Windows deletes a file that is on a drive without a recycle
    /// bin.)
    virtual int SHFileOperationA(std::uint32_t operation, const std::string& from, const std::string& to,
                                 std::uint16_t flags) = 0;

    /// The path of a special folder (see special_folders.h), with a terminating zero. A folder that is
    /// missing fails, unless kCreateFolder makes it.
    virtual ShellOutcome<std::string> SHGetFolderPathA(std::int32_t folder) = 0;

    /// The same in two steps: the folder's item list, and the path of that with a terminating zero; empty
    /// where it has none. An item list of 0 is none.
    virtual ShellOutcome<ItemIdList> SHGetSpecialFolderLocation(std::int32_t folder) = 0;
    virtual std::string SHGetPathFromIDListA(ItemIdList list) = 0;
    virtual void CoTaskMemFree(ItemIdList list) = 0;
};

}  // namespace t_genproc
