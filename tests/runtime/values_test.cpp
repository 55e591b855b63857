#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <random>

#include "host/memory_object.h"
#include "runtime/date_value.h"
#include "runtime/integers.h"
#include "runtime/number_text.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

using test::errorOf;

constexpr int kMostWhole = std::numeric_limits<int>::max();
constexpr double kMost = std::numeric_limits<double>::max();
constexpr double kFirstDay = -657434;  // 1 January 100
constexpr double kLastDay = 2958465;   // 31 December 9999

/// The least number of digits that the C library needs for a text which reads back to `value`.
int fewestDigits(double value) {
    char buffer[32];
    for (int digits = 1;; ++digits) {
        std::snprintf(buffer, sizeof buffer, "%.*e", digits - 1, value);
        if (std::strtod(buffer, nullptr) == value) return digits;
    }
}

int digitsOf(std::string text) {
    text.resize(std::min(text.find('E'), text.size()));
    std::erase_if(text, [](char c) { return c == '.' || c == '-'; });
    return static_cast<int>(text.find_last_not_of('0') + 1 - text.find_first_not_of('0'));
}

TEST(NumberTextTest, ReadBackBitForBit) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 60000; ++i) {
        auto value = std::bit_cast<double>(random());
        if (i % 3 == 1) value = std::ldexp(1, static_cast<int>(random() % 2098) - 1074);
        if (i % 3 == 2) value = std::round(std::fmod(value, 1e6) * 1000) / 1000;  // what people type
        const std::string text = numberText(value), single = numberText(static_cast<float>(value));
        if (!std::isfinite(value)) continue;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(parseNumber(text).value()),
                  std::bit_cast<std::uint64_t>(value));
        EXPECT_TRUE(value == 0 || digitsOf(text) <= fewestDigits(value)) << text;
        const bool plain = value == 0 || (std::abs(value) >= 1e-15 && std::abs(value) < 1e15);
        EXPECT_EQ(text.find('E') == std::string::npos, plain) << text;
        float back = 0;
        std::from_chars(single.data(), single.data() + single.size(), back);
        EXPECT_EQ(back, static_cast<float>(value)) << single;
    }
    std::string texts = numberText(0.1F);
    for (const double value : {0.0, -1500.0, 8.1204e-16, 1e-15, -1e15, 5e-324})
        texts += ' ' + numberText(value);
    EXPECT_EQ(texts, "0.1 0 -1500 8.1204E-16 0.000000000000001 -1E+15 5E-324");
}

TEST(NumberTextTest, TakeNumbersAndNothingElse) {
    const std::string zeros(400, '0');
    const auto expect = [](std::optional<double> expected, const std::vector<std::string>& texts) {
        for (const std::string& text : texts) EXPECT_EQ(parseNumber(text), expected) << text;
    };
    expect(100, {"100", "  +100.0 ", "1E2", "1e+2", "1D2", ".1d3", "100.", "00" + zeros + "100", "1000E-1"});
    expect(-12.5, {"-12.50", "-125d-1", "-0." + zeros + "125E402"});
    expect(0, {"0", "-0", "1e-400", "-1e-400", "1e-99999999999999999999", "0e99999999999999999999", "2e-324",
               "0." + zeros + "1", zeros + "1e-400"});
    expect(INFINITY, {"1e400", "1e99999999999999999999", "9" + zeros, zeros + "1e400", "." + zeros + "1e999",
                      "1.7976931348623159e308"});
    expect(-INFINITY, {"-1e400"});
    expect(9, {"9" + zeros + "e-400"});
    expect(kMost, {"1.7976931348623157e308"});
    expect({}, {"",      " ",   "+",   "-",     ".",
                "e5",    "1e",  "1e+", "1e5.5", "1E2D3",
                "--1",   "+-1", "1-",  "1 2",   "1,5",
                "1.2.3", "\t1", "inf", "nan",   "-inf",
                "0x10",  "12a", "٣",   "1\xFF", std::string("1\0", 2)});
}

