#include "installation.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "frame/cGenProcs.h"
#include "os/cAPIprocs.h"
#include "runtime/errors.h"

namespace tavoru {
namespace {

namespace fs = std::filesystem;
namespace RootKey = t_genproc::RootKey;

/// Below it, HKEY_CLASSES_ROOT shows what is this user's own.
constexpr const char* kClassesOfUser = "Software\\Classes\\";

}  // namespace

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

void bringFiles(t_genproc::Library& library, const std::vector<fs::path>& files, const std::string& folder) {
    t_genproc::cGenProcs procs(library);
    for (const fs::path& file : files) {
        std::ifstream from(file);
        std::int16_t fileNo = library.files().freeFile();
        procs.OpenFileForOutput(fileNo, folder + file.filename().string());
        for (std::string line; std::getline(from, line);) library.files().printLine(fileNo, line);
        procs.CloseFile(fileNo);
    }
}

void install(t_genproc::Library& library, const std::string& programFolder,
             const std::vector<fs::path>& samples) {
    const t_gencvf::StartUpNames& names = library.application().startUp;
    const auto enter = [&](std::int32_t root, const std::string& key) {
        return t_genproc::cAPIprocs(library).SetRegString(root, key, names.registryValue, programFolder,
                                                          true);
    };
    if (!enter(RootKey::LocalMachine, names.registryKey) &&
        !enter(RootKey::CurrentUser, kClassesOfUser + names.registryKey)) {
        throw std::runtime_error("the registry does not take the program's folder");
    }

    const std::string sampleFolder = programFolder + "Samples\\";
    std::int32_t error = 0;
    if (!t_genproc::cGenProcs(library).CreatePath(sampleFolder, true, &error)) {
        throw std::runtime_error("cannot make the folder " + sampleFolder + ": " +
                                 std::string(t_genproc::errorDescription(error)));
    }
    bringFiles(library, samples, sampleFolder);
}

}  // namespace tavoru
