/// The special folders that Windows knows by number, and where a system without them keeps each.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace t_genproc {

/// The folders that the library itself asks for.
namespace SpecialFolder {
inline constexpr std::int32_t Personal = 5;          ///< the user's documents
inline constexpr std::int32_t LocalAppData = 28;     ///< the user's application data on this machine
inline constexpr std::int32_t CommonAppData = 35;    ///< all users' application data
inline constexpr std::int32_t CommonDocuments = 46;  ///< all users' documents
}  // namespace SpecialFolder

struct SpecialFolderEntry {
    std::int32_t identifier;
    std::string_view name;  ///< "CSIDL_PERSONAL"
    /// For example "%USER%\Documents"; %USER% is the user's folder. Empty: the folder is virtual.
    std::string_view path;
};

/// All of them, by their numbers.
std::span<const SpecialFolderEntry> specialFolders();

/// The entry of `identifier` without its flags; none: there is no such folder.
const SpecialFolderEntry* findSpecialFolder(std::int32_t identifier);

}  // namespace t_genproc
