#include <gtest/gtest.h>
#include <pty.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>

#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

struct PortableProcessesTest : testing::Test {
    PortableProcessesTest() { system.platform.folders->SetCurrentDirectoryA(system.path("")); }
    /// How the start or the waits, up to `looks` of 0 ms, turn out, and what stands in the file "out" then.
    std::string run(const std::string& commandLine, int looks = 1000) {
        const auto [started, program, error] = processes.CreateProcessA(commandLine, true, 0);
        if (!started) return std::to_string(static_cast<int>(error));
        while (processes.WaitForSingleObject(program.thread, 0) == kWaitTimeout && looks > 0) --looks;
        const auto answer = processes.WaitForSingleObject(program.process, 0);
        for (const ProcessHandle handle : {program.process, program.thread}) processes.CloseHandle(handle);
        return std::to_string(answer) + ' ' + system.read(system.path("out"));
    }
    test::PlatformUnderTest system;
    Processes& processes = *system.platform.processes;
};

TEST_F(PortableProcessesTest, StartTheRightProgramWithNothingOfThisOne) {
    sigset_t all, before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &before);
    std::signal(SIGPIPE, SIG_IGN);
    const int leak = ::dup(STDERR_FILENO);
    const std::string here = std::filesystem::canonical(system.onDisk(".")).string();
    const std::pair<std::string, std::string> rows[] = {
        {R"(sh -c "mkdir a; echo '#!/bin/sh' >plain; echo 'echo $0 $* >out' >>plain; cp plain 'a b'")",
         "0 none"},
        {R"(sh -c "cp plain 'a b c.exe'; chmod +x a*")", "0 none"},
        {"a b c", "0 " + here + "/a b c\n"},
        {"  C:A B\tc", "0 " + here + "/a b c\n"},
        {"\"c:\\Work\\A b C\" d", "0 " + here + "/a b c.exe d\n"},
        {"plain", "5"},
        {R"(z:/bin/SH -c "exec ls /proc/self/fd >out")", "0 0\n1\n2\n3\n"},  // 3: of ls itself
        // Signals 1 to 28: the C library keeps some of the others to itself.
        {R"(sh -c "exec sed -n 's/Sig[BI].*\(.......\)$/\1/p' /proc/self/status >out")",
         "0 0000000\n0000000\n"},
        {"rm -r " + here, "0 none"},
        {"sh", "267"}};
    for (const auto& [commandLine, outcome] : rows) EXPECT_EQ(run(commandLine), outcome) << commandLine;
    ::close(leak);
    std::signal(SIGPIPE, SIG_DFL);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(PortableProcessesTest, SeeEveryEndAsleep) {
    const std::clock_t begin = std::clock();
    const itimerval often{{0, 1000}, {0, 1000}}, never{};
    std::signal(SIGALRM, [](int) {});
    ::setitimer(ITIMER_REAL, &often, nullptr);
    EXPECT_EQ(run(R"(sh -c "sleep 0.2; kill -9 $$")"), "0 none");
    EXPECT_EQ(::kill(std::stoi(run(R"(sh -c "sleep 60 & echo $! >out")").substr(2)), SIGKILL), 0);
    std::signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(run(R"(sh -c "sleep 0.2; echo 1 >out")"), "0 1\n");
    std::signal(SIGCHLD, SIG_DFL);
    ::setitimer(ITIMER_REAL, &never, nullptr);
    EXPECT_EQ(run("sleep 0.4", 10), "258 1\n");
    EXPECT_LT(std::clock() - begin, CLOCKS_PER_SEC / 4);  // of more than half a second
    siginfo_t info;
    EXPECT_EQ(::waitid(P_ALL, 0, &info, WEXITED | WNOWAIT), 0);
    processes.CloseHandle(0);  // any call lets the system forget it, though nobody holds its handles
    EXPECT_EQ(::waitid(P_ALL, 0, &info, WEXITED | WNOWAIT), -1);
}

TEST_F(PortableProcessesTest, OutliveTheTerminal) {
    int terminal = -1;
    const pid_t session = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (session == 0) {
        std::signal(SIGHUP, SIG_IGN);
        ::_exit(run(R"(sh -c "trap '' HUP; echo; sleep 0.2; echo 1 >out")") == "0 1\n" ? 0 : 1);
    }
    char byte = 0;
    EXPECT_EQ(::read(terminal, &byte, 1), 1);  // by now the program runs
    ::close(terminal);
    int status = -1;
    EXPECT_EQ(::waitpid(session, &status, 0), session);
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace t_genproc
