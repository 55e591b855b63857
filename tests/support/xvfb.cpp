#include "support/xvfb.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace t_genproc::test {

Xvfb::Xvfb(const std::string& name) {
    const std::string command = "exec Xvfb " + name +
                                " -displayfd 1 -nolisten tcp -noreset -screen 0 1920x1080x24"
                                " -screen 1 320x240x16 -screen 2 320x240x8 2>/dev/null";
    int ends[2]{-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) return;
    process_ = ::fork();
    if (process_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        ::dup2(ends[1], STDOUT_FILENO);  // where it tells its number
        ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        ::_exit(1);
    }
    ::close(ends[1]);
    for (char digit = 0; ::read(ends[0], &digit, 1) == 1 && digit != '\n';) name_ += digit;
    ::close(ends[0]);
}

Xvfb::~Xvfb() {
    if (process_ <= 0) return;
    ::kill(process_, SIGTERM);
    ::waitpid(process_, nullptr, 0);
}

const std::string& displayOfTests() {
    static const Xvfb display;
    return display.name();
}

}  // namespace t_genproc::test
