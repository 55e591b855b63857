#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "platform/clock_record.h"
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
    const double before = dateValue(clock.GetLocalTime());
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // the times of files are coarser
    system.write(system.path("a"), "");
    const FileTime written = system.platform.files->GetFileAttributesExA(system.path("a")).value.lastWrite;
    const FileTime local = clock.FileTimeToLocalFileTime(written).value;
    const double then = dateValue(clock.FileTimeToSystemTime(local).value);
    EXPECT_TRUE(before <= then && then <= dateValue(clock.GetLocalTime())) << before << ' ' << then;
    const SystemTime time{2026, 11, 0, 14, 22, 5, 9, 0};
    for (const char* part : {"11", "14", "26", "05", "09"})
        EXPECT_THAT(clock.GetDateFormatA(time) + clock.GetTimeFormatA(time), testing::HasSubstr(part));
    EXPECT_EQ(clock.GetDateFormatA({2026, 13, 0, 1}) + clock.GetTimeFormatA({2026, 2, 0, 28, 24}), "");
    if (test::systemName() != "portable") return;  // has a time zone of its own
    EXPECT_EQ(stepsOf(local) - stepsOf(written), 330ULL * 60 * 10'000'000);
    EXPECT_EQ(clock.FileTimeToLocalFileTime(fileTime(kTooLate - 1)).error, SystemError::InvalidParameter);
}

}  // namespace t_genproc
