/// The files of the system's time zones, in the format TZif (RFC 8536).
#pragma once

#include <vector>

#include "platform/portable/zone_rule.h"

namespace t_genproc::portable {

struct OffsetChange {
    std::chrono::sys_seconds at;
    std::chrono::seconds offset;  // from then on
};

struct Zone {
    std::chrono::seconds firstOffset{};  // local time minus UTC
    std::vector<OffsetChange> changes;   // in order
    std::optional<ZoneRule> rule;        // for the time after the last of them

    std::chrono::seconds offsetAt(std::chrono::sys_seconds time) const;
};

/// Nothing: the file is damaged.
std::optional<Zone> readZoneFile(std::string_view bytes);

}  // namespace t_genproc::portable
