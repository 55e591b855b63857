#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/message_title.h"
#include "frame/procedure.h"
#include "os/cAPIprocs.h"
#include "platform/special_folders.h"
#include "runtime/errors.h"
#include "runtime/number_text.h"
#include "runtime/text.h"
#include "startup/cStartProcs.h"
#include "startup/start_trace.h"

namespace t_genproc {
namespace {

constexpr const char* kUserFolder = "Tavoru\\";
constexpr const char* kSamples = "Samples\\";
constexpr std::string_view kOldLocalSettings = "\\Application Data\\";
constexpr std::uint32_t kLow16Bits = 0xFFFF;

std::string decimal(std::uint32_t number) { return numberText(std::int64_t{number}); }

/// One start, step by step.
class Start {
   public:
    Start(Library& library, cGenProcs& procs, cAPIprocs& api, t_gencvf::ProgramState& prog,
          const std::string& usersHomePath, bool& warning)
        : library_(library),
          names_(library.application().startUp),
          procs_(procs),
          api_(api),
          prog_(prog),
          home_(usersHomePath),
          warning_(warning),
          trace_(library, procs) {}

    void run() {
        warning_ = false;
        try {
            identifySystem();
            findFolders();
            beginTrace();
            makeLocalTemp();
            makeAppData();
            noteSharedDocuments();
            makeUserFolder();
            makeDataFolder();
            makeListFolder();
            noteWarning();
            noteEnd();
        } catch (...) {
            trace_.terminate(errorDescription(guard::currentNumber()));
            throw;
        }
    }

   private:
    bool exists(const std::string& folder) { return library_.utility().FolderExists(folder); }
    static std::string answer(bool exists) { return exists ? "True" : "False"; }

    /// Whether `folder` exists, and a line that says so.
    bool noteExistence(const std::string& label, const std::string& folder) {
        const bool there = exists(folder);
        trace_.line(label + folder + " - Exists? " + answer(there));
        return there;
    }

    // ---- The system

    void identifySystem() {
        prog_.isWin9x = false;
        prog_.isWinNT = false;
        const Outcome<OsVersion> found = library_.platform().system->GetVersionExA();
        if (!found) return;
        const OsVersion& version = found.value;
        const std::string number = decimal(version.major) + "." + decimal(version.minor);
        winVersion_ = static_cast<float>(parseNumber(number).value_or(0));

        prog_.isWin9x = version.platform == VersionPlatform::Windows9x;
        prog_.isWinNT = version.platform == VersionPlatform::WindowsNT;
        if (!prog_.isWin9x && !prog_.isWinNT) return;
        prog_.osVersion = (prog_.isWin9x ? "Windows 95/98 v" : "Windows NT v") + number + " Build " +
                          decimal(version.build & kLow16Bits);
    }

    void findFolders() {
        prog_.winDir = api_.GetWindowsDir();
        prog_.winSysDir = api_.GetWindowsSysDir();
        prog_.tempPath = api_.GetWindowsTempDir();
        prog_.commonAppData = api_.GetSpecialFolder(SpecialFolder::CommonAppData, winVersion_);
        prog_.AllUserDocuments = api_.GetSpecialFolder(SpecialFolder::CommonDocuments, winVersion_);
        prog_.ThisUsersDocuments = api_.GetSpecialFolder(SpecialFolder::Personal, winVersion_);
        prog_.LocalSettingsTemp = api_.GetSpecialFolder(SpecialFolder::LocalAppData, winVersion_);
    }

    /// Old systems keep the application data beside the temporary folder, newer ones above it.
    void beginTrace() {
        const std::string firstLine = "1a - prog.LocalSettingsTemp SET AS: " + prog_.LocalSettingsTemp +
                                      "   Exists? " + answer(exists(prog_.LocalSettingsTemp));
        const std::size_t found = prog_.LocalSettingsTemp.find(kOldLocalSettings);
        if (found != std::string::npos) prog_.LocalSettingsTemp.resize(found + 1);
        trace_.begin(prog_.LocalSettingsTemp, firstLine);
    }

    // ---- Folders of the machine

