/// Local time, UTC and internet dates.
///
///     cTimeProcs times{library};
///     const double received = times.InternetTimeToVbLocalTime("Thu, 04 Mar 2021 12:34:56 GMT");
///     for (const double utc : times.LocalToUTC(received)) std::cout << dayMonthYearTime(utc) << '\n';
///
/// Dates are Date values (date_value.h). Clock and time zone are those of the system, read at each call. The
/// conversions raise error 5 for a date out of range, and 6 where the minutes of the zone do not fit their
/// sum.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/variant.h"

namespace t_genproc {

class Library;

class cTimeProcs {
   public:
    explicit cTimeProcs(Library& library);
    cTimeProcs(const cTimeProcs&) = delete;
    cTimeProcs& operator=(const cTimeProcs&) = delete;
    ~cTimeProcs();

    /// A flag of the host's: True from creation on.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

    // ---- Conversions (time/time_zones.cpp)

    /// UTC for a local date, or for now (whole seconds), by the distance that is in force now. Errors 6,
    /// 13, 94: `StartingDate` is no date; a text is one where it is a number.
    double GetGmtTime(const Variant* StartingDate = nullptr);

    /// Local time minus UTC as it is now, in seconds.
    std::int32_t GetTimeDifference();

    /// Local time for a date in UTC, by the distance that is in force now.
    double GetTimeHere(double gmtTime);

    /// The clock, to the millisecond.
    double UTCTime();
    double LocalTime();

    /// Local time for a date in UTC, by the zone's rule for that date. Fractions of a second are dropped.
    /// Error 5 also before 1601.
    double UTCtoLocal(double tDate);

    /// Every UTC date whose local time is `tDate`, to the second: one as a rule, none in the hour that spring
    /// skips, two in the hour that autumn repeats, that of daylight time first. A fraction of half a second
    /// and more belongs to the next second, and finds nothing where the zone has daylight time.
    std::vector<double> LocalToUTC(double tDate);

    // ---- Internet dates (time/internet_dates.cpp)

    /// The local time, by the distance that is in force now, of a date in the notation of mail headers
    /// ("Thu, 04 Mar 2021 12:34:56 GMT") or of ISO 8601 ("2021-03-04T12:34:56Z", told by the "T").
    ///
    /// Zones are right in whole hours only: each minute counts as a hundred, and of "+10:00" behind a date of
    /// ISO 8601 nothing does. In a mail date a zone may be a number or a name of the table in
    /// internet_dates.cpp; what is no date there is the zero date. Errors 5, 6, 13: the text is too short or
    /// holds no date of ISO 8601.
    double InternetTimeToVbLocalTime(const std::string& dateString);

    /// Of "25/12/2021 08:30:00": "2021-12-25 08:30:00". Nothing is checked.
    std::string GetMYSQLTimeDate(const std::string& TimeDate);

   protected:
    void Class_Initialize();
    void Class_Terminate() noexcept;

   private:
    double Iso8601TimeToLocalVbTime(std::string_view text);
    double Rfc822TimeToLocalVbTime(std::string_view text);

    Library& library_;
    bool classActive_ = false;
};

}  // namespace t_genproc
