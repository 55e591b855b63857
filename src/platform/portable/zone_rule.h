/// The rule of a time zone, as TZ and zone files write it: "AEST-10AEDT,M10.1.0,M4.1.0/3".
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "platform/clock.h"

namespace t_genproc::portable {

/// A yearly change of the clock: its day, and the time that the clock shows just before.
struct YearlyChange {
    enum class Day { WeekOfMonth, OfYear, OfYearWithoutLeapDay };

    Day kind = Day::WeekOfMonth;
    unsigned month = 1;
    unsigned week = 1;     // 5: the last
    unsigned weekday = 0;  // from Sunday
    int day = 0;           // of the year, from 0; without leap day: from 1
    std::chrono::seconds time{};

    std::chrono::local_seconds in(std::chrono::year year) const;
};

/// Offsets are local time minus UTC.
struct ZoneRule {
    std::chrono::seconds standard{};
    std::chrono::seconds daylight{};  // may be the smaller one; the same: nothing changes
    YearlyChange begins;              // of daylight time
    YearlyChange ends;

    std::chrono::sys_seconds beginIn(std::chrono::year year) const;
    std::chrono::sys_seconds endIn(std::chrono::year year) const;
    std::chrono::seconds offsetAt(std::chrono::sys_seconds time) const;
};

/// Nothing: the text is no rule. Where it names a daylight time without its dates, they are those of the
/// United States.
std::optional<ZoneRule> zoneRule(std::string_view text);

}  // namespace t_genproc::portable
