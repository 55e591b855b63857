#include "times.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <iomanip>
#include <sstream>

#include "runtime/date_value.h"

namespace tavoru {
namespace {

constexpr std::array kWeeks{"first", "second", "third", "fourth", "last"};
constexpr std::array kWeekdays{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array kMonths{"January", "February", "March",     "April",   "May",      "June",
                             "July",    "August",   "September", "October", "November", "December"};

/// The date of a zone's change: "last Sunday of March, 02:00".
std::string changeText(const t_genproc::SystemTime& date) {
    if (date.month == 0) return "none";
    const std::string month = kMonths.at(date.month - 1U);
    const std::string day =
        date.year == 0
            ? std::string(kWeeks.at(date.day - 1U)) + " " + kWeekdays.at(date.dayOfWeek) + " of " + month
            : std::to_string(date.day) + " " + month + " " + std::to_string(date.year);
    std::string time = t_genproc::hourMinuteSecond(
        t_genproc::CivilTime{.hour = date.hour, .minute = date.minute, .second = date.second});
    if (date.second == 0) time.resize(time.rfind(':'));
    return day + ", " + time;
}

std::string withMilliseconds(t_genproc::cTimeProcs& times, double date) {
    constexpr double kMillisecondsPerDay = 86'400'000;
    const double second = t_genproc::dateValue(t_genproc::civilTime(date));
    std::ostringstream text;
    text << dateText(times, date) << '.' << std::setfill('0') << std::setw(3)
         << std::lround((date - second) * kMillisecondsPerDay);
    return text.str();
}

}  // namespace

Times::Times(const Places& places, const std::string& zone) : drive(openDrive(places.drive)) {
    if (!zone.empty()) setZone(drive.platform, zone);
}

std::string dateText(t_genproc::cTimeProcs& times, double date) {
    return times.GetMYSQLTimeDate(t_genproc::dayMonthYearTime(date));
}

std::optional<double> readDate(t_genproc::cTimeProcs& times, const std::string& text) {
    std::tm fields{};
    std::istringstream stream(text);
    if (!(stream >> std::get_time(&fields, "%Y-%m-%d %H:%M:%S"))) return std::nullopt;
    if (fields.tm_year + 1900 < 100) return std::nullopt;
    const double date =
        t_genproc::dateValue(t_genproc::CivilTime{fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday,
                                                  fields.tm_hour, fields.tm_min, fields.tm_sec});
    if (dateText(times, date) != text) return std::nullopt;  // 30 February, say
    return date;
}

Lines clockLines(const t_genproc::Library& library, t_genproc::cTimeProcs& times) {
    const auto [id, zone] = library.platform().clock->GetTimeZoneInformation();
    const bool isDaylight = id == t_genproc::TimeZoneId::Daylight;
    return {
        "local time          " + withMilliseconds(times, times.LocalTime()),
        "UTC                 " + withMilliseconds(times, times.UTCTime()),
        "ahead of UTC        " + std::to_string(times.GetTimeDifference()) + " seconds",
        "Bias                " + std::to_string(zone.bias) + " minutes",
        "StandardDate        " + changeText(zone.standardDate),
        "DaylightDate        " + changeText(zone.daylightDate),
        "DaylightBias        " + std::to_string(zone.daylightBias) + " minutes",
        "daylight time now   " + std::string(isDaylight ? "True" : "False"),
    };
}

Lines readingLines(t_genproc::cTimeProcs& times, double local) {
    static constexpr std::array kReasons{
        "None: the clock is set forward over this time.",
        "One: the clock shows this time once.",
        "Two: the clock is set back over this time, which comes first in daylight time.",
    };
    const std::vector<double> found = times.LocalToUTC(local);
    Lines lines{kReasons.at(std::min(found.size(), kReasons.size() - 1))};
    for (const double universal : found) lines.push_back("  " + dateText(times, universal) + " UTC");
    return lines;
}

}  // namespace tavoru
