/// The local time, the times of files, and dates as the user's system writes them.
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

class Clock {
   public:
    virtual ~Clock() = default;

    virtual SystemTime GetLocalTime() = 0;

    /// Adds the distance of local time from UTC as it is now, not as it was at `time`.
    virtual Outcome<FileTime> FileTimeToLocalFileTime(const FileTime& time) = 0;
    /// The civil date and time. InvalidParameter from 2^63 on.
    virtual Outcome<SystemTime> FileTimeToSystemTime(const FileTime& time) = 0;

    /// The date in the short form, and the time in the long form, that the user has set for the system.
    virtual std::string GetDateFormatA(const SystemTime& time) = 0;
    virtual std::string GetTimeFormatA(const SystemTime& time) = 0;
};

}  // namespace t_genproc
