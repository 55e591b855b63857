#include <array>
#include <chrono>
#include <clocale>
#include <ctime>
#include <ratio>
#include <type_traits>

#include "platform/portable/adapters.h"
#include "platform/portable/instant.h"
#include "platform/portable/internet_time.h"
#include "platform/portable/time_zone.h"
#include "platform/portable/zone_time.h"

namespace t_genproc::portable {
namespace {

using Steps = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;  // those of a FileTime
constexpr std::chrono::sys_days kFirstDay = std::chrono::year(1601) / 1 / 1;
constexpr std::uint64_t kTooLate = std::uint64_t{1} << 63;

/// The zone may have changed since the last call.
tm localTime(time_t time) {
    tm local{};
    ::tzset();
    ::localtime_r(&time, &local);
    return local;
}

using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, void (*)(locale_t)>;

/// How the user wants dates and times written. The locale of the process is the host's own affair.
Locale usersLocale() {
    locale_t found = ::newlocale(LC_TIME_MASK, "", nullptr);
    if (found == nullptr) found = ::newlocale(LC_TIME_MASK, "C", nullptr);
    return {found, &::freelocale};
}

class PortableClock final : public Clock {
   public:
    SystemTime GetLocalTime() override {
        timespec now{};
        ::clock_gettime(CLOCK_REALTIME, &now);
        const tm local = localTime(now.tv_sec);
        return {.year = static_cast<std::uint16_t>(local.tm_year + 1900),
                .month = static_cast<std::uint16_t>(local.tm_mon + 1),
                .dayOfWeek = static_cast<std::uint16_t>(local.tm_wday),
                .day = static_cast<std::uint16_t>(local.tm_mday),
                .hour = static_cast<std::uint16_t>(local.tm_hour),
                .minute = static_cast<std::uint16_t>(local.tm_min),
                .second = static_cast<std::uint16_t>(local.tm_sec),
                .milliseconds = static_cast<std::uint16_t>(now.tv_nsec / 1'000'000)};
    }

    SystemTime GetSystemTime() override {
        return systemTime(std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()));
    }

    CurrentTimeZone GetTimeZoneInformation() override {
        return zone_.at(std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()));
    }
    Outcome<SystemTime> SystemTimeToTzSpecificLocalTime(const TimeZoneInformation& zone,
                                                        const SystemTime& universal) override {
        return portable::localTime(zone, universal);
    }

    Outcome<SystemTime> InternetTimeToSystemTimeA(const std::string& text) override {
        return internetTime(text);
    }

    Outcome<FileTime> FileTimeToLocalFileTime(const FileTime& time) override {
        const Steps distance = std::chrono::seconds(localTime(::time(nullptr)).tm_gmtoff);
        const std::uint64_t local = stepsOf(time) + static_cast<std::uint64_t>(distance.count());
        if (local >= kTooLate) return {{}, SystemError::InvalidParameter};  // before 1601 as well
        return {fileTime(local)};
    }

    Outcome<SystemTime> FileTimeToSystemTime(const FileTime& time) override {
        if (stepsOf(time) >= kTooLate) return {{}, SystemError::InvalidParameter};
        const Steps steps(static_cast<std::int64_t>(stepsOf(time)));
        return {systemTime(kFirstDay + std::chrono::floor<std::chrono::milliseconds>(steps))};
    }

    std::string GetDateFormatA(const SystemTime& time) override { return format("%x", time); }
    std::string GetTimeFormatA(const SystemTime& time) override { return format("%X", time); }

   private:
    std::string format(const char* form, const SystemTime& time) {
        const bool isDate = time.year >= 1601 && time.year <= 30827 && time.month <= 12 && time.day <= 31;
        const std::chrono::year_month_day date{std::chrono::year(time.year), std::chrono::month(time.month),
                                               std::chrono::day(time.day)};
        const bool isTime = time.hour < 24 && time.minute < 60 && time.second < 60;
        if (!isDate || !date.ok() || !isTime) return {};
        tm fields{};
        fields.tm_year = time.year - 1900;
        fields.tm_mon = time.month - 1;
        fields.tm_mday = time.day;
        fields.tm_wday = static_cast<int>(std::chrono::weekday(date).c_encoding());
        fields.tm_hour = time.hour;
        fields.tm_min = time.minute;
        fields.tm_sec = time.second;
        std::array<char, 256> written{};
        return {written.data(), ::strftime_l(written.data(), written.size(), form, &fields, locale_.get())};
    }

    LocalTimeZone zone_;
    Locale locale_ = usersLocale();
};

}  // namespace

std::unique_ptr<Clock> makeClock() { return std::make_unique<PortableClock>(); }

}  // namespace t_genproc::portable
