/// Text by characters.
///
/// Text is UTF-8. Positions and lengths count characters; positions start at 1. A byte that belongs to no
/// valid character counts as one character and is carried along unchanged. "Blank" is the space character,
/// nothing else.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace t_genproc::text {

inline constexpr std::ptrdiff_t kToTheEnd = std::numeric_limits<std::ptrdiff_t>::max();

/// The number of characters.
std::ptrdiff_t length(std::string_view text);

/// The first or last `count` characters, or the whole text where it is shorter. Error 5: a negative `count`.
std::string left(std::string_view text, std::ptrdiff_t count);
std::string right(std::string_view text, std::ptrdiff_t count);

/// Up to `count` characters from position `start` on; empty behind the end. Error 5: `start` below 1 or a
/// negative `count`.
std::string mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count = kToTheEnd);
/// The same, as a view of `text`.
std::string_view slice(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count = kToTheEnd);

/// Without the blanks at both ends, at the left end, at the right end.
std::string_view trim(std::string_view text);
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);

inline bool isBlank(std::string_view text) { return trim(text).empty(); }
inline bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// Letter by letter, whatever the locale; see case_mapping.h.
std::string upper(std::string_view text);
std::string lower(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// For takeCharacter: a character that is not ASCII.
char32_t takeLongCharacter(std::string_view& text);

/// Takes the first character off `text` and gives its code point. A byte that belongs to no valid character
/// gives a number above every code point, a different one for each byte. `text` must not be empty.
inline char32_t takeCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    if (first >= 0x80U) return takeLongCharacter(text);
    text.remove_prefix(1);
    return first;
}
void appendCharacter(std::string& text, char32_t character);

}  // namespace t_genproc::text