    void makeLocalTemp() {
        const std::string temp = prog_.LocalSettingsTemp + "Temp\\";
        bool there = exists(temp);
        if (there) {
            trace_.line("1b - Folder " + temp + " - ALREADY EXISTS ok");
        } else {
            AddFolder(temp);
            there = exists(temp);
        }
        if (there) prog_.LocalSettingsTemp = temp;

        const std::string& folder = prog_.LocalSettingsTemp;
        if (noteExistence("1c - prog.LocalSettingsTemp CHECK: ", folder)) {
            trace_.line("1f - Folder " + folder + " - ALREADY EXISTS");
        } else {
            trace_.line("1d - " + AddFolder(folder));
            trace_.line("1e - prog.LocalSettingsTemp SET AS: " + folder);
        }
    }

    void makeAppData() {
        if (text::isBlank(prog_.commonAppData)) prog_.commonAppData = profileAppData();
        appData_ = prog_.commonAppData + names_.appDataSubPath;
        if (noteExistence("2a - appDataTavoruPath$ SET AS: ", appData_)) {
            trace_.line("2b - Folder " + appData_ + " - ALREADY EXISTS");
        } else {
            AddFolder(appData_, names_.appDataIsEssential);
        }
    }

    std::string profileAppData() {
        std::string profile = api_.GetEnvStringValue("USERPROFILE");
        if (profile.ends_with('\\')) profile.pop_back();
        return profile + "\\Application Data\\";
    }

    void noteSharedDocuments() {
        trace_.line("NOTE:");
        trace_.line("  tempAllUserDocuments$ SET AS: " + prog_.AllUserDocuments);
        trace_.line("  tempAllUserDocuments\\Documents\\: " + prog_.AllUserDocuments + "Documents\\");
        trace_.line("... Didn't actually create these anywhere");
        trace_.line("Check values returned from mAPIprocs.GetSpecialFolder: ");
        noteFolders(" - Exists? ");
    }

    void noteFolders(const std::string& question) {
        if (!trace_.isOn()) return;
        const auto note = [&](const std::string& name, const std::string& folder) {
            trace_.line("** " + name + " = " + folder + question + answer(exists(folder)));
        };
        note("prog.commonAppData", prog_.commonAppData);
        note("prog.AllUserDocuments", prog_.AllUserDocuments);
        note("prog.ThisUsersDocuments", prog_.ThisUsersDocuments);
        note("prog.LocalSettingsTemp", prog_.LocalSettingsTemp);
        note("appDataTavoruPath$", appData_);
    }

    // ---- Folders of the user

    void makeUserFolder() {
        userFolder_ = (prog_.userHomeOverride.empty() ? home_ : prog_.userHomeOverride) + kUserFolder;
        trace_.line("3a - userTavoruPath$ SET AS: " + userFolder_);
        if (exists(userFolder_)) {
            trace_.line("3b - Folder " + userFolder_ + " - ALREADY EXISTS");
        } else {
            const std::string made = addUsersFolder(userFolder_);
            if (!made.empty()) userFolder_ = made;
        }
    }

    void makeDataFolder() {
        const std::string folder = userFolder_ + "Data\\";
        if (noteExistence("4a - userTavoruPath$ & 'Data\\' SET AS: ", folder)) {
            trace_.line("4b - Folder " + folder + " - ALREADY EXISTS");
        } else if (addUsersFolder(folder) == folder) {
            bringSampleJob(folder);
        } else {
            trace_.line(folder + " not added !!");
        }
    }

    void makeListFolder() {
        const std::string folder = userFolder_ + "List\\";
        if (noteExistence("6a - userTavoruPath$\\List\\ SET AS: ", folder)) {
            trace_.line("6b - Folder " + folder + " - ALREADY EXISTS");
        } else {
            addUsersFolder(folder);
        }
    }

    /// The part of `folder` that could be made; the warning where that is not all of it.
    std::string addUsersFolder(const std::string& folder) {
        std::string made = AddFolder(folder);
        if (failures_ > 0 && made != folder) warning_ = true;
        return made;
    }

    // ---- The sample job

    void bringSampleJob(const std::string& dataFolder) {
        const std::string programFolder = registeredProgramFolder();
        if (programFolder.empty()) return;
        if (prog_.progPath.empty()) prog_.progPath = programFolder;

        const std::string samples = programFolder + kSamples;
        const std::string sampleJob = samples + names_.sampleJob;
        if (!procs_.FileExistsNonZero(sampleJob)) {
            trace_.line("5b - File does not exist: " + sampleJob + " - not copied");
        } else if (!exists(dataFolder)) {
            trace_.line("5c - Destination does not exist: " + dataFolder + ", sample files not copied");
        } else {
            trace_.line("5a - tavoruProgPath$\\Samples\\tSampleJob - Exists OK");
            noteCompletePaths(programFolder, dataFolder);
            copySampleFiles(samples, dataFolder);
        }
    }

