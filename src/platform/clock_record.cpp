#include "platform/clock_record.h"

#include <chrono>

#include "runtime/date_value.h"

namespace t_genproc {

double dateValue(const SystemTime& time) {
    return dateValue(CivilTime{time.year, time.month, time.day, time.hour, time.minute, time.second});
}

SystemTime systemTime(double dateValue) {
    const CivilTime time = civilTime(dateValue);
    const auto narrow = [](auto number) { return static_cast<std::uint16_t>(number); };
    const std::chrono::sys_days day = std::chrono::year{time.year} / time.month / time.day;
    return {.year = narrow(time.year),
            .month = narrow(time.month),
            .dayOfWeek = narrow(std::chrono::weekday{day}.c_encoding()),
            .day = narrow(time.day),
            .hour = narrow(time.hour),
            .minute = narrow(time.minute),
            .second = narrow(time.second),
            .milliseconds = 0};
}

}  // namespace t_genproc
