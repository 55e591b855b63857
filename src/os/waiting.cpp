#include "frame/GenUtil.h"
#include "frame/library.h"
#include "frame/procedure.h"

namespace t_genproc::GenUtil {
namespace {

constexpr float kSecondsPerDay = 86400;
constexpr float kPumpInterval = 0.1F;  // seconds

/// Seconds since midnight.
float timer(Clock& clock) {
    const SystemTime now = clock.GetLocalTime();
    const int seconds = (now.hour * 60 + now.minute) * 60 + now.second;
    return static_cast<float>(seconds + now.milliseconds / 1000.0);
}

/// Closes the handle whatever the host's windows do with their messages meanwhile.
struct ProcessCloser {
    Processes& processes;
    ProcessHandle process;
    ~ProcessCloser() { processes.CloseHandle(process); }
};

}  // namespace

std::int32_t LoadProcessAndWait(Library& library, const std::string& commandLine, Launch* launch) {
    return procedure(library, "(Module) GenUtil::Function LoadProcessAndWait", [&]() -> std::int32_t {
        const Launch made = library.platform().processes->CreateProcessA(commandLine, true, kNormalPriority);
        if (launch != nullptr) *launch = made;
        if (!made.started) return 0;
        WaitForTerm2(library, made.information);
        return static_cast<std::int32_t>(made.lastError);
    });
}

void WaitForTerm2(Library& library, const ProcessInformation& processInformation) {
    procedure(library, "(Module) GenUtil::Sub WaitForTerm2", [&] {
        Processes& processes = *library.platform().processes;
        const ProcessCloser closer{processes, processInformation.process};
        processes.WaitForInputIdle(processInformation.process, kInfinite);
        processes.CloseHandle(processInformation.thread);
        float start = 0;
        while (processes.WaitForSingleObject(processInformation.process, 0) == kWaitTimeout) {
            DoEventsTimer(library, start, kPumpInterval);
        }
    });
}

void DoEventsTimer(Library& library, float& DoEventsStart, float interval) {
    procedure(library, "(Module) GenUtil::Sub DoEventsTimer", [&] {
        Clock& clock = *library.platform().clock;
        if (timer(clock) - DoEventsStart > interval) {
            library.platform().windows->DispatchPendingMessages();
            DoEventsStart = timer(clock);  // a window may have been open for long
        }
        if (timer(clock) + interval > kSecondsPerDay) DoEventsStart = 0;
    });
}

}  // namespace t_genproc::GenUtil
