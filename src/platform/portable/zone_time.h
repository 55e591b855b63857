/// Local time by the record of a time zone.
#pragma once

#include "platform/portable/instant.h"

namespace t_genproc::portable {

/// The TimeZoneId in force at `universal`. InvalidParameter: the record's dates are none, or there is no such
/// local time.
Outcome<std::uint32_t> timeZoneId(const TimeZoneInformation& zone, Instant universal);

/// See Clock::SystemTimeToTzSpecificLocalTime. The hours of a change may be 24 and more, which are hours of
/// the days after.
Outcome<SystemTime> localTime(const TimeZoneInformation& zone, const SystemTime& universal);

}  // namespace t_genproc::portable
