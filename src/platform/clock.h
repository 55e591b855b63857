/// The time, its zone, the times of files, and dates as the user's system and the internet write them.
#pragma once

#include <cstdint>
#include <string>

#include "platform/system_error.h"

namespace t_genproc {

/// A clock record.
struct SystemTime {
    std::uint16_t year = 0;
    std::uint16_t month = 0;      ///< 1 to 12
    std::uint16_t dayOfWeek = 0;  ///< 0 to 6, from Sunday
    std::uint16_t day = 0;        ///< 1 to 31
    std::uint16_t hour = 0;
    std::uint16_t minute = 0;
    std::uint16_t second = 0;
    std::uint16_t milliseconds = 0;

    friend bool operator==(const SystemTime&, const SystemTime&) = default;
};

/// A time in steps of 100 nanoseconds since 1 January 1601, in two halves.
struct FileTime {
    std::uint32_t low = 0;
    std::uint32_t high = 0;

    friend bool operator==(const FileTime&, const FileTime&) = default;
};

constexpr std::uint64_t stepsOf(const FileTime& time) { return std::uint64_t{time.high} << 32 | time.low; }
constexpr FileTime fileTime(std::uint64_t steps) {
    return {static_cast<std::uint32_t>(steps), static_cast<std::uint32_t>(steps >> 32)};
}

/// A time zone: UTC is local time and `bias`, in minutes, and the bias of the part of the year.
struct TimeZoneInformation {
    std::int32_t bias = 0;
    /// When daylight time ends, in daylight time, and begins, in standard time. With a year of 0 it does so
    /// each year: the day counts the weeks of the month (5: the last) and `dayOfWeek` is the day of that
    /// week. Hours of 24 and more are those of the days after. A month of 0: the zone has no daylight time.
    SystemTime standardDate{};
    std::int32_t standardBias = 0;
    SystemTime daylightDate{};
    std::int32_t daylightBias = 0;

    friend bool operator==(const TimeZoneInformation&, const TimeZoneInformation&) = default;
};

/// What GetTimeZoneInformation gives beside the zone.
namespace TimeZoneId {
inline constexpr std::uint32_t Unknown = 0;  ///< no daylight time in this zone
inline constexpr std::uint32_t Standard = 1;
inline constexpr std::uint32_t Daylight = 2;
}  // namespace TimeZoneId

struct CurrentTimeZone {
    std::uint32_t id = TimeZoneId::Unknown;
    TimeZoneInformation zone{};
};

class Clock {
   public:
    virtual ~Clock() = default;

    virtual SystemTime GetLocalTime() = 0;
    virtual SystemTime GetSystemTime() = 0;  ///< UTC

    /// Milliseconds since the system started; after 49.7 days it starts again from 0.
    virtual std::uint32_t GetTickCount() = 0;
    /// Leaves the processor to others for so many milliseconds.
    virtual void Sleep(std::uint32_t milliseconds) = 0;

    /// The zone of this system, read afresh.
    virtual CurrentTimeZone GetTimeZoneInformation() = 0;
    /// The local time by the rules of `zone` for the time's own year. InvalidParameter: there is no such
    /// time, or it is before 1601.
    virtual Outcome<SystemTime> SystemTimeToTzSpecificLocalTime(const TimeZoneInformation& zone,
                                                                const SystemTime& universal) = 0;

    /// The date and time of "Thu, 04 Mar 2021 12:34:56 +0000", whatever zone follows. The text ends at a zero
    /// byte. InvalidParameter: it is no such date (Windows may take the present instead).
    virtual Outcome<SystemTime> InternetTimeToSystemTimeA(const std::string& text) = 0;

    /// Adds the distance of local time from UTC as it is now, not as it was at `time`.
    virtual Outcome<FileTime> FileTimeToLocalFileTime(const FileTime& time) = 0;
    /// The civil date and time. InvalidParameter from 2^63 on.
    virtual Outcome<SystemTime> FileTimeToSystemTime(const FileTime& time) = 0;

    /// The date in the short form, and the time in the long form, that the user has set for the system.
    virtual std::string GetDateFormatA(const SystemTime& time) = 0;
    virtual std::string GetTimeFormatA(const SystemTime& time) = 0;
};

}  // namespace t_genproc
