#include <windows.h>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

static_assert(sizeof(void*) != 4 || sizeof(STARTUPINFOA) == 68);

HANDLE systemHandle(ProcessHandle handle) { return reinterpret_cast<HANDLE>(handle); }
ProcessHandle processHandle(HANDLE handle) { return reinterpret_cast<ProcessHandle>(handle); }

class WindowsProcesses final : public Processes {
   public:
    Launch CreateProcessA(const std::string& commandLine, bool inheritHandles,
                          std::uint32_t creationFlags) override {
        auto line = toAnsi(commandLine);
        if (!line) return {.lastError = SystemError::InvalidParameter};
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        ::SetLastError(ERROR_SUCCESS);
        const BOOL succeeded = ::CreateProcessA(nullptr, line->data(), nullptr, nullptr, inheritHandles,
                                                creationFlags, nullptr, nullptr, &startup, &started);
        return {.started = succeeded != FALSE,
                .information = {processHandle(started.hProcess), processHandle(started.hThread)},
                .lastError = lastError()};
    }

    std::uint32_t WaitForInputIdle(ProcessHandle process, std::uint32_t milliseconds) override {
        return ::WaitForInputIdle(systemHandle(process), milliseconds);
    }

    std::uint32_t WaitForSingleObject(ProcessHandle process, std::uint32_t milliseconds) override {
        return ::WaitForSingleObject(systemHandle(process), milliseconds);
    }

    SystemError CloseHandle(ProcessHandle handle) override {
        return ::CloseHandle(systemHandle(handle)) ? SystemError::Success : lastError();
    }
};

}  // namespace

std::unique_ptr<Processes> makeProcesses() { return std::make_unique<WindowsProcesses>(); }

}  // namespace t_genproc
