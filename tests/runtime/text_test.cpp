#include "runtime/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cwctype>
#include <random>

#include "runtime/case_mapping.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

TEST(TextTest, CountCharactersAndStrayBytes) {
    for (std::string characters :
         {"", "H|ö|h|e", "测|量", "a|😀|b", "a|\xFF|z", "a|\xC3", "\xE2|\x82|z", "\xF4\x8F\xBF\xBF|z",
          "\xC1|\x81", "\xE0|\x9F|\xBF", "\xF0|\x8F|\xBF|\xBF",     // longer than need be
          "\xED|\xA0|\x80", "\xF4|\x90|\x80|\x80", "\xF8|\x88"}) {  // no code point
        std::string text = characters;
        std::erase(text, '|');
        for (std::ptrdiff_t i = 1; !characters.empty(); ++i) {
            const std::size_t end = std::min(characters.find('|'), characters.size());
            EXPECT_EQ(text::mid(text, i, 1), characters.substr(0, end)) << i << " of " << text;
            characters.erase(0, end + 1);
            if (characters.empty()) EXPECT_EQ(text::length(text), i) << text;
        }
    }
    EXPECT_EQ(text::upper("zß\xC3ÿé😀\xFFь"), "Zß\xC3ŸÉ😀\xFFЬ");
}

TEST(TextTest, CutAndCompareAnyBytes) {
    std::mt19937 random(1);
    const std::string pieces[] = {"a", "A", "é", "É", "\xC3", "\xA9", "\x89", "", "z"};
    for (int i = 0; i < 20000; ++i) {
        std::string a, b;
        for (int j = 0; j < 8; ++j) (j % 2 == 0 ? a : b) += pieces[random() % std::size(pieces)];
        EXPECT_EQ(text::equalIgnoringCase(a, b), text::upper(a) == text::upper(b)) << a << ' ' << b;
        for (std::ptrdiff_t n = 0, length = text::length(a); n <= length + 1; ++n) {
            EXPECT_EQ(text::left(a, n) + text::mid(a, n + 1), a);
            EXPECT_EQ(text::right(a, n), n > length ? a : text::mid(a, length - n + 1)) << a;
        }
    }
    EXPECT_EQ(text::trim("  a \t "), "a \t");
    EXPECT_EQ(test::errorOf([] { text::mid("a", 0); }), 5);
    for (const auto cut : {text::left, text::right}) EXPECT_EQ(test::errorOf([&] { cut("a", -1); }), 5);
}

TEST(TextTest, KnowCapitalsAsTheSystemDoes) {
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr)
        GTEST_SKIP() << "The C library does not know Unicode.";
    // Pairs: the first and the last character of the alphabets that are known completely.
    const char32_t complete[] = {0,     0xB4,  0xB6,   0x130,  0x132,  0x17E,  0x1CD,  0x1DC, 0x1DE,
                                 0x1EF, 0x1F4, 0x233,  0x386,  0x3CE,  0x3D8,  0x3EF,  0x400, 0x523,
                                 0x531, 0x587, 0x1E00, 0x1E95, 0x1E9F, 0x1EFF, 0xFF21, 0xFF5A};
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        const auto capital = static_cast<char32_t>(std::towupper(static_cast<std::wint_t>(c)));
        const auto behind = std::upper_bound(std::begin(complete), std::end(complete), c) - complete;
        const bool mayMiss = behind % 2 == 0 && complete[behind - 1] != c;
        if (upperCase(c) != capital && !(mayMiss && upperCase(c) == c)) ADD_FAILURE() << std::uint32_t{c};
    }
    std::setlocale(LC_CTYPE, "C");
}

}  // namespace
}  // namespace t_genproc
