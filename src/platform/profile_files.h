/// Settings files: sections in square brackets, each with lines of a key, an equals sign and a value.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace t_genproc {

/// Section and key names match without regard to letter case, blanks around names and values do not count,
/// and of sections or keys that stand twice the first one counts. A file name without a folder is in the
/// Windows folder.
class ProfileFiles {
   public:
    virtual ~ProfileFiles() = default;

    /// The value of `key`, without one pair of quotes around it (either kind), cut to `size` - 1 characters;
    /// `defaultValue` where the file, the section or the key is missing or cannot be read.
    virtual std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                                 std::string_view defaultValue, std::size_t size,
                                                 const std::string& fileName) = 0;

    /// Replaces the value, or adds the key at the end of its section, the section at the end of the file, the
    /// file where there is none. Other processes see the change when the call returns. Non-zero on success;
    /// zero, and the file as it was, where it cannot be written or a text holds a line break.
    virtual int WritePrivateProfileStringA(std::string_view section, std::string_view key,
                                           std::string_view value, const std::string& fileName) = 0;
};

}  // namespace t_genproc
