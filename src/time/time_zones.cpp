#include <cmath>
#include <string_view>

#include "frame/library.h"
#include "frame/procedure.h"
#include "platform/clock_record.h"
#include "runtime/date_value.h"
#include "runtime/integers.h"
#include "time/cTimeProcs.h"

namespace t_genproc {
namespace {

constexpr std::string_view kUTCtoLocal = "(Class Module) cTimeProcs::Function UTCtoLocal";
constexpr double kSecondsPerDay = 86400;
constexpr std::int32_t kSecondsPerMinute = 60;

double withMilliseconds(const SystemTime& time) {
    const double whole = dateValue(time);
    const double fraction = time.milliseconds / (kSecondsPerDay * 1000);
    return whole < 0 ? whole - fraction : whole + fraction;
}

/// Local time of a date in UTC by the rules of `zone`. Error 5: before 1601.
double localTime(Clock& clock, const TimeZoneInformation& zone, double universal) {
    SystemTime time = systemTime(universal);
    time.dayOfWeek = 0;
    return dateValue(clock.SystemTimeToTzSpecificLocalTime(zone, time).value);
}

double addMinutes(double date, std::int64_t minutes) { return addSeconds(date, minutes * kSecondsPerMinute); }

/// The number of its second, the same for all dates within half a second.
double secondOf(double date) { return std::nearbyint(date * kSecondsPerDay); }

}  // namespace

std::int32_t cTimeProcs::GetTimeDifference() {
    return procedure(library_, "(Class Module) cTimeProcs::Function GetTimeDifference", [&] {
        const auto [id, zone] = library_.platform().clock->GetTimeZoneInformation();
        const std::int32_t distance = checkedMultiply(zone.bias, -kSecondsPerMinute);
        if (id != TimeZoneId::Daylight || zone.daylightDate.month == 0) return distance;
        return checkedSubtract(distance, checkedMultiply(zone.daylightBias, kSecondsPerMinute));
    });
}

double cTimeProcs::GetGmtTime(const Variant* StartingDate) {
    return procedure(library_, "(Class Module) cTimeProcs::Function GetGmtTime", [&] {
        const std::int64_t distance = GetTimeDifference();
        const double local = StartingDate == nullptr ? dateValue(library_.platform().clock->GetLocalTime())
                                                     : toDouble(*StartingDate);
        return addSeconds(local, -distance);
    });
}

double cTimeProcs::GetTimeHere(double gmtTime) {
    return procedure(library_, "(Class Module) cTimeProcs::Function GetTimeHere",
                     [&] { return addSeconds(gmtTime, GetTimeDifference()); });
}

double cTimeProcs::UTCTime() {
    return procedure(library_, "(Class Module) cTimeProcs::Function UTCTime",
                     [&] { return withMilliseconds(library_.platform().clock->GetSystemTime()); });
}

double cTimeProcs::LocalTime() {
    return procedure(library_, "(Class Module) cTimeProcs::Function LocalTime",
                     [&] { return withMilliseconds(library_.platform().clock->GetLocalTime()); });
}

double cTimeProcs::UTCtoLocal(double tDate) {
    return procedure(library_, kUTCtoLocal, [&] {
        Clock& clock = *library_.platform().clock;
        return localTime(clock, clock.GetTimeZoneInformation().zone, tDate);
    });
}

std::vector<double> cTimeProcs::LocalToUTC(double tDate) {
    return procedure(library_, "(Class Module) cTimeProcs::Function LocalToUTC", [&] {
        Clock& clock = *library_.platform().clock;
        const TimeZoneInformation zone = clock.GetTimeZoneInformation().zone;
        const double base = addMinutes(tDate, zone.bias);
        std::vector<double> found;
        if (zone.standardDate.month == 0) {
            found.push_back(base);
            return found;
        }
        const double wanted = secondOf(tDate);
        const auto local = [&](double universal) {  // as UTCtoLocal, but all candidates in the same zone
            return procedure(library_, kUTCtoLocal, [&] { return localTime(clock, zone, universal); });
        };
        for (const std::int64_t direction : {1, 0, -1}) {
            const double candidate = addMinutes(base, direction * zone.daylightBias);
            if (secondOf(local(candidate)) == wanted) found.push_back(candidate);
        }
        return found;
    });
}

}  // namespace t_genproc
