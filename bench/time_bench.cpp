/// Dates of the internet, and times between UTC and a zone, beside other libraries and the system's own
/// calls.
#include <curl/curl.h>
#include <date/date.h>
#include <glib.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <sstream>

#include "ratio_table.h"
#include "runtime/date_value.h"
#include "time/cTimeProcs.h"
#include "world.h"

namespace t_genproc::bench {
namespace {

/// The portable clock where local time is UTC, without a look at the system.
class UniversalClock final : public Clock {
   public:
    explicit UniversalClock(std::unique_ptr<Clock> clock) : clock_(std::move(clock)) {}

    SystemTime GetLocalTime() override { return GetSystemTime(); }
    SystemTime GetSystemTime() override { return clock_->GetSystemTime(); }
    std::uint32_t GetTickCount() override { return clock_->GetTickCount(); }
    void Sleep(std::uint32_t milliseconds) override { clock_->Sleep(milliseconds); }
    CurrentTimeZone GetTimeZoneInformation() override { return {}; }
    Outcome<SystemTime> SystemTimeToTzSpecificLocalTime(const TimeZoneInformation& zone,
                                                        const SystemTime& universal) override {
        return clock_->SystemTimeToTzSpecificLocalTime(zone, universal);
    }
    Outcome<SystemTime> InternetTimeToSystemTimeA(const std::string& text) override {
        return clock_->InternetTimeToSystemTimeA(text);
    }
    Outcome<FileTime> FileTimeToLocalFileTime(const FileTime& time) override { return {time}; }
    Outcome<SystemTime> FileTimeToSystemTime(const FileTime& time) override {
        return clock_->FileTimeToSystemTime(time);
    }
    std::string GetDateFormatA(const SystemTime& time) override { return clock_->GetDateFormatA(time); }
    std::string GetTimeFormatA(const SystemTime& time) override { return clock_->GetTimeFormatA(time); }

