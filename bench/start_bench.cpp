/// A start with everything in place, beside the questions to the system that it cannot do without.
#include <dirent.h>
#include <sys/stat.h>

#include <cstdlib>
#include <iostream>

#include "folder.h"
#include "frame/library.h"
#include "host.h"
#include "platform/portable/portable_platform.h"
#include "ratio_table.h"
#include "startup/cStartProcs.h"

namespace t_genproc::bench {
namespace {

constexpr const char* kUser = "Surveyor";

/// One status for each folder, as often as the start asks for it, and one for the marker file of the trace;
/// that one is missing, so its folder is searched for another spelling of it.
void askBare(const std::string& drive) {
    static const std::string user = drive + "/Users/" + kUser, local = user + "/AppData/Local";
    static const std::string asked[] = {drive + "/Windows",
                                        drive + "/Windows/System32",
                                        local + "/Temp",
                                        drive + "/ProgramData",
                                        drive + "/Users/Public/Documents",
                                        user + "/Documents",
                                        local,
                                        local,
                                        local + "/TestFile - SystemConstants.txt",
                                        local + "/Temp",
                                        local + "/Temp",
                                        drive + "/ProgramData/Tavoru",
                                        user + "/Tavoru",
                                        user + "/Tavoru/Data",
                                        user + "/Tavoru/List"};
    struct stat status {};
    for (const std::string& path : asked) benchmark::DoNotOptimize(::stat(path.c_str(), &status));
    DIR* const folder = ::opendir(local.c_str());
    while (const dirent* entry = ::readdir(folder)) benchmark::DoNotOptimize(entry);
    ::closedir(folder);
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc;
    using namespace t_genproc::bench;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    const Folder folder;
    const std::string drive = folder.file("drive_c");
    Platform platform = portablePlatform({.driveC = drive, .userName = kUser});
    bench::Host host(platform);
    host.names.startUp.appDataSubPath = "Tavoru\\";
    Library library(host, platform);
    cStartProcs startProcs(library);
    t_gencvf::ProgramState prog;
    bool warning = false;
    const auto start = [&] {
        startProcs.SystemConstants(prog, std::string("C:\\Users\\") + kUser + "\\", warning);
    };
    start();
    if (warning || !std::filesystem::exists(drive + "/Users/Surveyor/Tavoru/List")) std::abort();
    if (std::getenv("T_GENPROC_ONE_START") != nullptr) return start(), 0;  // to count its calls with strace

    compare(
        "start/system calls alone", [&] { askBare(drive); }, [&] { askBare(drive); });
    compare(
        "start/SystemConstants", [&] { askBare(drive); }, start);
    std::cout << "| | system calls alone | SystemConstants |\n|---|---|---|\n";
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
}
