#include "runtime/date_value.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "runtime/errors.h"

namespace t_genproc {
namespace {

using std::chrono::sys_days;

constexpr sys_days kDayZero = std::chrono::year{1899} / 12 / 30;
constexpr double kFirstDay = (sys_days{std::chrono::year{100} / 1 / 1} - kDayZero).count();
constexpr double kLastDay = (sys_days{std::chrono::year{9999} / 12 / 31} - kDayZero).count();

constexpr int kSecondsPerDay = 86400;
constexpr double kHalfMillisecond = 0.0005;

[[noreturn]] void raiseOutOfRange() { throw RuntimeError(ErrorNumber::InvalidProcedureCall); }

bool inRange(double day) { return day >= kFirstDay && day <= kLastDay; }  // false for no number at all

template <class... Values>
std::string formatted(const char* format, Values... values) {
    char buffer[96];
    const int length = std::snprintf(buffer, sizeof buffer, format, values...);
    return {buffer, static_cast<std::size_t>(length)};
}

}  // namespace

CivilTime civilTime(double dateValue) {
    double day = std::trunc(dateValue);
    if (!inRange(day)) raiseOutOfRange();
    int second = static_cast<int>(std::floor(std::abs(dateValue - day) * kSecondsPerDay + kHalfMillisecond));
    if (second == kSecondsPerDay) {
        second = 0;
        day += 1;
        if (!inRange(day)) raiseOutOfRange();
    }
    const std::chrono::year_month_day date{kDayZero + std::chrono::days{static_cast<int>(day)}};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

double dateValue(const CivilTime& time) {
    if (time.month < 1 || time.month > 12 || time.year < 100 || time.year > 9999) raiseOutOfRange();
    const sys_days firstOfMonth =
        std::chrono::year{time.year} / std::chrono::month{static_cast<unsigned>(time.month)} / 1;
    const std::int64_t seconds =
        std::int64_t{time.hour} * 3600 + std::int64_t{time.minute} * 60 + time.second;
    std::int64_t wholeDays = seconds / kSecondsPerDay;
    if (seconds % kSecondsPerDay < 0) --wholeDays;  // the time of day counts forward from its midnight
    const double fraction = static_cast<double>(seconds - wholeDays * kSecondsPerDay) / kSecondsPerDay;
    const double day =
        static_cast<double>((firstOfMonth - kDayZero).count() + std::int64_t{time.day} - 1 + wholeDays);
    if (!inRange(day)) raiseOutOfRange();
    return day < 0 ? day - fraction : day + fraction;
}

double addSeconds(double dateValue, std::int64_t seconds) {
    if (!(dateValue > kFirstDay - 1 && dateValue < kLastDay + 1)) raiseOutOfRange();
    double day = static_cast<int>(dateValue);
    double time = std::abs(dateValue - day) * kSecondsPerDay;
    const double second = std::nearbyint(time);
    if (std::abs(time - second) < kHalfMillisecond) time = second;

    time += static_cast<double>(seconds);
    const double days = std::floor(time / kSecondsPerDay);
    day += days;
    if (!inRange(day)) raiseOutOfRange();
    const double fraction = (time - days * kSecondsPerDay) / kSecondsPerDay;
    return day < 0 ? day - fraction : day + fraction;
}

std::string dayMonthYear(const CivilTime& time) {
    constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return formatted("%d-%s-%04d", time.day, kMonths.at(static_cast<std::size_t>(time.month) - 1), time.year);
}

std::string hourMinute(const CivilTime& time) { return formatted("%d:%02d", time.hour, time.minute); }

std::string hourMinuteSecond(const CivilTime& time) {
    return formatted("%02d:%02d:%02d", time.hour, time.minute, time.second);
}

std::string dayMonthYearTime(double dateValue) {
    const CivilTime time = civilTime(dateValue);
    return formatted("%02d-%02d-%04d  ", time.day, time.month, time.year) + hourMinuteSecond(time);
}

}  // namespace t_genproc
