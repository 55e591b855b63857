#include <algorithm>

#include "frame/cGenProcs.h"
#include "frame/event_timer.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "runtime/integers.h"

namespace t_genproc {
namespace {

constexpr std::int32_t kBetweenLooks = 10;  // milliseconds

/// As a signed number, which turns negative after 24.8 days.
std::int32_t tickCount(Clock& clock) { return static_cast<std::int32_t>(clock.GetTickCount()); }

}  // namespace

void cGenProcs::DoEventsTimer(float& DoEventsStart, float interval) {
    procedure(library_, "(Class Module) cGenProcs::Sub DoEventsTimer",
              [&] { processEventsAfter(library_.platform(), DoEventsStart, interval); });
}

void cGenProcs::Delay(std::int32_t MilliSeconds) {
    procedure(library_, "(Class Module) cGenProcs::Sub Delay", [&] {
        Clock& clock = *library_.platform().clock;
        const std::int32_t start = tickCount(clock);
        while (true) {
            const std::int32_t now = tickCount(clock);
            library_.platform().windows->DispatchPendingMessages();
            const std::int32_t end = checkedAdd(start, MilliSeconds);
            const bool hasTurned = now < start;  // the end will not be seen for weeks
            if (end <= now || hasTurned) return;
            clock.Sleep(static_cast<std::uint32_t>(std::min(end - now, kBetweenLooks)));
        }
    });
}

}  // namespace t_genproc
