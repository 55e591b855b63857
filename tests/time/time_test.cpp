#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "platform/clock_record.h"
#include "runtime/date_value.h"
#include "runtime/number_text.h"
#include "support/scripted_services.h"
#include "support/test_world.h"
#include "time/cTimeProcs.h"

namespace t_genproc {
namespace {

using test::failureOf;

/// Of the European and the Australian rule; hours of the table are local.
constexpr TimeZoneInformation kBerlin{-60, {0, 10, 0, 5, 3}, 0, {0, 3, 0, 5, 2}, -60};
constexpr TimeZoneInformation kSydney{-600, {0, 4, 0, 1, 3}, 0, {0, 10, 0, 1, 2}, -60};
constexpr TimeZoneInformation kLordHowe{-630, {0, 4, 0, 1, 2}, 0, {0, 10, 0, 1, 2}, -30};
constexpr TimeZoneInformation kKathmandu{-345, {}, 0, {}, -60};

struct TimeTest : testing::Test, test::TestWorld {
    /// The real conversions and parser, with the clock and the zone of the test.
    test::ScriptedClock* clock;
    cTimeProcs times{library};

    TimeTest() {
        auto scripted = std::make_unique<test::ScriptedClock>(std::move(system.platform.clock));
        clock = scripted.get();
        system.platform.clock = std::move(scripted);
    }
    void use(const TimeZoneInformation& zone, std::uint32_t id = TimeZoneId::Unknown) {
        clock->zone = {id, zone};
    }

