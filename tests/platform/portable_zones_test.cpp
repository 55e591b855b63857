#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <random>

#include "platform/portable/internet_time.h"
#include "platform/portable/time_zone.h"
#include "platform/portable/zone_record.h"
#include "platform/portable/zone_time.h"
#include "support/platform_under_test.h"

namespace t_genproc::portable {
namespace {

namespace fs = std::filesystem;
namespace chrono = std::chrono;

const fs::path kZones = "/usr/share/zoneinfo";
const auto kNow = chrono::floor<chrono::seconds>(chrono::system_clock::now());

/// By the C library.
std::int64_t offsetAt(std::time_t time) {
    tm local{};
    ::localtime_r(&time, &local);
    return local.tm_gmtoff;
}

/// Adds the times at which the offset changes.
void addChanges(std::vector<std::time_t>& changes, std::time_t from, std::time_t to) {
    constexpr std::time_t kWeek = 604800;
    if (to - from <= kWeek && offsetAt(from) == offsetAt(to)) return;
    if (to - from == 1) return changes.push_back(to);
    addChanges(changes, from, from + (to - from) / 2);
    addChanges(changes, from + (to - from) / 2, to);
}

TimeZoneInformation zoneIn(const std::string& name, int year) {
    test::setVariable("TZ", name);
    return LocalTimeZone().at(chrono::sys_days(chrono::year(year) / 1 / 15)).zone;
}

TEST(PortableZonesTest, AgreeWithTheCLibrary) {
    const char* const rules[] = {"AEST-10AEDT,M10.1.0,M4.1.0/3",
                                 "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0",
                                 "AAA-2BBB,J59,364/23",
                                 "AAA-2BBB,J60/0,300/3:15:10",
                                 "AAA-2BBB,M3.4.4/26,M10.5.0",
                                 "AAA2BBB,M3.5.0/-1:30,M10.5.0/0",
                                 "AAA+5:15:00BBB4:15,M3.2.0,M11.1.0",
                                 "AAA-2BBB,M4.5.5/0,M10.5.4/24",
                                 "AAA-1BBB0,M10.5.0,M3.5.0/1",
                                 ":Europe/Berlin",
                                 "/usr/share/zoneinfo/Europe/Dublin"};
    std::vector<std::string> names(std::begin(rules), std::end(rules));
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kZones)) {
        const std::string name = fs::relative(entry.path(), kZones).string();
        const bool isZone = name.front() >= 'A' && name.front() <= 'Z';  // "posix/" and "right/" are others
        if (isZone && entry.is_regular_file()) names.push_back(name);
    }
    const std::time_t now = chrono::system_clock::to_time_t(kNow);
    LocalTimeZone zone;
    int irregular = 0;
    for (const std::string& name : names) {
        test::setVariable("TZ", name);
        ::tzset();
        std::vector<std::time_t> times{now};
        addChanges(times, now, now + 315'576'000);  // ten years
        bool isRegular = true;                      // so that one record is right in all years
        for (const std::time_t change : times) {
            for (const std::time_t time : {change - 1, change, change + 1}) {
                const chrono::sys_seconds at{chrono::seconds(time)};
                const auto [id, record] = zone.at(at);
                const SystemTime local = systemTime(at + chrono::seconds(offsetAt(time)));
                EXPECT_EQ(localTime(record, systemTime(at)).value, local) << name << ' ' << time;
                const int bias = record.bias + (id == TimeZoneId::Daylight ? record.daylightBias : 0);
                EXPECT_EQ(offsetAt(time), bias * -60) << name << ' ' << time;
                EXPECT_EQ(record.daylightBias < 0, id != TimeZoneId::Unknown) << name << ' ' << time;
                isRegular = isRegular && record == zone.at(kNow).zone;
            }
        }
        irregular += isRegular ? 0 : 1;
    }
    EXPECT_TRUE(names.size() > 400 && irregular < 20) << names.size() << ' ' << irregular;
}

