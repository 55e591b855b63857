/// Programs started and waited for, beside the system's own calls.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ctime>
#include <iostream>
#include <stdexcept>

#include "platform/portable/portable_platform.h"
#include "ratio_table.h"

namespace t_genproc::bench {
namespace {

constexpr std::size_t kLargeProcess = std::size_t{512} << 20;
char program[] = "/bin/true";
char* words[] = {program, nullptr};

void waitFor(pid_t process) {
    int status = -1;
    if (::waitpid(process, &status, 0) != process || status != 0) throw std::runtime_error("no good end");
}

void spawnAndWait() {
    pid_t process = -1;
    ::posix_spawn(&process, program, nullptr, nullptr, words, environ);
    waitFor(process);
}

void forkAndWait() {
    const pid_t process = ::fork();
    if (process == 0) ::_exit(::execv(program, words));
    waitFor(process);
}

/// Waits of 0 milliseconds up to the end; how many it takes.
int launchAndPoll(Processes& processes, const std::string& commandLine) {
    const auto [started, information, error] = processes.CreateProcessA(commandLine, true, kNormalPriority);
    if (!started) throw std::runtime_error("no start");
    processes.CloseHandle(information.thread);
    int waits = 1;
    while (processes.WaitForSingleObject(information.process, 0) == kWaitTimeout) ++waits;
    processes.CloseHandle(information.process);
    return waits;
}

void measure(const std::string& work, Processes& processes) {
    benchmark::ClearRegisteredBenchmarks();
    compare(work + "/posix_spawn", spawnAndWait, spawnAndWait);
    compare(work + "/t_genproc", spawnAndWait, [&] { launchAndPoll(processes, "Z:\\bin\\true"); });
    compare(work + "/fork", spawnAndWait, forkAndWait);
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
}

void measureAll() {
    const Platform platform = portablePlatform({.driveC = "/"});
    std::cout << "| launch and wait | posix_spawn, waitpid | t_genproc | fork, execv, waitpid "
                 "|\n|---|---|---|---|\n";
    measure("from a small process", *platform.processes);
    std::vector<char> touched(kLargeProcess, 'x');
    benchmark::DoNotOptimize(touched.data());
    measure("from one of 512 MB", *platform.processes);

    const std::clock_t start = std::clock();
    const int waits = launchAndPoll(*platform.processes, "Z:\\bin\\sleep 1");
    const double milliseconds = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    std::cout << "\nWaiting for a second: " << waits << " waits, " << milliseconds
              << " ms of the processor.\n";
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    try {
        t_genproc::bench::measureAll();
    } catch (const std::exception& error) {
        std::cerr << "launch_bench: " << error.what() << '\n';
        return 1;
    }
}
