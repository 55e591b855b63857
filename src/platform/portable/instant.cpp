#include "platform/portable/instant.h"

namespace t_genproc::portable {
namespace {

namespace chrono = std::chrono;

constexpr Instant kFirst = chrono::sys_days(chrono::year(1601) / 1 / 1);
constexpr Instant kLast = chrono::sys_days(chrono::year(30828) / 9 / 14) + chrono::hours(2) +
                          chrono::minutes(48) + chrono::milliseconds(5477);

std::uint16_t narrow(auto number) { return static_cast<std::uint16_t>(number); }

}  // namespace

bool isInRange(Instant time) { return kFirst <= time && time <= kLast; }

std::optional<chrono::sys_days> dayOf(const SystemTime& time) {
    const bool isYear = time.year >= 1601 && time.year <= 30828;
    const bool isTime = time.hour < 24 && time.minute < 60 && time.second < 60 && time.milliseconds < 1000;
    if (!isYear || !isTime || time.month > 12 || time.day > 31) return {};
    const chrono::year_month_day date{chrono::year(time.year), chrono::month(time.month),
                                      chrono::day(time.day)};
    if (!date.ok()) return {};
    return date;
}

std::optional<Instant> instant(const SystemTime& time) {
    const std::optional<chrono::sys_days> day = dayOf(time);
    if (!day) return {};
    const Instant result = *day + chrono::hours(time.hour) + chrono::minutes(time.minute) +
                           chrono::seconds(time.second) + chrono::milliseconds(time.milliseconds);
    if (result > kLast) return {};
    return result;
}

SystemTime systemTime(Instant time) {
    const auto day = chrono::floor<chrono::days>(time);
    const chrono::year_month_day date(day);
    const auto clock = static_cast<std::uint32_t>((time - day).count());  // 32 bits: divided in half the time
    return {.year = narrow(static_cast<int>(date.year())),
            .month = narrow(static_cast<unsigned>(date.month())),
            .dayOfWeek = narrow(chrono::weekday(day).c_encoding()),
            .day = narrow(static_cast<unsigned>(date.day())),
            .hour = narrow(clock / 3'600'000),
            .minute = narrow(clock / 60'000 % 60),
            .second = narrow(clock / 1'000 % 60),
            .milliseconds = narrow(clock % 1'000)};
}

}  // namespace t_genproc::portable