    /// "04-03-2021  12:34:56", or "!" and the number of an error.
    static std::string shown(const std::function<double()>& body) {
        std::string text;
        const int error = test::errorOf([&] { text = dayMonthYearTime(body()); });
        return error == 0 ? text : "!" + std::to_string(error);
    }
};

TEST_F(TimeTest, KnowTheDistanceInForceNow) {
    struct Row {
        std::uint32_t id;
        TimeZoneInformation zone;
        std::string expected;
    };
    constexpr std::int32_t kOverflows = INT32_MAX / 60 + 1;
    const Row rows[] = {
        {TimeZoneId::Daylight, kSydney, "39600"},
        {TimeZoneId::Standard, kSydney, "36000"},
        {TimeZoneId::Unknown, kSydney, "36000"},
        {TimeZoneId::Daylight, kKathmandu, "20700"},
        {TimeZoneId::Daylight, kBerlin, "7200"},
        {7, kBerlin, "3600"},
        {TimeZoneId::Standard, {300, {}, 15}, "-18000"},
        {TimeZoneId::Standard, {kOverflows}, "!6"},
        {TimeZoneId::Standard, {-kOverflows - 1}, "!6"},
        {TimeZoneId::Daylight, {0, {}, 0, {0, 1}, kOverflows}, "!6"},
        {TimeZoneId::Daylight, {kOverflows - 2, {}, 0, {0, 1}, 9}, "!6"},
    };
    for (const auto& [id, zone, expected] : rows) {
        use(zone, id);
        std::string difference;
        const int error = test::errorOf([&] { difference = std::to_string(times.GetTimeDifference()); });
        EXPECT_EQ(error == 0 ? difference : "!" + std::to_string(error), expected);
    }
}

TEST_F(TimeTest, ConvertByTheDistanceInForceNow) {
    use(kSydney, TimeZoneId::Daylight);  // 11 hours, in winter as well
    const double winter = dateValue(CivilTime{2026, 7, 1, 6, 30, 1});
    const auto gmt = [&](const Variant& start) { return shown([&] { return times.GetGmtTime(&start); }); };
    EXPECT_EQ(gmt(Date{winter}), "30-06-2026  19:30:01");
    EXPECT_EQ(gmt(numberText(winter)), "30-06-2026  19:30:01");
    EXPECT_EQ(gmt(Empty{}), "29-12-1899  13:00:00");
    EXPECT_EQ(gmt(Null{}) + gmt("soon") + gmt(1e9) + gmt(double{NAN}) + gmt(-657434), "!94!13!5!5!5");
    EXPECT_EQ(shown([&] { return times.GetTimeHere(-1.25); }), "29-12-1899  17:00:00");
    EXPECT_EQ(shown([&] { return times.GetTimeHere(-1.75); }), "30-12-1899  05:00:00");
    EXPECT_EQ(shown([&] { return times.GetTimeHere(2958465.75); }), "!5");
    clock->local = {2026, 11, 0, 22, 9, 5, 7, 999};
    clock->universal = {2026, 11, 6, 21, 22, 5, 7, 250};
    EXPECT_EQ(shown([&] { return times.GetGmtTime(); }), "21-11-2026  22:05:07");
    EXPECT_DOUBLE_EQ(times.UTCTime(), dateValue(CivilTime{2026, 11, 21, 22, 5, 7}) + 0.25 / 86400);
    EXPECT_DOUBLE_EQ(times.LocalTime(), dateValue(CivilTime{2026, 11, 22, 9, 5, 7}) + 0.999 / 86400);
    EXPECT_DOUBLE_EQ(times.GetTimeHere(times.UTCTime()),
                     dateValue(CivilTime{2026, 11, 22, 9, 5, 7}) + 0.25 / 86400);
}

TEST_F(TimeTest, ConvertByTheRuleOfTheDate) {
    struct Row {
        const TimeZoneInformation& zone;
        CivilTime local;
        std::string universal;  // each that is local there, with "," behind it
    };
    const Row rows[] = {
        {kBerlin, {2026, 3, 29, 1, 59, 59}, "29-03-2026  00:59:59,"},
        {kBerlin, {2026, 3, 29, 2}, ""},
        {kBerlin, {2026, 3, 29, 2, 59, 59}, ""},
        {kBerlin, {2026, 3, 29, 3}, "29-03-2026  01:00:00,"},
        {kBerlin, {2026, 10, 25, 1, 59, 59}, "24-10-2026  23:59:59,"},
        {kBerlin, {2026, 10, 25, 2}, "25-10-2026  00:00:00,25-10-2026  01:00:00,"},
        {kBerlin, {2026, 10, 25, 2, 59, 59}, "25-10-2026  00:59:59,25-10-2026  01:59:59,"},
        {kBerlin, {2026, 10, 25, 3}, "25-10-2026  02:00:00,"},
        {kSydney, {2026, 4, 5, 2, 30}, "04-04-2026  15:30:00,04-04-2026  16:30:00,"},
        {kSydney, {2026, 10, 4, 2, 30}, ""},
        {kSydney, {2027, 1, 1}, "31-12-2026  13:00:00,"},
        {kSydney, {1800, 1, 1, 12}, "01-01-1800  01:00:00,"},
        {kSydney, {1600, 1, 1, 12}, "!5"},
        {kLordHowe, {2026, 4, 5, 1, 45}, "04-04-2026  14:45:00,04-04-2026  15:15:00,"},
        {kLordHowe, {2026, 10, 4, 2, 15}, ""},
        {kKathmandu, {1600, 1, 1, 12}, "01-01-1600  06:15:00,"},
        {kKathmandu, {100, 1, 1}, "!5"},
    };
    for (const auto& [zone, local, universal] : rows) {
        use(zone);
        const double date = dateValue(local);
        std::string found;
        const int error = test::errorOf([&] {
            for (const double each : times.LocalToUTC(date)) found += dayMonthYearTime(each) + ',';
        });
        EXPECT_EQ(error == 0 ? found : "!" + std::to_string(error), universal) << dayMonthYearTime(date);
    }
    use(kBerlin, TimeZoneId::Daylight);
    const double winter = dateValue(CivilTime{2026, 1, 15, 12, 30, 59}) + 0.9 / 86400;
    EXPECT_DOUBLE_EQ(times.UTCtoLocal(winter), dateValue(CivilTime{2026, 1, 15, 13, 30, 59}));
    EXPECT_EQ(failureOf([&] { times.UTCtoLocal(INFINITY); }),
              "5 (Class Module) cTimeProcs::Function UTCtoLocal");
}

TEST_F(TimeTest, ReadInternetDates) {
    const std::pair<std::string, std::string> rows[] = {
        {"Thu, 04 Mar 2021 12:34:56 GMT", "04-03-2021  12:34:56"},
        {"  04 Mar 2021 12:34:56 GMT ", "04-03-2021  12:34:56"},
        {"Thu, 04 Feb 2021 12:34:56", "04-02-2021  12:34:56"},
        {"Thu, 04 Mar 2021 12:34:56 EDT", "04-03-2021  16:34:56"},
        {"Thu, 04 Feb 2021 12:34:56 PST", "04-02-2021  20:34:56"},
        {"Thu, 04 Feb 2021 12:34:56 CET", "04-02-2021  11:34:56"},
        {"Thu, 04 Feb 2021 12:34:56 Z", "04-02-2021  12:34:56"},
        {"thu, 04 feb 2021 12:34:56 gmt", "04-02-2021  12:34:56"},  // stays, and is no number
        {"Thu, 04 Feb 2021 12:34:56 +0000 (UTC)", "04-02-2021  12:34:56"},
        {"Thu, 04 Feb 2021 12:34:56 -0800 (PST)", "04-02-2021  12:34:56"},  // the comment is taken for it
        {"Thu, 04 Feb 2021 12:34:56\t+0100", "03-02-2021  13:34:56"},       // "12:34:56" is
        {"Thu, 04 Feb 2021 12:34:56 +1000", "04-02-2021  02:34:56"},
        {"Thu, 04 Feb 2021 12:34:56 -0500", "04-02-2021  17:34:56"},
        {"Thu, 04 Feb 2021 12:34:56 +0930", "02-02-2021  01:34:56"},  // 59 hours
        {"Thu, 04 Feb 2021 12:34:56 ACDT", "04-02-2021  12:34:56"},   // A-0500
        {"Thu, 04 Feb 2021 12:34:56 UTC", "04-02-2021  12:34:56"},
        {"Thu, 04 Feb 2021 12:34:56 AEST", "04-02-2021  12:34:56"},  // A-0500
        {"Thu, 08 apr 2021 12:34:56 +1000", "08-04-2021  02:34:56"},
        {"Thu, 08 Apr 2021 12:34:56 GMT", "08-04-2021  12:34:56"},
        {",", "!5"},
        {"2021-03-04T12:34:56Z", "04-03-2021  12:34:56"},
        {"2021-03-04T12:34:56z", "04-03-2021  12:34:56"},
        {"2021-03-04T12:34:56.789Z", "04-03-2021  12:34:56"},
        {"2021-03-04T12:34:56+10:00", "04-03-2021  12:34:56"},  // the hours are read from "0:"
        {"2021-03-04T12:34:56+1000", "04-03-2021  02:34:56"},
        {"2021-03-04T12:34:56-1000", "04-03-2021  22:34:56"},
        {"2021-03-04T12:34:56+0930", "02-03-2021  01:34:56"},
        {"2016-12-31T23:59:60Z", "01-01-2017  00:00:00"},
        {"2021-03-04T12:34:56", "!5"},
        {"2021-13-04T12:34:56Z", "!5"},
        {"2021-02-29T12:34:56Z", "!5"},
        {"2021-02-28T24:00:00Z", "!5"},
        {"0021-02-28T12:00:00Z", "!5"},
        {"2021-02-28T12:-1:00Z", "!5"},
        {"20x1-02-28T12:00:00Z", "!13"},
        {"2021-02-28T12:00:00+x000x", "!13"},
        {"2021-02-28T1", "!13"},
    };
    const std::pair<std::string, std::string> zeroDates[] = {
        {"", "30-12-1899  00:00:00"},
        {"nonsense", "30-12-1899  00:00:00"},
        {"Thu, 04 Mar 2021 12:34:56", "25-12-1899  04:00:00"},        // " M" spoils it
        {"Thu, 08 Apr 2021 12:34:56 +1000", "29-12-1899  14:00:00"},  // " A" does
    };
    use({});
    const auto isRead = [&](const std::string& text, const std::string& expected) {
        EXPECT_EQ(shown([&] { return times.InternetTimeToVbLocalTime(text); }), expected) << text;
    };
    for (const auto& [text, expected] : rows) isRead(text, expected);
    if (!test::isLeftOut("Wine: takes the present where a text is no date"))
        for (const auto& [text, expected] : zeroDates) isRead(text, expected);
    use(kSydney, TimeZoneId::Daylight);
    isRead(rows[0].first, "04-03-2021  23:34:56");
    failureOf([&] { times.InternetTimeToVbLocalTime("2021-02-28T1"); });
    EXPECT_EQ(reports.substr(reports.rfind('>')),
              "> (Class Module) cTimeProcs::Function InternetTimeToVbLocalTime\n");
    EXPECT_NE(reports.find("> (Class Module) cTimeProcs::Function Iso8601TimeToLocalVbTime\n"),
              std::string::npos);

    std::mt19937 random(1);
    const std::string_view pieces("0123456789 0123456789:-+TZ,.apr AEST\xC3\xA9\0", 38);
    for (int i = 0; i < 100'000; ++i) {
        std::string text(random() % 40, ' ');
        for (char& c : text) c = i % 4 == 0 ? static_cast<char>(random()) : pieces[random() % pieces.size()];
        if (text.size() > 10 && i % 2 == 0) text[10] = 'T';
        const int error = test::errorOf([&] { times.InternetTimeToVbLocalTime(text); });
        if (error != 0 && error != 5 && error != 6 && error != 13) ADD_FAILURE() << error << ' ' << text;
    }
}

TEST_F(TimeTest, PutTheYearFirst) {
    const std::pair<std::string, std::string> rows[] = {{"25/12/2021 08:30:00", "2021-12-25 08:30:00"},
                                                        {"25.12.2021-8:30", "2021-12-25 021-8:30"},
                                                        {"25/12", "-12-25 25/12"},
                                                        {"", "-- "}};
    for (const auto& [text, expected] : rows) EXPECT_EQ(times.GetMYSQLTimeDate(text), expected);
}

}  // namespace
}  // namespace t_genproc
