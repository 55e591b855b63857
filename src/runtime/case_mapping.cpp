#include "runtime/case_mapping.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace t_genproc {
namespace {

/// The small letters `first`, `first + step` … `last`; each stands `toCapital` away from its capital.
struct SmallLetters {
    char32_t first;
    char32_t last;
    char32_t step;
    std::int32_t toCapital;
};

constexpr std::array kSmallLetters{
    // Latin
    SmallLetters{0x00E0, 0x00F6, 1, -32},
    SmallLetters{0x00F8, 0x00FE, 1, -32},
    SmallLetters{0x00FF, 0x00FF, 1, +121},
    SmallLetters{0x0101, 0x012F, 2, -1},
    SmallLetters{0x0133, 0x0137, 2, -1},
    SmallLetters{0x013A, 0x0148, 2, -1},
    SmallLetters{0x014B, 0x0177, 2, -1},
    SmallLetters{0x017A, 0x017E, 2, -1},
    SmallLetters{0x01CE, 0x01DC, 2, -1},
    SmallLetters{0x01DF, 0x01EF, 2, -1},
    SmallLetters{0x01F5, 0x01F5, 1, -1},
    SmallLetters{0x01F9, 0x021F, 2, -1},
    SmallLetters{0x0223, 0x0233, 2, -1},
    // Greek
    SmallLetters{0x03AC, 0x03AC, 1, -38},
    SmallLetters{0x03AD, 0x03AF, 1, -37},
    SmallLetters{0x03B1, 0x03C1, 1, -32},
    SmallLetters{0x03C2, 0x03C2, 1, -31},
    SmallLetters{0x03C3, 0x03CB, 1, -32},
    SmallLetters{0x03CC, 0x03CC, 1, -64},
    SmallLetters{0x03CD, 0x03CE, 1, -63},
    SmallLetters{0x03D9, 0x03EF, 2, -1},
    // Cyrillic
    SmallLetters{0x0430, 0x044F, 1, -32},
    SmallLetters{0x0450, 0x045F, 1, -80},
    SmallLetters{0x0461, 0x0481, 2, -1},
    SmallLetters{0x048B, 0x04BF, 2, -1},
    SmallLetters{0x04C2, 0x04CE, 2, -1},
    SmallLetters{0x04CF, 0x04CF, 1, -15},
    SmallLetters{0x04D1, 0x0523, 2, -1},
    // Armenian
    SmallLetters{0x0561, 0x0586, 1, -48},
    // Latin with two marks
    SmallLetters{0x1E01, 0x1E95, 2, -1},
    SmallLetters{0x1EA1, 0x1EFF, 2, -1},
    // Full-width Latin
    SmallLetters{0xFF41, 0xFF5A, 1, -32},
};
static_assert(std::ranges::is_sorted(kSmallLetters, {}, &SmallLetters::last));

/// The number of bytes that a letter of this table takes in UTF-8.
constexpr int bytesOf(char32_t letter) { return letter < 0x800 ? 2 : 3; }
static_assert(std::ranges::all_of(kSmallLetters, [](const SmallLetters& letters) {
    const auto capitalOf = [&](char32_t small) { return small + static_cast<char32_t>(letters.toCapital); };
    return bytesOf(letters.first) == bytesOf(capitalOf(letters.first)) &&
           bytesOf(letters.last) == bytesOf(capitalOf(letters.last));
}));

}  // namespace

char32_t upperCase(char32_t character) {
    if (character < 0x80) return character >= U'a' && character <= U'z' ? character - 32 : character;
    const auto letters = std::ranges::lower_bound(kSmallLetters, character, {}, &SmallLetters::last);
    if (letters == kSmallLetters.end() || character < letters->first) return character;
    if ((character - letters->first) % letters->step != 0) return character;
    return character + static_cast<char32_t>(letters->toCapital);
}

char32_t lowerCase(char32_t character) {
    if (character < 0x80) return character >= U'A' && character <= U'Z' ? character + 32 : character;
    char32_t found = character;
    for (const SmallLetters& letters : kSmallLetters) {
        const char32_t small = character - static_cast<char32_t>(letters.toCapital);
        const bool inRange = small >= letters.first && small <= letters.last;
        if (inRange && (small - letters.first) % letters.step == 0) found = small;  // "σ" stands behind "ς"
    }
    return found;
}

}  // namespace t_genproc
