#include <windows.h>
// After <windows.h>.
#include <wininet.h>

#include <array>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

SystemTime fromSystem(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth,  time.wDayOfWeek, time.wDay,
            time.wHour, time.wMinute, time.wSecond,    time.wMilliseconds};
}
SYSTEMTIME toSystem(const SystemTime& time) {
    return {time.year, time.month,  time.dayOfWeek, time.day,
            time.hour, time.minute, time.second,    time.milliseconds};
}

TIME_ZONE_INFORMATION toSystem(const TimeZoneInformation& zone) {
    return {.Bias = zone.bias,
            .StandardName = {},
            .StandardDate = toSystem(zone.standardDate),
            .StandardBias = zone.standardBias,
            .DaylightName = {},
            .DaylightDate = toSystem(zone.daylightDate),
            .DaylightBias = zone.daylightBias};
}

/// What GetDateFormatA or GetTimeFormatA writes; nothing for a time that does not exist.
template <class Call>
std::string formatted(Call call, DWORD flags, const SystemTime& time) {
    const SYSTEMTIME given = toSystem(time);
    std::array<char, 256> written{};
    call(LOCALE_USER_DEFAULT, flags, &given, nullptr, written.data(), static_cast<int>(written.size()));
    return fromAnsi(written.data());
}

class WindowsClock final : public Clock {
   public:
    SystemTime GetLocalTime() override {
        SYSTEMTIME now{};
        ::GetLocalTime(&now);
        return fromSystem(now);
    }
    SystemTime GetSystemTime() override {
        SYSTEMTIME now{};
        ::GetSystemTime(&now);
        return fromSystem(now);
    }

    std::uint32_t GetTickCount() override { return ::GetTickCount(); }
    void Sleep(std::uint32_t milliseconds) override { ::Sleep(milliseconds); }

    CurrentTimeZone GetTimeZoneInformation() override {
        TIME_ZONE_INFORMATION zone{};
        const DWORD id = ::GetTimeZoneInformation(&zone);
        return {static_cast<std::uint32_t>(id),
                {.bias = zone.Bias,
                 .standardDate = fromSystem(zone.StandardDate),
                 .standardBias = zone.StandardBias,
                 .daylightDate = fromSystem(zone.DaylightDate),
                 .daylightBias = zone.DaylightBias}};
    }
    Outcome<SystemTime> SystemTimeToTzSpecificLocalTime(const TimeZoneInformation& zone,
                                                        const SystemTime& universal) override {
        const TIME_ZONE_INFORMATION rules = toSystem(zone);
        const SYSTEMTIME given = toSystem(universal);
        SYSTEMTIME local{};
        if (!::SystemTimeToTzSpecificLocalTime(&rules, &given, &local)) return {.error = lastError()};
        return {fromSystem(local)};
    }

    Outcome<SystemTime> InternetTimeToSystemTimeA(const std::string& text) override {
        SYSTEMTIME time{};
        if (!::InternetTimeToSystemTimeA(toAnsiWithLoss(text).c_str(), &time, 0)) {
            return {.error = lastError()};
        }
        return {fromSystem(time)};
    }

    Outcome<FileTime> FileTimeToLocalFileTime(const FileTime& time) override {
        const FILETIME given{time.low, time.high};
        FILETIME local{};
        if (!::FileTimeToLocalFileTime(&given, &local)) return {.error = lastError()};
        return {{local.dwLowDateTime, local.dwHighDateTime}};
    }

    Outcome<SystemTime> FileTimeToSystemTime(const FileTime& time) override {
        const FILETIME given{time.low, time.high};
        SYSTEMTIME civil{};
        if (!::FileTimeToSystemTime(&given, &civil)) return {.error = lastError()};
        return {fromSystem(civil)};
    }

    std::string GetDateFormatA(const SystemTime& time) override {
        return formatted(&::GetDateFormatA, DATE_SHORTDATE, time);
    }
    std::string GetTimeFormatA(const SystemTime& time) override {
        return formatted(&::GetTimeFormatA, 0, time);
    }
};

}  // namespace

std::unique_ptr<Clock> makeClock() { return std::make_unique<WindowsClock>(); }

}  // namespace t_genproc
