/// The record that a time zone has in a year.
#pragma once

#include "platform/clock.h"
#include "platform/portable/zone_file.h"

namespace t_genproc::portable {

/// The record for the zone's year about `now`: the weekday and week of each change as the zone's rule has
/// them, and as the change itself has them that year where it is not by the rule, or by one that a record
/// cannot hold. Of more than two changes those about `now` count. Daylight time is the time with the larger
/// offset. Offsets are rounded to minutes.
TimeZoneInformation zoneRecord(const Zone& zone, std::chrono::sys_seconds now);

}  // namespace t_genproc::portable