   private:
    std::unique_ptr<Clock> clock_;
};

constexpr double kDaysBefore1970 = 25569, kSecondsPerDay = 86400;

time_t secondsOf(double date) { return std::lround((date - kDaysBefore1970) * kSecondsPerDay); }
double dateOf(time_t seconds) { return kDaysBefore1970 + static_cast<double>(seconds) / kSecondsPerDay; }

/// A way to read a date: seconds since 1970, in UTC.
using Reader = std::function<time_t(const std::string& text)>;

Reader byStrptime(const char* format) {
    return [=](const std::string& text) {
        tm time{};
        if (::strptime(text.c_str(), format, &time) == nullptr) return time_t{-1};
        const long ahead = time.tm_gmtoff;
        return ::timegm(&time) - ahead;
    };
}

Reader byDate(const char* format) {
    return [=](const std::string& text) {
        date::sys_seconds time;
        std::istringstream stream(text);
        stream >> date::parse(format, time);
        return stream ? time.time_since_epoch().count() : -1;
    };
}

time_t byCurl(const std::string& text) { return ::curl_getdate(text.c_str(), nullptr); }

time_t byGlib(const std::string& text) {
    GDateTime* const time = g_date_time_new_from_iso8601(text.c_str(), nullptr);
    if (time == nullptr) return -1;
    const time_t seconds = g_date_time_to_unix(time);
    g_date_time_unref(time);
    return seconds;
}

/// All readers must find the same time.
void compareReaders(const std::string& name, const std::string& text, time_t expected, Peers peers,
                    const std::vector<Reader>& readers) {
    for (const Reader& reader : readers) {
        if (reader(text) != expected) std::abort();
        peers.emplace_back(std::to_string(peers.size()), [=] { benchmark::DoNotOptimize(reader(text)); });
    }
    row("1000 times " + name, peers);
}

void compareParsers(Library& library, cTimeProcs& times) {
    const Reader own = [&times](const std::string& text) {
        return secondsOf(times.InternetTimeToVbLocalTime(text));
    };
    const auto bare = [&library](const std::string& text) {
        return [text, &clock = *library.platform().clock] {
            benchmark::DoNotOptimize(clock.InternetTimeToSystemTimeA(text));
        };
    };
    const std::string gmt = "Thu, 04 Mar 2021 12:34:56 GMT", ahead = "Thu, 04 Feb 2021 12:34:56 +0100";
    compareReaders("a mail's GMT", gmt, 1614861296, {{"clock", bare(gmt)}},
                   {own, byStrptime("%a, %d %b %Y %T GMT"), byCurl, byDate("%a, %d %b %Y %T GMT")});
    compareReaders("a mail's +0100", ahead, 1612438496, {{"clock", bare(ahead)}},
                   {own, byStrptime("%a, %d %b %Y %T %z"), byCurl, byDate("%a, %d %b %Y %T %z")});
    compareReaders("ISO 8601", "2021-03-04T12:34:56Z", 1614861296, {},
                   {own, byStrptime("%FT%TZ"), byGlib, byDate("%FT%TZ")});
}

/// A time in summer and back, in the zone that TZ names, which both sides look up at each call (localtime_r
/// and timegm do not).
void compareConversions(cTimeProcs& times) {
    static time_t universal = 1625142896;
    static tm local{};
    ::tzset();
    ::localtime_r(&universal, &local);
    const double universalDate = dateOf(universal), localDate = dateOf(universal + local.tm_gmtoff);
    if (std::abs(times.UTCtoLocal(universalDate) - localDate) > 1e-9) std::abort();
    if (std::abs(times.LocalToUTC(localDate).at(0) - universalDate) > 1e-9) std::abort();

    row("1000 times from UTC",
        {{"localtime_r", [] { benchmark::DoNotOptimize(::localtime_r(&universal, &local)); }},
         {"localtime", [] { benchmark::DoNotOptimize(std::localtime(&universal)); }},
         {"UTCtoLocal",
          [&times, universalDate] { benchmark::DoNotOptimize(times.UTCtoLocal(universalDate)); }},
         {"GetTimeHere",
          [&times, universalDate] { benchmark::DoNotOptimize(times.GetTimeHere(universalDate)); }},
         {"InternetTimeToVbLocalTime", [&times] {
              benchmark::DoNotOptimize(times.InternetTimeToVbLocalTime("Thu, 04 Mar 2021 12:34:56 GMT"));
          }}});
    row("1000 times to UTC",
        {{"timegm",
          [] {
              tm time = local;
              benchmark::DoNotOptimize(::timegm(&time));
          }},
         {"mktime",
          [] {
              tm time = local;
              benchmark::DoNotOptimize(std::mktime(&time));
          }},
         {"LocalToUTC", [&times, localDate] { benchmark::DoNotOptimize(times.LocalToUTC(localDate)); }}});
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc;
    using namespace t_genproc::bench;
    benchmark::Initialize(&argc, argv);
    ::setenv("TZ", "Europe/Berlin", 1);
    World world, fixed;
    fixed.platform.clock = std::make_unique<UniversalClock>(std::move(fixed.platform.clock));
    cTimeProcs times(world.library), fixedTimes(fixed.library);

    compareParsers(fixed.library, fixedTimes);
    compareConversions(times);
    printTable(
        "| dates of mails | the clock's parser | InternetTimeToVbLocalTime | strptime | curl_getdate | date "
        "|",
        "mail");
    printTable("| ISO 8601 | InternetTimeToVbLocalTime | strptime | GLib | date |", "ISO");
    printTable(
        "| from UTC | localtime_r | localtime | UTCtoLocal | GetTimeHere | InternetTimeToVbLocalTime, a "
        "mail's GMT |",
        "from UTC");
    printTable("| to UTC | timegm | mktime | LocalToUTC |", "to UTC");
}
