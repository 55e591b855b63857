/// The text of a settings file: where a value stands, and what a new value changes.
///
/// LF, CR or both end a line. A line that starts with "[" opens a section, whose name runs to the last "]" of
/// the line. Any other line is a key, up to its "=", and a value; without "=" it is a key without a value;
/// with ";" ahead it is a comment. White space around names and values does not count, nor does a byte order
/// mark.
#pragma once

#include <optional>
#include <string_view>

#include "platform/portable/text_change.h"

namespace t_genproc::portable {

/// The value of the first `key` in the first section `section`, with its quotes.
std::optional<std::string_view> profileValue(std::string_view text, std::string_view section,
                                             std::string_view key);

/// `value` without one pair of equal quotes around it.
std::string_view withoutQuotes(std::string_view value);

/// What gives `key` in `section` a new value, without white space around it: the value of its line, a new
/// line behind the last one of its section that is not blank, or a new section at the end. New lines end with
/// CR LF.
TextChange profileChange(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value);

}  // namespace t_genproc::portable
