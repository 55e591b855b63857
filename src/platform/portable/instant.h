/// Points in time, to the millisecond, and their clock records.
#pragma once

#include <chrono>
#include <optional>

#include "platform/clock.h"

namespace t_genproc::portable {

using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// Whether it is one that Windows knows: from 1601 to September of 30828.
bool isInRange(Instant time);

/// The time of a record, and its day. Nothing: there is no such time. `dayOfWeek` does not count.
std::optional<Instant> instant(const SystemTime& time);
std::optional<std::chrono::sys_days> dayOf(const SystemTime& time);

/// Whether daylight time, which begins and ends at these times of a year, is in force at `time` of that year.
template <class Time>
bool isBetween(Time time, Time begins, Time ends) {
    return begins < ends ? begins <= time && time < ends : begins <= time || time < ends;
}

/// The record of a time in range.
SystemTime systemTime(Instant time);

}  // namespace t_genproc::portable
