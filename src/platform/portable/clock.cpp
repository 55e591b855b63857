#include <array>
#include <chrono>
#include <clocale>
#include <ctime>
#include <ratio>
#include <thread>
#include <type_traits>

#include "platform/portable/adapters.h"
#include "platform/portable/instant.h"
#include "platform/portable/internet_time.h"
#include "platform/portable/time_zone.h"
#include "platform/portable/zone_time.h"

namespace t_genproc::portable {
namespace {

namespace chrono = std::chrono;

using Steps = chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;  // those of a FileTime
constexpr chrono::sys_days kFirstDay = chrono::year(1601) / 1 / 1;
constexpr std::uint64_t kTooLate = std::uint64_t{1} << 63;

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
        const auto now = chrono::floor<chrono::milliseconds>(chrono::system_clock::now());
        return systemTime(now + zone_.offsetAt(chrono::floor<chrono::seconds>(now)));
    }
    SystemTime GetSystemTime() override {
        return systemTime(chrono::floor<chrono::milliseconds>(chrono::system_clock::now()));
    }

    std::uint32_t GetTickCount() override {
        timespec time{};
#ifdef CLOCK_BOOTTIME
        ::clock_gettime(CLOCK_BOOTTIME, &time);  // goes on while the system sleeps
#else
        ::clock_gettime(CLOCK_MONOTONIC, &time);
#endif
        const auto seconds = static_cast<std::uint64_t>(time.tv_sec);
        return static_cast<std::uint32_t>(seconds * 1000 +
                                          static_cast<std::uint64_t>(time.tv_nsec) / 1'000'000);
    }
    void Sleep(std::uint32_t milliseconds) override {
        std::this_thread::sleep_for(chrono::milliseconds(milliseconds));
    }

    CurrentTimeZone GetTimeZoneInformation() override {
        return zone_.at(chrono::floor<chrono::seconds>(chrono::system_clock::now()));
    }
    Outcome<SystemTime> SystemTimeToTzSpecificLocalTime(const TimeZoneInformation& zone,
                                                        const SystemTime& universal) override {
        return portable::localTime(zone, universal);
    }

    Outcome<SystemTime> InternetTimeToSystemTimeA(const std::string& text) override {
        return internetTime(text);
    }

    Outcome<FileTime> FileTimeToLocalFileTime(const FileTime& time) override {
        const Steps distance = zone_.offsetAt(chrono::floor<chrono::seconds>(chrono::system_clock::now()));
        const std::uint64_t local = stepsOf(time) + static_cast<std::uint64_t>(distance.count());
        if (local >= kTooLate) return {{}, SystemError::InvalidParameter};  // before 1601 as well
        return {fileTime(local)};
    }

    Outcome<SystemTime> FileTimeToSystemTime(const FileTime& time) override {
        if (stepsOf(time) >= kTooLate) return {{}, SystemError::InvalidParameter};
        const Steps steps(static_cast<std::int64_t>(stepsOf(time)));
        return {systemTime(kFirstDay + chrono::floor<chrono::milliseconds>(steps))};
    }

    std::string GetDateFormatA(const SystemTime& time) override { return format("%x", time); }
    std::string GetTimeFormatA(const SystemTime& time) override { return format("%X", time); }

   private:
    std::string format(const char* form, const SystemTime& time) {
        const bool isDate = time.year >= 1601 && time.year <= 30827 && time.month <= 12 && time.day <= 31;
        const chrono::year_month_day date{chrono::year(time.year), chrono::month(time.month),
                                          chrono::day(time.day)};
        const bool isTime = time.hour < 24 && time.minute < 60 && time.second < 60;
        if (!isDate || !date.ok() || !isTime) return {};
        tm fields{};
        fields.tm_year = time.year - 1900;
        fields.tm_mon = time.month - 1;
        fields.tm_mday = time.day;
        fields.tm_wday = static_cast<int>(chrono::weekday(date).c_encoding());
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
