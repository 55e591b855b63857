#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "platform/clock_record.h"
#include "runtime/date_value.h"
#include "support/platform_under_test.h"

namespace t_genproc {

constexpr std::uint64_t kTooLate = std::uint64_t{1} << 63;

TEST(ClockTest, TellsTimes) {
    test::setVariable("TZ", "XYZ-5:30");
    test::setVariable("LC_ALL", "C");
    test::PlatformUnderTest system;
    Clock& clock = *system.platform.clock;
    const std::pair<std::uint64_t, SystemTime> rows[] = {
        {0, {1601, 1, 1, 1, 0, 0, 0, 0}},
        {116444736000000000, {1970, 1, 4, 1, 0, 0, 0, 0}},
        {125963423999999999, {2000, 2, 2, 29, 23, 59, 59, 999}},
        {kTooLate - 1, {30828, 9, 4, 14, 2, 48, 5, 477}}};
    for (const auto& [steps, is] : rows) EXPECT_EQ(clock.FileTimeToSystemTime(fileTime(steps)).value, is);
    EXPECT_EQ(clock.FileTimeToSystemTime(fileTime(kTooLate)).error, SystemError::InvalidParameter);
    const std::uint32_t ticks = clock.GetTickCount();
    clock.Sleep(100);
    EXPECT_GE(clock.GetTickCount() - ticks, 80U);  // the count goes in steps of up to 16
    const double before = dateValue(clock.GetLocalTime());
    const SystemTime universal = clock.GetSystemTime();
    const auto [id, zone] = clock.GetTimeZoneInformation();
    const double here = dateValue(clock.SystemTimeToTzSpecificLocalTime(zone, universal).value);
    const std::int64_t bias = zone.bias + (id == TimeZoneId::Daylight ? zone.daylightBias : 0);
    EXPECT_EQ(addSeconds(dateValue(universal), -60 * bias), here);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // the times of files are coarser
    system.write(system.path("a"), "");
    const FileTime written = system.platform.files->GetFileAttributesExA(system.path("a")).value.lastWrite;
    const FileTime local = clock.FileTimeToLocalFileTime(written).value;
    const double then = dateValue(clock.FileTimeToSystemTime(local).value);
    const double after = dateValue(clock.GetLocalTime());
    EXPECT_TRUE(before <= then && then <= after) << before << ' ' << then << ' ' << after;
    EXPECT_TRUE(before <= here && here <= after) << before << ' ' << here << ' ' << after;
    const SystemTime time{2026, 11, 0, 14, 22, 5, 9, 0};
    for (const char* part : {"11", "14", "26", "05", "09"})
        EXPECT_THAT(clock.GetDateFormatA(time) + clock.GetTimeFormatA(time), testing::HasSubstr(part));
    EXPECT_EQ(clock.GetDateFormatA({2026, 13, 0, 1}) + clock.GetTimeFormatA({2026, 2, 0, 28, 24}), "");
    if (test::systemName() != "portable") return;  // has a time zone of its own
    EXPECT_EQ(stepsOf(local) - stepsOf(written), 330ULL * 60 * 10'000'000);
    EXPECT_EQ(clock.FileTimeToLocalFileTime(fileTime(kTooLate - 1)).error, SystemError::InvalidParameter);
}

TEST(ClockTest, ChangesToTheSecond) {
    test::PlatformUnderTest system;
    Clock& clock = *system.platform.clock;
    const TimeZoneInformation north{-60, {0, 10, 0, 5, 3}, 0, {0, 3, 0, 5, 2}, -60};
    const TimeZoneInformation south{-600, {0, 4, 0, 1, 3}, 0, {0, 10, 0, 1, 2}, -60};
    const TimeZoneInformation west{300, {0, 11, 5, 2, 1, 30}, 0, {0, 3, 6, 4, 0, 15}, -30};
    const TimeZoneInformation newYear{-600, {0, 7, 0, 1, 3}, 0, {0, 1, 0, 1, 0}, -60};
    const TimeZoneInformation once{0, {2021, 10, 0, 31, 2}, 0, {2021, 3, 0, 28, 1}, -60};
    const TimeZoneInformation none{300, {}, 30, {}, -60};
    // A change, and local time minus UTC in minutes before it and from then on.
    const std::tuple<TimeZoneInformation, SystemTime, std::int64_t, std::int64_t> rows[] = {
        {north, {2021, 3, 9, 28, 1}, 60, 120},       {north, {2021, 10, 0, 31, 1}, 120, 60},
        {north, {9999, 3, 0, 28, 1}, 60, 120},       {north, {1601, 10, 0, 28, 1}, 120, 60},
        {south, {2021, 4, 0, 3, 16}, 660, 600},      {south, {2021, 10, 0, 2, 16}, 600, 660},
        {west, {2021, 3, 0, 27, 5, 15}, -300, -270}, {west, {2021, 11, 0, 12, 6}, -270, -300},
        {newYear, {2022, 12, 0, 31, 14}, 600, 660},  {newYear, {2023, 1, 0, 1}, 660, 660},
        {once, {2021, 3, 0, 28, 1}, 0, 60},          {once, {2021, 10, 0, 31, 1}, 60, 0},
        {none, {2021, 3, 0, 28, 1}, -300, -300}};
    for (const auto& [zone, change, before, after] : rows) {
        for (const auto& [second, minutes] : {std::pair{-1, before}, {0, after}}) {
            const double universal = addSeconds(dateValue(change), second);
            EXPECT_EQ(clock.SystemTimeToTzSpecificLocalTime(zone, systemTime(universal)).value,
                      systemTime(addSeconds(universal, minutes * 60)))
                << universal << ' ' << zone.bias;
        }
    }
    const TimeZoneInformation wrong[] = {{0, {0, 10, 0, 6, 3}, 0, {0, 3, 0, 5, 2}, -60},
                                         {0, {0, 10, 0, 5, 3}, 0, {0, 3, 0, 0, 2}, -60},
                                         {0, {0, 10, 0, 5, 2}, 0, {2021, 3, 0, 28, 1}, -60},
                                         {0, {}, 0, {0, 3, 0, 5, 2}, -60},
                                         {INT32_MAX, {}, 0, {}, 0}};
    for (const TimeZoneInformation& zone : wrong)
        EXPECT_FALSE(clock.SystemTimeToTzSpecificLocalTime(zone, {2021, 7, 0, 1})) << zone.bias;
    for (const SystemTime& time : {SystemTime{},
                                   {1601, 1, 0, 1, 4},
                                   {1600, 12, 0, 31, 23},
                                   {2021, 13, 0, 1},
                                   {2021, 4, 0, 31},
                                   {2021, 4, 0, 1, 24},
                                   {2021, 4, 0, 1, 0, 0, 60}})
        EXPECT_EQ(clock.SystemTimeToTzSpecificLocalTime(none, time).error, SystemError::InvalidParameter);
}

TEST(ClockTest, ReadsInternetTimes) {
    test::PlatformUnderTest system;
    for (const char* text :
         {"Thu, 04 Mar 2021 12:34:56 GMT", "thu, 4 MAR 2021 12:34:56 +0000", "Thu 4 Mar 2021 12:34:56",
          "Thu,04 Mar 2021 12:34:56 -0130 (Somewhere)", "  Thursday,\t4  March  2021  12:34:56 +0000C",
          "Thu, 04-Mar-2021 12:34:56 GMT"}) {
        const SystemTime read = system.platform.clock->InternetTimeToSystemTimeA(text).value;
        EXPECT_EQ(read, (SystemTime{2021, 3, 4, 4, 12, 34, 56, 0})) << text;
    }
}

}  // namespace t_genproc