TEST(DateValueTest, NameTheSecond) {
    std::string texts, values;
    for (const double value :
         {0.0, -0.5, -1.25, -1.9999999999, 1.9999999999, 1 + 0.9996 / 86400, 1 + 0.9994 / 86400,
          46340 + 79509.0 / 86400, kFirstDay - 0.75, kLastDay + 0.99998})
        texts += dayMonthYearTime(value) + ',';
    EXPECT_EQ(texts,
              "30-12-1899  00:00:00,30-12-1899  12:00:00,29-12-1899  06:00:00,30-12-1899  00:00:00,"
              "01-01-1900  00:00:00,31-12-1899  00:00:01,31-12-1899  00:00:00,14-11-2026  22:05:09,"
              "01-01-0100  18:00:00,31-12-9999  23:59:58,");
    for (const CivilTime& time :
         {CivilTime{2026, 2, 31}, CivilTime{1899, 12, 0, 6}, CivilTime{1899, 12, 30, -18},
          CivilTime{1899, 12, 30, 23, 59, 60}, CivilTime{1900, 1, 366, 12}})
        values += numberText(dateValue(time)) + ' ';
    EXPECT_EQ(values, "46084 -30.25 -1.25 1 367.5 ");

    for (const double value : {kFirstDay - 1, kLastDay + 1, kLastDay + 0.99999999999, kMost, -kMost,
                               double{INFINITY}, double{NAN}})
        EXPECT_EQ(errorOf([&] { civilTime(value); }), 5) << value;
    for (const CivilTime& time : {CivilTime{2026, 0}, CivilTime{2026, 13}, CivilTime{99},
                                  CivilTime{10000, 1, 1}, CivilTime{9999, 12, 32}, CivilTime{100, 1, 1, -1},
                                  CivilTime{2026, 1, kMostWhole, kMostWhole, kMostWhole, kMostWhole}})
        EXPECT_EQ(errorOf([&] { dateValue(time); }), 5) << time.year;
}

TEST(DateValueTest, FollowTheCalendarDayByDay) {
    int wrong = 0;
    double day = kFirstDay;
    for (int months = 1200; months < 120000; ++months) {
        const int year = months / 12, month = months % 12 + 1;
        const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        const int days = month == 2 ? 28 + leap : 30 + (month + month / 8) % 2;
        for (int inMonth = 1; inMonth <= days; ++inMonth, ++day) {
            const int second = static_cast<int>(std::fmod(std::abs(day) * 7919, 86400));
            const double value = day < 0 ? day - second / 86400.0 : day + second / 86400.0;
            const CivilTime time = civilTime(value);
            const bool sameDay = time.year == year && time.month == month && time.day == inMonth;
            const bool sameSecond = time.hour * 3600 + time.minute * 60 + time.second == second;
            if (!sameDay || !sameSecond || dateValue(time) != value) ++wrong;
        }
    }
    EXPECT_EQ(wrong, 0);
}

/// What each conversion gives, or the number of its error: text, Boolean, 16 bits, 32 bits, double.
std::string conversions(const Variant& value) {
    std::string all;
    for (const std::function<std::string()>& convert : std::initializer_list<std::function<std::string()>>{
             [&] { return toText(value); }, [&] { return std::string(toBoolean(value) ? "T" : "F"); },
             [&] { return std::to_string(toInt16(value)); }, [&] { return std::to_string(toInt32(value)); },
             [&] { return numberText(toDouble(value)); }}) {
        std::string text;
        const int error = errorOf([&] { text = convert(); });
        all += (error == 0 ? text : "!" + std::to_string(error)) + '|';
    }
    return all + '\n';
}

