/// The registry: values under keys, the keys in a tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/system_error.h"

namespace t_genproc {

/// An open key, or one of the roots, which are always open.
using RegistryKey = std::intptr_t;

/// The roots, as 32-bit numbers.
namespace RootKey {
inline constexpr std::int32_t ClassesRoot = INT32_MIN;  // 80000000 hexadecimal
inline constexpr std::int32_t CurrentUser = INT32_MIN + 1;
inline constexpr std::int32_t LocalMachine = INT32_MIN + 2;
inline constexpr std::int32_t Users = INT32_MIN + 3;
inline constexpr std::int32_t CurrentConfig = INT32_MIN + 5;
}  // namespace RootKey

/// What an open key may be used for.
namespace KeyAccess {
inline constexpr std::uint32_t QueryValue = 0x1;
inline constexpr std::uint32_t Read = 0x20019;  ///< values and the names of what is below the key
inline constexpr std::uint32_t Full = 0x2003F;  ///< the standard read right and all that a key has of its own
}  // namespace KeyAccess

/// The types of value that are text, and the one that is a 32-bit number, lowest byte first.
namespace ValueType {
inline constexpr std::uint32_t Text = 1;
inline constexpr std::uint32_t ExpandableText = 2;
inline constexpr std::uint32_t Number = 4;
}  // namespace ValueType

struct RegistryValue {
    std::uint32_t type = ValueType::Text;
    std::string bytes;  ///< a text with its terminating zero, where it is stored with one
};

/// Names of keys and values are matched without regard to letter case; "\" parts a key from those below it.
/// The value with the empty name is the key's default value.
class Registry {
   public:
    virtual ~Registry() = default;

    /// Opens `subKey` below `parent`; makes it, and the keys on the way to it, where missing. AccessDenied
    /// where it may not be used as `access` says.
    virtual Outcome<RegistryKey> RegCreateKeyExA(RegistryKey parent, const std::string& subKey,
                                                 const std::string& className, std::uint32_t access) = 0;
    /// FileNotFound: there is no such key; AccessDenied as above.
    virtual Outcome<RegistryKey> RegOpenKeyExA(RegistryKey parent, const std::string& subKey,
                                               std::uint32_t access) = 0;
    virtual SystemError RegCloseKey(RegistryKey key) = 0;

    /// FileNotFound: there is no such value; MoreData: it is longer than `size` characters, the terminating
    /// zero among them.
    virtual Outcome<RegistryValue> RegQueryValueExA(RegistryKey key, const std::string& name,
                                                    std::size_t size) = 0;
    /// Stores a text with a terminating zero. An empty text may be stored without one.
    virtual SystemError RegSetValueExA(RegistryKey key, const std::string& name, const std::string& text) = 0;

    virtual SystemError RegDeleteValueA(RegistryKey key, const std::string& name) = 0;
    /// Removes a key with all that is below it.
    virtual SystemError SHDeleteKeyA(RegistryKey parent, const std::string& subKey) = 0;

    /// The name of the key, or of the value, at the zero-based `index` below `key`. NoMoreItems: there are
    /// not that many.
    virtual Outcome<std::string> RegEnumKeyExA(RegistryKey key, std::uint32_t index) = 0;
    virtual Outcome<std::string> RegEnumValueA(RegistryKey key, std::uint32_t index) = 0;
};

}  // namespace t_genproc