    /// The registry's value may name a file in the program's folder.
    std::string registeredProgramFolder() {
        const auto registered = [this](std::int32_t root) {
            return api_.GetRegString(root, names_.registryKey, names_.registryValue, "");
        };
        std::string value = registered(RootKey::LocalMachine);
        if (value.empty()) value = registered(RootKey::ClassesRoot);

        std::string folder = api_.ValidateRegPath(value);
        const std::string name = names_.programFolderName + '\\';
        const std::size_t found = name.size() > 1 ? folder.find(name) : std::string::npos;
        if (found != std::string::npos) folder.resize(found + name.size());
        folder.resize(folder.find_last_of('\\') + 1);
        return folder;
    }

    void noteCompletePaths(const std::string& programFolder, const std::string& dataFolder) {
        if (!trace_.isOn()) return;
        const auto note = [this](const std::string& name, const std::string& folder) {
            noteExistence("          " + name, folder);
        };
        trace_.line("CHECK for complete paths ...");
        note("prog.progPath: ", prog_.progPath);
        note("prog.progPath\\Samples\\ SET AS: ", prog_.progPath + kSamples);
        note("tavoruProgPath$ (from Registry): ", programFolder);
        note("userTavoruPath$: ", userFolder_);
        note("userTavoruPath$\\Data\\: ", dataFolder);
    }

    void copySampleFiles(const std::string& samples, const std::string& dataFolder) {
        for (std::size_t i = 0; i < names_.sampleFiles.size(); ++i) {
            const std::string& name = names_.sampleFiles[i];
            if (i > 0 && !procs_.FileExistsNonZero(samples + name)) continue;
            raiseOnFailure(library_.platform().files->CopyFileA(samples + name, dataFolder + name));
            trace_.line(name + " copied successfully to " + dataFolder);
        }
    }

    // ---- The end

    void noteWarning() {
        if (!warning_) return;
        trace_.line("Note: Failed to create or set userTavoruPath$-related paths above (3a/4a/6a)");
        trace_.line("      - valid data path for Last Job may now be established from user's INI settings");
        trace_.line(" (cancels warning if OK)");
    }

    void noteEnd() {
        trace_.line("Check for changes (zero expected) ...");
        noteFolders(" - Exists?  ");
        trace_.line("   Plus ...");
        trace_.line("** userTavoruPath$ = " + userFolder_);
        trace_.end();
    }

    /// Makes a folder with its missing parents and gives the part of it that could be made. The first failure
    /// of a start shows a box; that of an essential folder, with the box of its own, ends the start.
    std::string AddFolder(const std::string& folderPath, bool essential = false) {
        std::int32_t error = 0;
        std::string made;
        if (procs_.CreatePath(folderPath, true, &error, &made)) {
            trace_.line("AddFolder - Created as Required (folderPath$): " + folderPath);
            return folderPath;
        }
        if (!made.empty()) made += '\\';
        ++failures_;
        trace_.line("AddFolder - Required (folderPath$): " + folderPath);
        trace_.line("AddFolder - User Homepath: " + home_);
        trace_.line("Count: " + numberText(std::int64_t{failures_}));
        trace_.line("            Resulting (pathOK$): " + made);

        const auto warn = [this](const std::string& text) {
            library_.platform().windows->MessageBoxA(text, kMessageTitle, MessageStyle::Exclamation);
        };
        if (essential) {
            warn("A required component is missing !!\r\nPlease re-install Tavoru to correct");
            throw RuntimeError(error);
        }
        if (failures_ == 1) warn("Unable to create the folder " + folderPath);
        return made;
    }

    Library& library_;
    const t_gencvf::StartUpNames names_;
    cGenProcs& procs_;
    cAPIprocs& api_;
    t_gencvf::ProgramState& prog_;
    const std::string& home_;
    bool& warning_;
    StartTrace trace_;

    float winVersion_ = 0;
    std::string appData_;
    std::string userFolder_;
    std::int32_t failures_ = 0;
};

}  // namespace

void cStartProcs::SystemConstants(t_gencvf::ProgramState& prog, const std::string& usersHomePath,
                                  bool& userTavoruPathWarning) {
    procedure(library_, "(Class Module) cStartProcs::Sub SystemConstants", [&] {
        Start(library_, *genProcs_, *apiProcs_, prog, usersHomePath, userTavoruPathWarning).run();
    });
}

}  // namespace t_genproc
