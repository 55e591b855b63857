#include "frame/GenUtil.h"
#include "frame/event_timer.h"
#include "frame/library.h"
#include "frame/procedure.h"

namespace t_genproc::GenUtil {
namespace {

constexpr float kPumpInterval = 0.1F;  // seconds

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
    procedure(library, "(Module) GenUtil::Sub DoEventsTimer",
              [&] { processEventsAfter(library.platform(), DoEventsStart, interval); });
}

}  // namespace t_genproc::GenUtil
