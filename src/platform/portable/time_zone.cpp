#include "platform/portable/time_zone.h"

#include <sys/stat.h>

#include <cstdlib>
#include <fstream>

#include "platform/portable/zone_record.h"
#include "platform/portable/zone_time.h"

namespace t_genproc::portable {
namespace {

namespace chrono = std::chrono;

constexpr std::int64_t kLargestFile = 1 << 20;

std::string withoutColon(const std::string& name) { return name.substr(name.starts_with(':') ? 1 : 0); }

std::string zoneName() {
    const char* const variable = std::getenv("TZ");
    return variable == nullptr ? "/etc/localtime" : withoutColon(variable);
}

std::string locationOf(const std::string& name) {
    if (name.empty() || name.starts_with('/')) return name;
    const char* const variable = std::getenv("TZDIR");
    const std::string folder = variable == nullptr ? "" : variable;
    return (folder.empty() ? "/usr/share/zoneinfo" : folder) + '/' + name;
}

std::optional<Zone> zoneOfFile(const std::string& location, std::int64_t size) {
    if (size == 0 || size > kLargestFile) return {};
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::ifstream(location, std::ios::binary).read(bytes.data(), size);
    return readZoneFile(bytes);
}

std::optional<Zone> zoneOfRule(const std::string& text) {
    const std::optional<ZoneRule> rule = zoneRule(text);
    if (!rule) return {};
    return Zone{.firstOffset = rule->standard, .changes = {}, .rule = rule};
}

}  // namespace

CurrentTimeZone LocalTimeZone::at(chrono::sys_seconds now) {
    const TimeZoneInformation record = zoneRecord(current(), now);
    return {timeZoneId(record, now).value, record};
}

bool LocalTimeZone::isZone(const std::string& variable) {
    const std::string name = withoutColon(variable);
    const Version version = versionOf(locationOf(name));
    return zoneOfFile(version.location, version.size) || zoneOfRule(name);
}

LocalTimeZone::Version LocalTimeZone::versionOf(const std::string& location) {
    struct stat found {};
    if (::stat(location.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return {.location = location};
    return {.location = location,
            .device = found.st_dev,
            .number = found.st_ino,
            .size = found.st_size,
            .changed = found.st_ctim.tv_sec,
            .changedNanoseconds = found.st_ctim.tv_nsec};
}

const Zone& LocalTimeZone::current() {
    const std::string name = zoneName();
    Version version = versionOf(locationOf(name));
    if (version == version_) return zone_;
    std::optional<Zone> found = zoneOfFile(version.location, version.size);
    if (!found) found = zoneOfRule(name);
    version_ = found ? std::move(version) : Version{};  // what failed may do the next time
    zone_ = found ? *std::move(found) : Zone{};
    return zone_;
}

}  // namespace t_genproc::portable
