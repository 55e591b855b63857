/// The time zone of this system.
#pragma once

#include <string>

#include "platform/portable/zone_file.h"

namespace t_genproc::portable {

/// Reads the zone that TZ names: a zone file (below TZDIR or in the system's own folder, or at a full path),
/// else, where there is none or it is damaged, a rule; /etc/localtime where TZ is not set; and UTC where it
/// is neither. A file that has not changed is not read again.
class LocalTimeZone {
   public:
    /// Its record (see zoneRecord), and the id in force, at `now`.
    CurrentTimeZone at(std::chrono::sys_seconds now);
    /// Local time minus UTC.
    std::chrono::seconds offsetAt(std::chrono::sys_seconds now) { return current().offsetAt(now); }

    /// Whether TZ could name a zone so.
    static bool isZone(const std::string& variable);

   private:
    /// What tells one state of a file from another.
    struct Version {
        std::string location;
        std::uint64_t device = 0;
        std::uint64_t number = 0;
        std::int64_t size = 0;
        std::int64_t changed = 0;
        std::int64_t changedNanoseconds = 0;

        friend bool operator==(const Version&, const Version&) = default;
    };
    static Version versionOf(const std::string& location);

    const Zone& current();

    Version version_;
    Zone zone_;
};

}  // namespace t_genproc::portable
