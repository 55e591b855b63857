#include <cstring>
#include <stdexcept>

#include "platform/windows/windows_platform.h"
#include "platform_choice.h"

namespace tavoru {
namespace {

using namespace t_genproc;

/// A clock that is in another zone than the system.
class ZoneClock final : public Clock {
   public:
    ZoneClock(std::unique_ptr<Clock> systemClock, const TimeZoneInformation& zone)
        : system_(std::move(systemClock)), zone_(zone) {}

    SystemTime GetLocalTime() override { return local(zone_, GetSystemTime()); }
    SystemTime GetSystemTime() override { return system_->GetSystemTime(); }
    std::uint32_t GetTickCount() override { return system_->GetTickCount(); }
    void Sleep(std::uint32_t milliseconds) override { system_->Sleep(milliseconds); }

    CurrentTimeZone GetTimeZoneInformation() override {
        if (zone_.daylightDate.month == 0) return {TimeZoneId::Unknown, zone_};
        const SystemTime now = GetSystemTime();
        const bool isStandard = local(zone_, now) == local({.bias = zone_.bias + zone_.standardBias}, now);
        return {isStandard ? TimeZoneId::Standard : TimeZoneId::Daylight, zone_};
    }
    Outcome<SystemTime> SystemTimeToTzSpecificLocalTime(const TimeZoneInformation& zone,
                                                        const SystemTime& universal) override {
        return system_->SystemTimeToTzSpecificLocalTime(zone, universal);
    }

    Outcome<SystemTime> InternetTimeToSystemTimeA(const std::string& text) override {
        return system_->InternetTimeToSystemTimeA(text);
    }

    Outcome<FileTime> FileTimeToLocalFileTime(const FileTime& time) override {
        constexpr std::int64_t kStepsPerMinute = 600'000'000;
        const std::uint32_t id = GetTimeZoneInformation().id;
        const std::int64_t bias = zone_.bias + (id == TimeZoneId::Daylight   ? zone_.daylightBias
                                                : id == TimeZoneId::Standard ? zone_.standardBias
                                                                             : 0);
        const std::uint64_t local = stepsOf(time) - static_cast<std::uint64_t>(bias * kStepsPerMinute);
        if (local >> 63U != 0) return {{}, SystemError::InvalidParameter};
        return {fileTime(local)};
    }
    Outcome<SystemTime> FileTimeToSystemTime(const FileTime& time) override {
        return system_->FileTimeToSystemTime(time);
    }

    std::string GetDateFormatA(const SystemTime& time) override { return system_->GetDateFormatA(time); }
    std::string GetTimeFormatA(const SystemTime& time) override { return system_->GetTimeFormatA(time); }

   private:
    SystemTime local(const TimeZoneInformation& zone, const SystemTime& universal) {
        return system_->SystemTimeToTzSpecificLocalTime(zone, universal).value;
    }

    std::unique_ptr<Clock> system_;
    TimeZoneInformation zone_;
};

/// A zone as the registry holds it.
struct StoredZone {
    std::int32_t bias, standardBias, daylightBias;
    SystemTime standardDate, daylightDate;
};

}  // namespace

const char* const kCentralEurope = "W. Europe Standard Time";

Drive openDrive(const std::filesystem::path& folder) {
    std::filesystem::path root = folder;
    return {windowsPlatform(), root.make_preferred().string() + "\\"};
}

void setZone(Platform& platform, const std::string& name) {
    StoredZone stored{};
    Registry& registry = *platform.registry;
    const auto key = registry.RegOpenKeyExA(
        RootKey::LocalMachine, R"(Software\Microsoft\Windows NT\CurrentVersion\Time Zones\)" + name,
        KeyAccess::QueryValue);
    if (!key) throw std::runtime_error("there is no time zone " + name);
    const std::string bytes = registry.RegQueryValueExA(key.value, "TZI", sizeof stored).value.bytes;
    registry.RegCloseKey(key.value);
    if (bytes.size() != sizeof stored) throw std::runtime_error("the time zone " + name + " has no record");
    std::memcpy(&stored, bytes.data(), sizeof stored);
    constexpr std::int32_t kMost = 1 << 16;  // minutes: so that their sums fit
    for (const std::int32_t bias : {stored.bias, stored.standardBias, stored.daylightBias}) {
        if (bias < -kMost || bias > kMost) throw std::runtime_error("the record of " + name + " is damaged");
    }
    platform.clock = std::make_unique<ZoneClock>(
        std::move(platform.clock), TimeZoneInformation{stored.bias, stored.standardDate, stored.standardBias,
                                                       stored.daylightDate, stored.daylightBias});
}

}  // namespace tavoru
