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
    SmallLetters{0x0180, 0x0180, 1, +195},
    SmallLetters{0x0183, 0x0185, 2, -1},
    SmallLetters{0x0188, 0x0188, 1, -1},
    SmallLetters{0x018C, 0x018C, 1, -1},
    SmallLetters{0x0192, 0x0192, 1, -1},
    SmallLetters{0x0195, 0x0195, 1, +97},
    SmallLetters{0x0199, 0x0199, 1, -1},
    SmallLetters{0x019A, 0x019A, 1, +163},
    SmallLetters{0x019E, 0x019E, 1, +130},
    SmallLetters{0x01A1, 0x01A5, 2, -1},
    SmallLetters{0x01A8, 0x01A8, 1, -1},
    SmallLetters{0x01AD, 0x01AD, 1, -1},
    SmallLetters{0x01B0, 0x01B0, 1, -1},
    SmallLetters{0x01B4, 0x01B6, 2, -1},
    SmallLetters{0x01B9, 0x01B9, 1, -1},
    SmallLetters{0x01BD, 0x01BD, 1, -1},
    SmallLetters{0x01BF, 0x01BF, 1, +56},
    SmallLetters{0x01C5, 0x01C5, 1, -1},
    SmallLetters{0x01C6, 0x01C6, 1, -2},
    SmallLetters{0x01C8, 0x01C8, 1, -1},
    SmallLetters{0x01C9, 0x01C9, 1, -2},
    SmallLetters{0x01CB, 0x01CB, 1, -1},
    SmallLetters{0x01CC, 0x01CC, 1, -2},
    SmallLetters{0x01CE, 0x01DC, 2, -1},
    SmallLetters{0x01DD, 0x01DD, 1, -79},
    SmallLetters{0x01DF, 0x01EF, 2, -1},
    SmallLetters{0x01F2, 0x01F2, 1, -1},
    SmallLetters{0x01F3, 0x01F3, 1, -2},
    SmallLetters{0x01F5, 0x01F5, 1, -1},
    SmallLetters{0x01F9, 0x021F, 2, -1},
    SmallLetters{0x0223, 0x0233, 2, -1},
    SmallLetters{0x023C, 0x023C, 1, -1},
    SmallLetters{0x0242, 0x0242, 1, -1},
    SmallLetters{0x0247, 0x024F, 2, -1},
    SmallLetters{0x0253, 0x0253, 1, -210},
    SmallLetters{0x0254, 0x0254, 1, -206},
    SmallLetters{0x0256, 0x0257, 1, -205},
    SmallLetters{0x0259, 0x0259, 1, -202},
    SmallLetters{0x025B, 0x025B, 1, -203},
    SmallLetters{0x0260, 0x0260, 1, -205},
    SmallLetters{0x0263, 0x0263, 1, -207},
    SmallLetters{0x0268, 0x0268, 1, -209},
    SmallLetters{0x0269, 0x0269, 1, -211},
    SmallLetters{0x026F, 0x026F, 1, -211},
    SmallLetters{0x0272, 0x0272, 1, -213},
    SmallLetters{0x0275, 0x0275, 1, -214},
    SmallLetters{0x0280, 0x0280, 1, -218},
    SmallLetters{0x0283, 0x0283, 1, -218},
    SmallLetters{0x0288, 0x0288, 1, -218},
    SmallLetters{0x0289, 0x0289, 1, -69},
    SmallLetters{0x028A, 0x028B, 1, -217},
    SmallLetters{0x028C, 0x028C, 1, -71},
    SmallLetters{0x0292, 0x0292, 1, -219},
    // Greek
    SmallLetters{0x0371, 0x0373, 2, -1},
    SmallLetters{0x0377, 0x0377, 1, -1},
    SmallLetters{0x037B, 0x037D, 1, +130},
    SmallLetters{0x03AC, 0x03AC, 1, -38},
    SmallLetters{0x03AD, 0x03AF, 1, -37},
    SmallLetters{0x03B1, 0x03C1, 1, -32},
    SmallLetters{0x03C2, 0x03C2, 1, -31},
    SmallLetters{0x03C3, 0x03CB, 1, -32},
    SmallLetters{0x03CC, 0x03CC, 1, -64},
    SmallLetters{0x03CD, 0x03CE, 1, -63},
    SmallLetters{0x03D7, 0x03D7, 1, -8},
    SmallLetters{0x03D9, 0x03EF, 2, -1},
    SmallLetters{0x03F2, 0x03F2, 1, +7},
    SmallLetters{0x03F3, 0x03F3, 1, -116},
    SmallLetters{0x03F8, 0x03F8, 1, -1},
    SmallLetters{0x03FB, 0x03FB, 1, -1},
    // Cyrillic
    SmallLetters{0x0430, 0x044F, 1, -32},
    SmallLetters{0x0450, 0x045F, 1, -80},
    SmallLetters{0x0461, 0x0481, 2, -1},
    SmallLetters{0x048B, 0x04BF, 2, -1},
    SmallLetters{0x04C2, 0x04CE, 2, -1},
    SmallLetters{0x04CF, 0x04CF, 1, -15},
    SmallLetters{0x04D1, 0x052F, 2, -1},
    // Armenian
    SmallLetters{0x0561, 0x0586, 1, -48},
    // Georgian
    SmallLetters{0x10D0, 0x10FA, 1, +3008},
    SmallLetters{0x10FD, 0x10FF, 1, +3008},
    // Cherokee
    SmallLetters{0x13F8, 0x13FD, 1, -8},
    // Latin with two marks
    SmallLetters{0x1D79, 0x1D79, 1, +35332},
    SmallLetters{0x1D7D, 0x1D7D, 1, +3814},
    SmallLetters{0x1D8E, 0x1D8E, 1, +35384},
    SmallLetters{0x1E01, 0x1E95, 2, -1},
    SmallLetters{0x1EA1, 0x1EFF, 2, -1},
    // Greek with breathings
    SmallLetters{0x1F00, 0x1F07, 1, +8},
    SmallLetters{0x1F10, 0x1F15, 1, +8},
    SmallLetters{0x1F20, 0x1F27, 1, +8},
    SmallLetters{0x1F30, 0x1F37, 1, +8},
    SmallLetters{0x1F40, 0x1F45, 1, +8},
    SmallLetters{0x1F51, 0x1F57, 2, +8},
    SmallLetters{0x1F60, 0x1F67, 1, +8},
    SmallLetters{0x1F70, 0x1F71, 1, +74},
    SmallLetters{0x1F72, 0x1F75, 1, +86},
    SmallLetters{0x1F76, 0x1F77, 1, +100},
    SmallLetters{0x1F78, 0x1F79, 1, +128},
    SmallLetters{0x1F7A, 0x1F7B, 1, +112},
    SmallLetters{0x1F7C, 0x1F7D, 1, +126},
    SmallLetters{0x1F80, 0x1F87, 1, +8},
    SmallLetters{0x1F90, 0x1F97, 1, +8},
    SmallLetters{0x1FA0, 0x1FA7, 1, +8},
    SmallLetters{0x1FB0, 0x1FB1, 1, +8},
    SmallLetters{0x1FB3, 0x1FB3, 1, +9},
    SmallLetters{0x1FC3, 0x1FC3, 1, +9},
    SmallLetters{0x1FD0, 0x1FD1, 1, +8},
    SmallLetters{0x1FE0, 0x1FE1, 1, +8},
    SmallLetters{0x1FE5, 0x1FE5, 1, +7},
    SmallLetters{0x1FF3, 0x1FF3, 1, +9},
    // Numerals and signs
    SmallLetters{0x214E, 0x214E, 1, -28},
    SmallLetters{0x2170, 0x217F, 1, -16},
    SmallLetters{0x2184, 0x2184, 1, -1},
    SmallLetters{0x24D0, 0x24E9, 1, -26},
    // Latin of phonetic alphabets
    SmallLetters{0x2C61, 0x2C61, 1, -1},
    SmallLetters{0x2C68, 0x2C6C, 2, -1},
    SmallLetters{0x2C73, 0x2C73, 1, -1},
    SmallLetters{0x2C76, 0x2C76, 1, -1},
    // Old Cyrillic
    SmallLetters{0xA641, 0xA66D, 2, -1},
    SmallLetters{0xA681, 0xA69B, 2, -1},
    // Latin of old and phonetic alphabets
    SmallLetters{0xA723, 0xA72F, 2, -1},
    SmallLetters{0xA733, 0xA76F, 2, -1},
    SmallLetters{0xA77A, 0xA77C, 2, -1},
    SmallLetters{0xA77F, 0xA787, 2, -1},
    SmallLetters{0xA78C, 0xA78C, 1, -1},
    SmallLetters{0xA791, 0xA793, 2, -1},
    SmallLetters{0xA794, 0xA794, 1, +48},
    SmallLetters{0xA797, 0xA7A9, 2, -1},
    SmallLetters{0xA7B5, 0xA7C3, 2, -1},
    SmallLetters{0xA7C8, 0xA7CA, 2, -1},
    SmallLetters{0xA7D1, 0xA7D1, 1, -1},
    SmallLetters{0xA7D7, 0xA7D9, 2, -1},
    SmallLetters{0xA7F6, 0xA7F6, 1, -1},
    SmallLetters{0xAB53, 0xAB53, 1, -928},
    // Cherokee
    SmallLetters{0xAB70, 0xABBF, 1, -38864},
    // Full-width Latin
    SmallLetters{0xFF41, 0xFF5A, 1, -32},
    // Adlam
    SmallLetters{0x1E922, 0x1E943, 1, -34},
};
static_assert(std::ranges::is_sorted(kSmallLetters, {}, &SmallLetters::last));

/// The number of bytes that a letter of this table takes in UTF-8.
constexpr int bytesOf(char32_t letter) { return letter < 0x800 ? 2 : letter < 0x10000 ? 3 : 4; }
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
