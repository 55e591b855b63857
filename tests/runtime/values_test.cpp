#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cwctype>
#include <random>

#include "host/memory_object.h"
#include "runtime/case_mapping.h"
#include "runtime/date_value.h"
#include "runtime/integers.h"
#include "runtime/number_text.h"
#include "runtime/text.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

using test::errorOf;

/// The text that `convert` gives, or the number of its error: "!13".
std::string given(const std::function<std::string()>& convert) {
    std::string text;
    const int error = errorOf([&] { text = convert(); });
    return error == 0 ? text : "!" + std::to_string(error);
}

TEST(TextTest, CountCharactersAndStrayBytes) {
    // clang-format off
    for (std::string rest : {"H|ö|h|e", "测|量", "a|😀|b", "a|\xFF|z", "a|\xC3", "\xE2|\x82|z", "\xF4\x8F\xBF\xBF|z",
                             "\xC1|\x81", "\xE0|\x9F|\xBF", "\xF0|\x8F|\xBF|\xBF",     // longer than need be
                             "\xED|\xA0|\x80", "\xF4|\x90|\x80|\x80", "\xF8|\x88"}) {  // no code point
        // clang-format on
        std::string text = rest;
        std::erase(text, '|');
        for (int i = 1; !rest.empty(); rest.erase(0, std::min(rest.find('|'), rest.size() - 1) + 1), ++i) {
            EXPECT_EQ(text::mid(text, i, 1), rest.substr(0, rest.find('|')));
            EXPECT_EQ(text::left(text, i - 1) + text::right(text, text::length(text) - i + 1), text);
        }
        EXPECT_TRUE(text::equalIgnoringCase(text, text::upper(text)));
    }
    EXPECT_EQ(text::upper("zß\xC3ÿé😀\xFFь"), "Zß\xC3ŸÉ😀\xFFЬ");
    EXPECT_FALSE(text::equalIgnoringCase("é", "è") || text::equalIgnoringCase("\xC3\xA9", "\xC3z"));
    EXPECT_EQ(text::right("ab", 3) + text::mid("ab", 3) + std::string(text::trim("  a \t ")), "aba \t");
    EXPECT_EQ(given([] { return text::mid("a", 0); }) + given([] { return text::left("a", -1); }) +
                  given([] { return text::right("a", -1); }),
              "!5!5!5");
}

TEST(TextTest, KnowCapitalsAsTheSystemDoes) {
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) GTEST_SKIP() << "The C library knows no Unicode.";
    // The first and the last character of each range that is known completely.
    const char32_t complete[] = {0,      0xB4,   0xB6,   0x130,  0x132,   0x17E,   0x180,
                                 0x23E,  0x241,  0x24F,  0x346,  0x3CF,   0x3D7,   0x3EF,
                                 0x3F6,  0x1C7F, 0x1C89, 0x1E9A, 0x1E9C,  0x1FBD,  0x1FBF,
                                 0x2C2F, 0x2C67, 0x2C7F, 0xA640, 0x10427, 0x1E900, 0x10FFFF};
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        const auto capital = static_cast<char32_t>(std::towupper(static_cast<std::wint_t>(c)));
        const auto behind = std::upper_bound(std::begin(complete), std::end(complete), c) - complete;
        const bool mayMiss = behind % 2 == 0 && complete[behind - 1] != c;
        if (upperCase(c) != capital && !(mayMiss && upperCase(c) == c)) ADD_FAILURE() << std::uint32_t{c};
    }
    std::setlocale(LC_CTYPE, "C");
}

TEST(NumberTextTest, ReadBackBitForBit) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 100000; ++i) {
        auto value = std::bit_cast<double>(random());
        const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (i % 2 == 0) value = std::round(std::fmod(value, 1e6) * 1000) / 1000;  // what people type
        const std::string text = numberText(value), singleText = numberText(single);
        EXPECT_TRUE(!std::isfinite(single) || static_cast<float>(*parseNumber(singleText)) == single)
            << singleText;
        if (!std::isfinite(value)) continue;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(parseNumber(text).value()),
                  std::bit_cast<std::uint64_t>(value));
        EXPECT_TRUE(i % 2 != 0 || text.size() <= 11) << text;
    }
    std::string texts = numberText(0.1F);
    for (const double value : {0.0, -1500.0, 8.1204e-16, 1e-15, 999999999999999.9, -1e15})
        texts += ' ' + numberText(value);
    EXPECT_EQ(texts, "0.1 0 -1500 8.1204E-16 0.000000000000001 999999999999999.9 -1E+15");
}

TEST(NumberTextTest, TakeNumbersAndNothingElse) {
    const std::string zeros(400, '0');
    const auto expect = [](std::optional<double> expected, const std::vector<std::string>& texts) {
        for (const std::string& text : texts) EXPECT_EQ(parseNumber(text), expected) << text;
    };
    expect(100, {"100", "  +100.0 ", "1E2", "1e+2", "1D2", ".1d3", "100.", "00" + zeros + "100", "1000E-1"});
    expect(-12.5, {"-12.50", "-125d-1", "-0." + zeros + "125E402", "-125" + zeros + "e-401"});
    expect(0, {"0", "-0", "-1e-400", "1e-99999999999999999999", "0." + zeros + "1", zeros + "1e-400"});
    expect(INFINITY,
           {"1e400", "1e99999999999999999999", "9" + zeros, zeros + "1e400", "." + zeros + "1e999"});
    expect({}, {"",   " ",   "+",   "-",     ".",   "e5",  "1e",  "1e+",  "1e5.5", "1E2D3", "--1", "+-1",
                "1-", "1 2", "1,5", "1.2.3", "\t1", "inf", "nan", "-inf", "0x10",  "12a",   "٣",   "1\xFF"});
}

