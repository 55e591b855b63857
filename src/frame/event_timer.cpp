#include "frame/event_timer.h"

#include "platform/platform.h"

namespace t_genproc {
namespace {

constexpr float kSecondsPerDay = 86400;

float secondsSinceMidnight(Clock& clock) {
    const SystemTime now = clock.GetLocalTime();
    const int seconds = (now.hour * 60 + now.minute) * 60 + now.second;
    return static_cast<float>(seconds + now.milliseconds / 1000.0);
}

}  // namespace

void processEventsAfter(const Platform& platform, float& start, float interval) {
    Clock& clock = *platform.clock;
    if (secondsSinceMidnight(clock) - start > interval) {
        platform.windows->DispatchPendingMessages();
        start = secondsSinceMidnight(clock);  // a window may have been open for long
    }
    if (secondsSinceMidnight(clock) + interval > kSecondsPerDay) start = 0;
}

}  // namespace t_genproc
