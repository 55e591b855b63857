/// Date values: days since 30 December 1899, the fraction being the time of day.
///
/// Before that day the whole part still names the civil date and the fraction still counts forward from its
/// midnight: -1.25 is 29 December 1899, 06:00. Years run from 100 to 9999.
#pragma once

#include <cstdint>
#include <string>

namespace t_genproc {

struct CivilTime {
    int year = 1899;
    int month = 12;  // 1 to 12
    int day = 30;    // 1 to 31
    int hour = 0;    // 0 to 23
    int minute = 0;
    int second = 0;
};

/// The civil date and time of `dateValue`, whole seconds. A value within half a millisecond below a second
/// stands for that second; any other fraction of a second is dropped. Error 5: out of range, or no number.
CivilTime civilTime(double dateValue);

/// The Date value of a civil time. A day beyond the end of its month runs on into the next one, and so do
/// hours, minutes and seconds. Error 5: the date is out of range.
double dateValue(const CivilTime& time);

/// The Date value so many seconds later. A value within half a millisecond of a second stands for that
/// second; any other fraction of a second is kept. Error 5: out of range, or no number.
double addSeconds(double dateValue, std::int64_t seconds);

/// "14-Nov-2026", "9:05" and "09:05:07".
std::string dayMonthYear(const CivilTime& time);
std::string hourMinute(const CivilTime& time);
std::string hourMinuteSecond(const CivilTime& time);

/// "14-11-2026  22:05:09": the time stamp of log lines.
std::string dayMonthYearTime(double dateValue);

}  // namespace t_genproc