TEST(DateValueTest, NameTheSecond) {
    constexpr double kFirst = -657434, kLast = 2958465;
    std::string texts, values;
    for (const double value :
         {-0.5, -1.25, -1.9999999999, 1.9999999999, 1 + 0.9996 / 86400, 1 + 0.9994 / 86400, kFirst - 0.75})
        texts += dayMonthYearTime(value) + ',';
    EXPECT_EQ(texts,
              "30-12-1899  12:00:00,29-12-1899  06:00:00,30-12-1899  00:00:00,01-01-1900  00:00:00,"
              "31-12-1899  00:00:01,31-12-1899  00:00:00,01-01-0100  18:00:00,");
    for (const double value : {kFirst - 1, kLast + 1, kLast + 0.99999999999, 1e300, double{NAN}})
        EXPECT_EQ(errorOf([&] { civilTime(value); }), 5) << value;
    for (const CivilTime& time :
         {CivilTime{2026, 2, 31, 12}, CivilTime{1899, 12, 0, 6}, CivilTime{1899, 12, 30, -18},
          CivilTime{9999, 12, 32}, CivilTime{99}, CivilTime{2026, 0}, CivilTime{2026, 13},
          CivilTime{2026, 1, INT32_MAX, INT32_MAX}})
        values += given([&] { return numberText(dateValue(time)); }) + ' ';
    EXPECT_EQ(values, "46084.5 -30.25 -1.25 !5 !5 !5 !5 !5 ");
    CivilTime last{99};
    for (double day = kFirst; day <= kLast; ++day) {
        const CivilTime time = civilTime(day);
        const bool follows = time.day == last.day + 1 || (time.day == 1 && last.day >= 28);
        if (!follows || dateValue(time) != day) ADD_FAILURE() << day;
        last = time;
    }
}

TEST(VariantTest, ConvertOrRaise) {
    // clang-format off
    const std::pair<Variant, std::string> rows[] = {  // as text, Boolean, 16 bits, double
        {Empty{}, "|F|0|0"}, {Null{}, "!94|!94|!94|!94"}, {ObjectPointer{}, "!13|!13|!13|!13"}, {true, "True|T|-1|-1"},
        {std::uint8_t{255}, "255|T|255|255"}, {std::int16_t{-32768}, "-32768|T|-32768|-32768"}, {32768, "32768|T|!6|32768"},
        {0.1F, "0.1|T|0|0.10000000149011612"}, {2.5F, "2.5|T|2|2.5"}, {-3.5, "-3.5|T|-4|-3.5"}, {32767.5, "32767.5|T|!6|32767.5"},
        {-32768.5, "-32768.5|T|-32768|-32768.5"}, {double{NAN}, "nan|T|!6|nan"}, {Date{46340}, "2026-11-14|T|!6|46340"},
        {Date{-1.25}, "1899-12-29 06:00:00|T|-1|-1.25"}, {Date{1e9}, "!5|T|!6|1000000000"}, {" -1.5D1 ", " -1.5D1 |T|-15|-15"},
        {"0", "0|F|0|0"}, {"TRUE", "TRUE|T|!13|!13"}, {"false", "false|F|!13|!13"}, {"", "|!13|!13|!13"}, {"1E400", "1E400|!6|!6|!6"}};
    // clang-format on
    for (const auto& row : rows) {
        const Variant& value = row.first;
        const std::string text = given([&] { return toText(value); }),
                          flag = given([&] { return toBoolean(value) ? "T" : "F"; });
        EXPECT_EQ(text + '|' + flag + '|' + given([&] { return std::to_string(toInt16(value)); }) + '|' +
                      given([&] { return numberText(toDouble(value)); }),
                  row.second);
    }
    EXPECT_EQ(errorOf([] { toObject(ObjectPointer{}); }), 91);
    EXPECT_EQ(errorOf([] { checkedAdd(INT32_MIN, -1); }), 6);
    EXPECT_EQ(errorOf([] { checkedSubtract(INT32_MIN, 1); }), 6);
    EXPECT_EQ(errorOf([] { checkedMultiply(INT32_MIN, -1); }), 6);
    EXPECT_EQ(errorOf([] { checkedNarrow<std::int32_t>(std::uint64_t{1} << 31); }), 6);
}

TEST(VariantTest, ReachMembersByNameOrRaise) {
    const auto array = std::make_shared<t_gencvf::MemoryControlArray>(5);
    const auto object = std::make_shared<t_gencvf::MemoryObject>();
    array->element(2).add("Höhe", 5.5);
    object->add("Menu", array).add("Title", "t").add("Nothing", ObjectPointer{});
    object->addMethod("Add", [](t_gencvf::Arguments a) { return toDouble(a[0]) + toDouble(a[1]); });
    const t_gencvf::LateBound form{object};
    form["Menu"](2)["HÖHE"] = 7.5;
    EXPECT_EQ(form["add"].call(form["Menu"]["COUNT"].get(), form["menu"]("2")["höhe"].get()), Variant(12.5));
    EXPECT_EQ(errorOf([&] { form["None"].get(); }), 438);
    EXPECT_EQ(errorOf([&] { form["None"] = 1; }), 438);
    EXPECT_EQ(errorOf([&] { form["Title"].call(); }), 438);
    EXPECT_EQ(errorOf([&] { form["Menu"](5).get(); }), 340);
    EXPECT_EQ(errorOf([&] { form["Menu"](-1).get(); }), 340);
    EXPECT_EQ(errorOf([&] { form["Title"](1) = 1; }), 450);
    EXPECT_EQ(errorOf([&] { form["Title"]["x"].get(); }), 424);
    EXPECT_EQ(errorOf([&] { form["Nothing"]["x"].get(); }), 91);
}

}  // namespace
}  // namespace t_genproc
