#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "platform/file_system.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr const char* kLastJobKey = "Last";
constexpr const char* kListFolder = "List\\";

}  // namespace

void cGenProcs::SaveCurrentJobName(const t_gencvf::JobItem& currentJob, const t_gencvf::ProgramState& prog) {
    procedure(library_, "(Class Module) cGenProcs::Sub SaveCurrentJobName", [&] {
        if (currentJob.jobName.empty()) return;
        INIstringSet(prog.userINIpath, library_.application().settingsSection, kLastJobKey,
                     currentJob.jobName + currentJob.jobExtension);
    });
}

void cGenProcs::ReadCurrentJobName(t_gencvf::JobItem& pJob, const std::string& userINIpath) {
    procedure(library_, "(Class Module) cGenProcs::Sub ReadCurrentJobName", [&] {
        std::string name =
            INIstringGet(userINIpath, library_.application().settingsSection, kLastJobKey, "", true);
        const std::string extension = FileNameExtn(name, &name, true);
        pJob.jobName = name;
        pJob.jobExtension = extension;
    });
}

std::string cGenProcs::SetListPath(std::int16_t ListGrouping, const std::string& mainPath,
                                   const std::string& dataPath) {
    return procedure(library_, "(Class Module) cGenProcs::Function SetListPath", [&] {
        std::string folder;
        switch (ListGrouping) {
            case 0: folder = mainPath + kListFolder; break;
            case 1: folder = dataPath + kListFolder; break;
            case 2: folder = dataPath; break;
            default: break;
        }
        if (text::isBlank(folder)) folder = mainPath + kListFolder;
        if (ListGrouping < 2 && !folderExists(*library_.platform().files, folder)) {
            makeFolder(*library_.platform().folders, folder);
        }
        return folder;
    });
}

}  // namespace t_genproc
