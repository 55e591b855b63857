#include "platform/portable/zone_time.h"

namespace t_genproc::portable {
namespace {

namespace chrono = std::chrono;

using Minutes = chrono::duration<std::int64_t, std::ratio<60>>;

/// The time of a change in `year`, or in the year that its date names.
std::optional<Instant> changeIn(chrono::year year, const SystemTime& date) {
    const bool isTime = date.minute < 60 && date.second < 60 && date.milliseconds < 1000;
    if (date.month < 1 || date.month > 12 || !isTime) return {};
    if (date.year != 0) return instant(date);
    if (date.day < 1 || date.day > 5 || date.dayOfWeek > 6) return {};
    const chrono::weekday weekday(date.dayOfWeek);
    const chrono::year_month month(year, chrono::month(date.month));
    const chrono::sys_days day = date.day == 5 ? chrono::sys_days(month / weekday[chrono::last])
                                               : chrono::sys_days(month / weekday[date.day]);
    return day + chrono::hours(date.hour) + chrono::minutes(date.minute) + chrono::seconds(date.second) +
           chrono::milliseconds(date.milliseconds);
}

Minutes distanceBy(const TimeZoneInformation& zone, std::uint32_t id) {
    const Minutes bias(zone.bias);
    if (id == TimeZoneId::Unknown) return bias;
    return bias + Minutes(id == TimeZoneId::Daylight ? zone.daylightBias : zone.standardBias);
}

}  // namespace

Outcome<std::uint32_t> timeZoneId(const TimeZoneInformation& zone, Instant universal) {
    if (zone.daylightDate.month == 0) return {TimeZoneId::Unknown};
    const Outcome<std::uint32_t> failure{{}, SystemError::InvalidParameter};
    const Minutes standard = distanceBy(zone, TimeZoneId::Standard);
    if ((zone.standardDate.year == 0) != (zone.daylightDate.year == 0)) return failure;
    if (!isInRange(universal - standard)) return failure;
    const chrono::year year =
        chrono::year_month_day(chrono::floor<chrono::days>(universal - standard)).year();
    const std::optional<Instant> begins = changeIn(year, zone.daylightDate);
    const std::optional<Instant> ends = changeIn(year, zone.standardDate);
    if (!begins || !ends) return failure;
    const Minutes daylight = distanceBy(zone, TimeZoneId::Daylight);
    const bool isDaylight = isBetween<Instant>(universal, *begins + standard, *ends + daylight);
    return {isDaylight ? TimeZoneId::Daylight : TimeZoneId::Standard};
}

Outcome<SystemTime> localTime(const TimeZoneInformation& zone, const SystemTime& universal) {
    const std::optional<Instant> time = instant(universal);
    if (!time) return {{}, SystemError::InvalidParameter};
    const Outcome<std::uint32_t> id = timeZoneId(zone, *time);
    if (!id) return {{}, id.error};
    const Instant local = *time - distanceBy(zone, id.value);
    if (!isInRange(local)) return {{}, SystemError::InvalidParameter};
    return {systemTime(local)};
}

}  // namespace t_genproc::portable
