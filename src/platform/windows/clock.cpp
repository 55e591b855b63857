#include <windows.h>

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
