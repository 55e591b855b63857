/// The text of the registry's file: what stands in it, and what a change replaces.
///
///     t_genproc registry 1
///     [HKEY_CURRENT_USER\Software\Tavoru]
///     Language=English
///     [end]
///
/// Each key has a line, even where it only leads to others; the lines of its values follow, each with a name
/// and a text. "%" and two hexadecimal digits stand for a control character or a "%", in the name of a value
/// also for "=" and "[". The first and the last line show that the text is whole.
///
/// Keys are given by their full names, as registryPath makes them. A call fails with KeyDeleted where its
/// (first) key is not there, with FileNotFound where what it looks for below that is not, and with
/// DamagedRegistry where that cannot be read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/portable/text_change.h"
#include "platform/system_error.h"

namespace t_genproc::portable {

/// The keys that are always there, and one that has a second name among the roots.
inline constexpr std::string_view kEmptyRegistry =
    "t_genproc registry 1\n"
    "[HKEY_LOCAL_MACHINE]\n"
    "[HKEY_LOCAL_MACHINE\\Software]\n"
    "[HKEY_LOCAL_MACHINE\\Software\\Classes]\n"
    "[HKEY_CURRENT_USER]\n"
    "[HKEY_CURRENT_USER\\Software]\n"
    "[HKEY_USERS]\n"
    "[HKEY_CURRENT_CONFIG]\n"
    "[end]\n";

/// Whether the text has its first and last line; the calls below, but for isWhole, need that.
bool mayBeWhole(std::string_view text);
/// Whether every line is one of a registry.
bool isWhole(std::string_view text);

std::string registryPath(std::string_view parent, std::string_view subKey);

/// The full name of `key`, which is `parent` or below it, as it was first written.
Outcome<std::string> registryKey(std::string_view text, std::string_view parent, std::string_view key);
Outcome<std::string> registryValue(std::string_view text, std::string_view key, std::string_view name);

/// The name at the zero-based `index`. NoMoreItems: there are not that many.
Outcome<std::string> subKeyName(std::string_view text, std::string_view key, std::uint32_t index);
Outcome<std::string> valueName(std::string_view text, std::string_view key, std::uint32_t index);

/// The missing ones of `key` and the keys between it and `parent`.
Outcome<TextChange> withKey(std::string_view text, std::string_view parent, std::string_view key);
Outcome<TextChange> withoutKey(std::string_view text, std::string_view parent, std::string_view key);
Outcome<TextChange> withValue(std::string_view text, std::string_view key, std::string_view name,
                              std::string_view value);
Outcome<TextChange> withoutValue(std::string_view text, std::string_view key, std::string_view name);

}  // namespace t_genproc::portable
