/// Starting programs and waiting for them.
#pragma once

#include <cstdint>
#include <string>

#include "platform/system_error.h"

namespace t_genproc {

using ProcessHandle = std::intptr_t;

/// The handles of a started program: each is to be closed. 0 is none.
struct ProcessInformation {
    ProcessHandle process = 0;
    ProcessHandle thread = 0;
};

struct Launch {
    bool started = false;
    ProcessInformation information{};
    SystemError lastError =
        SystemError::Success;  ///< as recorded after the call, whether it succeeded or not
};

inline constexpr std::uint32_t kNormalPriority = 32;      // NORMAL_PRIORITY_CLASS
inline constexpr std::uint32_t kInfinite = 0xFFFFFFFF;    // milliseconds: as long as it takes
inline constexpr std::uint32_t kWaitObject = 0;           // what was waited for has happened
inline constexpr std::uint32_t kWaitTimeout = 258;        // it has not, within the time
inline constexpr std::uint32_t kWaitFailed = 0xFFFFFFFF;  // it cannot be waited for

class Processes {
   public:
    virtual ~Processes() = default;

    /// Starts the program that `commandLine` begins with, with the rest as its arguments, the environment and
    /// the current folder of this process. A program with a blank in its name stands in quotes; without them
    /// each blank may end the name, the first one at which a program is found does. A bare name is looked
    /// for where the system looks for programs.
    virtual Launch CreateProcessA(const std::string& commandLine, bool inheritHandles,
                                  std::uint32_t creationFlags) = 0;

    /// Waits until the program is ready for input. kWaitFailed at once where it has no windows.
    virtual std::uint32_t WaitForInputIdle(ProcessHandle process, std::uint32_t milliseconds) = 0;

    /// Waits for the end of the program. Where a wait of 0 milliseconds meets a program at work, it may first
    /// leave the processor to others, for a hundredth of a second at most.
    virtual std::uint32_t WaitForSingleObject(ProcessHandle process, std::uint32_t milliseconds) = 0;

    virtual SystemError CloseHandle(ProcessHandle handle) = 0;
};

}  // namespace t_genproc