TEST(PortableZonesTest, MakeRecords) {
    const std::tuple<std::string, int, TimeZoneInformation> rows[] = {
        {"Europe/Dublin", 2026, {0, {0, 10, 0, 5, 2}, 0, {0, 3, 0, 5, 1}, -60}},
        {"Asia/Jerusalem", 2026, {-120, {0, 10, 0, 5, 2}, 0, {0, 3, 4, 4, 26}, -60}},
        {"Asia/Gaza", 2090, {-120, {0, 10, 4, 4, 50}, 0, {0, 3, 4, 4, 50}, -60}},
        {"Africa/Casablanca", 2026, {0, {0, 2, 0, 3, 3}, 0, {0, 3, 0, 4, 2}, -60}},
        {"America/Nuuk", 2029, {120, {0, 10, 0, 5, 0}, 0, {0, 3, 6, 4, 23}, -60}},
        {"AAA5BBB", 2026, {300, {0, 11, 0, 1, 2}, 0, {0, 3, 0, 2, 2}, -60}},
        {"AAA3BBB4,0/0,J365/23", 2026, {240}},  // daylight time for ever
        {"AAA-5:30:31", 2026, {-331}}};
    for (const auto& [name, year, expected] : rows) EXPECT_EQ(zoneIn(name, year), expected) << name;
    for (const char* name : {"", ":", "No/Such", "Europe", "/dev/zero", "AA5", "<+5>5", "AAA5!", "AAA99",
                             "AAA5BBB,M3.2.0", "AAA5BBB,M13.2.0,M11.1.0", "AAA5BBB,J0,J9", "AAA5BBB,0/168,9"})
        EXPECT_EQ(zoneIn(name, 2026), TimeZoneInformation{}) << name;
}

TEST(PortableZonesTest, SurviveDamagedFiles) {
    test::PlatformUnderTest system;
    const fs::path file = system.onDisk("zone");
    fs::copy(kZones / "Africa/Casablanca", file);
    const std::string whole = system.read(system.path("zone"));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(readZoneFile(std::string_view(whole).substr(0, length))) << length;
        std::string damaged = whole;
        damaged[length] = static_cast<char>(~whole[length]);
        if (const auto zone = readZoneFile(damaged)) zoneRecord(*zone, kNow);
    }
    fs::resize_file(file, whole.size() - 1);
    test::setVariable("TZDIR", file.parent_path().string());
    LocalTimeZone zone;
    EXPECT_EQ(zoneIn("zone", 2026), TimeZoneInformation{});
    for (const auto& [name, bias] : {std::pair{"Asia/Kolkata", -330}, {"Asia/Tokyo", -540}}) {
        fs::copy(kZones / name, file, fs::copy_options::overwrite_existing);
        EXPECT_EQ(zone.at(kNow).zone.bias, bias);
    }
    ::unsetenv("TZDIR");
    EXPECT_EQ(zone.at(kNow).zone.bias, 0);
}

TEST(PortableZonesTest, ReadInternetTimes) {
    const std::pair<const char*, SystemTime> rows[] = {
        {"4 mar 49 1:2", {2049, 3, 4, 4, 1, 2}},
        {"4 Mar 50 1:2", {1950, 3, 6, 4, 1, 2}},
        {"4 Sept 021 1:2 A/B_c", {1921, 9, 0, 4, 1, 2}},
        {"Thursday, 04-Mar-21 12:34:56 GMT", {2021, 3, 4, 4, 12, 34, 56}},
        {"Thu Mar  4 12:34:56 2021", {2021, 3, 4, 4, 12, 34, 56}},
        {"4 Mar 2021 1:2 +0100 (Hora; Z) <x>", {2021, 3, 4, 4, 1, 2}},
        {"Sun 29Feb2016\r\n 1:2:3(Z\xFCrich)", {2016, 2, 1, 29, 1, 2, 3}}};
    for (const auto& [text, expected] : rows) EXPECT_EQ(internetTime(text).value, expected) << text;
    for (const char* text : {"29 Feb 50 1:2", "31 Dec 1600 1:2", "4 Mar 2021 24:00", "4 Mar 2021 1:60",
                             "4 Mar 2021 1:2:60", "4 Mar 2021 1", "4 Mar 20211:2", "4 Ma 2021 1:2", "Thu,",
                             "4 Marx 2021 1:2", "Xyz, 4 Mar 2021 1:2", "004 Mar 2021 1:2", "4 Mar 1 1:2", "",
                             "4 Mar 2021 1:2:3.4", "4 Mar 2021 1:2 GMT;", "4 Mar 2021 1:2 GMT 5 Mar"})
        EXPECT_EQ(internetTime(text).error, SystemError::InvalidParameter) << text;
    std::minstd_rand random;  // NOLINT: the same every time
    int accepted = 0;
    for (int i = 0; i < 100'000; ++i) {
        std::string text = "Thu, 04 Mar 2021 12:34:56 GMT";
        for (auto left = random() % 8; left > 0; --left)
            text[random() % text.size()] = static_cast<char>(random());
        const Outcome<SystemTime> read = internetTime(text);
        EXPECT_EQ(instant(read.value).has_value(), static_cast<bool>(read)) << text;
        accepted += read ? 1 : 0;
    }
    EXPECT_TRUE(accepted > 10'000 && accepted < 90'000) << accepted;
    for (char part : {'a', '1', '(', ','})
        EXPECT_FALSE(internetTime(std::string(1 << 20, part) + "4 Mar 2021 1:2"));
}

}  // namespace
}  // namespace t_genproc::portable
