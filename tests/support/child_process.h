/// Processes that a test makes of itself.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace t_genproc::test {

/// Runs `body` in a process of its own.
inline pid_t start(const std::function<bool()>& body) {
    const pid_t process = ::fork();
    if (process == 0) ::_exit(body() ? 0 : 1);
    return process;
}

/// Waits for the end of a process: whether its body has given true.
inline bool succeeds(pid_t process) {
    int status = -1;
    return ::waitpid(process, &status, 0) == process && status == 0;
}

/// Gives up the rights of the administrator, where this process has them.
inline bool becomeOrdinaryUser() {
    constexpr uid_t kNobody = 65534;
    return ::getuid() != 0 || ::setuid(kNobody) == 0;
}

}  // namespace t_genproc::test