TEST(VariantTest, ConvertOrRaise) {
    std::string all;
    for (const Variant& value : std::initializer_list<Variant>{Empty{},
                                                               Null{},
                                                               ObjectPointer{},
                                                               true,
                                                               std::uint8_t{255},
                                                               std::int16_t{-32768},
                                                               32768,
                                                               2.5F,
                                                               0.1F,
                                                               -3.5,
                                                               32767.4,
                                                               32767.5,
                                                               -32768.5,
                                                               2147483647.5,
                                                               -2147483648.0,
                                                               double{NAN},
                                                               Date{46340},
                                                               Date{-1.25},
                                                               Date{1e9},
                                                               " -1.5D1 ",
                                                               "0",
                                                               "TRUE",
                                                               "false",
                                                               "",
                                                               "1E400"})
        all += conversions(value);
    EXPECT_EQ(
        all,
        "|F|0|0|0|\n!94|!94|!94|!94|!94|\n!13|!13|!13|!13|!13|\nTrue|T|-1|-1|-1|\n255|T|255|255|255|\n"
        "-32768|T|-32768|-32768|-32768|\n32768|T|!6|32768|32768|\n2.5|T|2|2|2.5|\n"
        "0.1|T|0|0|0.10000000149011612|\n-3.5|T|-4|-4|-3.5|\n32767.4|T|32767|32767|32767.4|\n"
        "32767.5|T|!6|32768|32767.5|\n-32768.5|T|-32768|-32768|-32768.5|\n2147483647.5|T|!6|!6|2147483647.5|"
        "\n"
        "-2147483648|T|!6|-2147483648|-2147483648|\nnan|T|!6|!6|nan|\n2026-11-14|T|!6|46340|46340|\n"
        "1899-12-29 06:00:00|T|-1|-1|-1.25|\n!5|T|!6|1000000000|1000000000|\n -1.5D1 |T|-15|-15|-15|\n"
        "0|F|0|0|0|\nTRUE|T|!13|!13|!13|\nfalse|F|!13|!13|!13|\n|!13|!13|!13|!13|\n1E400|!6|!6|!6|!6|\n");
    const auto sum = [](auto combine) {
        return errorOf([&] { combine(std::int16_t{-32768}, std::int16_t{-1}); });
    };
    EXPECT_EQ(sum(checkedAdd<std::int16_t>), 6);
    EXPECT_EQ(sum(checkedMultiply<std::int16_t>), 6);
    EXPECT_EQ(errorOf([] { checkedSubtract(kMostWhole, -1); }), 6);
    EXPECT_EQ(errorOf([] { checkedNarrow<std::int32_t>(std::size_t{1} << 31); }), 6);
}

TEST(VariantTest, ReachMembersByNameOrRaise) {
    const auto array = std::make_shared<t_gencvf::MemoryControlArray>(5);
    const auto object = std::make_shared<t_gencvf::MemoryObject>();
    array->element(2).add("Höhe", 5.5);
    object->add("Menu", array).add("Title", "t").add("Nothing", ObjectPointer{});
    object->addMethod("Add", [](t_gencvf::Arguments a) { return toDouble(a[0]) + toDouble(a[1]); });
    const t_gencvf::LateBound form{object};
    form["tITLE"] = "u";
    form["Menu"](2)["HÖHE"] = 7.5;
    EXPECT_EQ(form["Title"].text() + form["menu"]("2")["höhe"].text(), "u7.5");
    EXPECT_EQ(form["add"].call(form["Menu"]["COUNT"].get(), "3"), Variant(8.0));

    const std::pair<int, std::function<void()>> rows[] = {
        {438, [&] { form["None"].get(); }},      {438, [&] { form["None"] = 1; }},
        {438, [&] { form["Title"].call(); }},    {438, [&] { form["Menu"](1)["None"].get(); }},
        {438, [&] { form["Menu"](1) = 1; }},     {340, [&] { form["Menu"](5).get(); }},
        {340, [&] { form["Menu"](-1).get(); }},  {450, [&] { form["Menu"](1, 2).get(); }},
        {450, [&] { form["Title"](1) = 1; }},    {424, [&] { form["Title"]["x"].get(); }},
        {91, [&] { form["Nothing"](1).get(); }}, {91, [] { t_gencvf::LateBound{nullptr}["x"].get(); }}};
    for (const auto& [expected, body] : rows) EXPECT_EQ(errorOf(body), expected) << &body - &rows[0].second;
}

}  // namespace
}  // namespace t_genproc
