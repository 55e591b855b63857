#include "tavoru.h"

#include <stdexcept>

#include "databases.h"
#include "frame/recent_jobs_menu.h"
#include "installation.h"
#include "messages.h"
#include "office_standards.h"
#include "platform/file_system.h"
#include "runtime/errors.h"
#include "startup/cStartProcs.h"
#include "transformation_source.h"

namespace tavoru {
namespace {

constexpr std::string_view kJobExtension = ".job";
constexpr int kMenuEntries = t_genproc::RecentJobsMenu::kLastEntry + 1;

/// A form without windows. Its File menu has five entries for recent jobs, empty and hidden to begin with;
/// its status area shows the office's datum and projection.
t_genproc::ObjectPointer makeMainForm() {
    auto menu = std::make_shared<t_gencvf::MemoryControlArray>(kMenuEntries);
    for (int i = 0; i < kMenuEntries; ++i) menu->element(i).add("Caption", "").add("Visible", false);
    auto form = std::make_shared<t_gencvf::MemoryObject>();
    form->add("mnuFileRecentJobs", menu);
    for (const auto& [name, caption] : {std::pair("pnlPrompt", ""), std::pair("pnlDatumV", "GDA94"),
                                        std::pair("pnlProjection", "MGA zone 55")}) {
        const auto panel = std::make_shared<t_gencvf::MemoryObject>();
        panel->add("Caption", caption)
            .add("Visible", *caption != 0)
            .add("BackColor", 0xC0C0C0)
            .add("Tag", "");
        form->add(name, panel);
    }
    return form;
}

/// The number that a setting holds; a user may have typed anything into the file.
std::int16_t wholeNumber(const std::string& text, std::int16_t otherwise) {
    try {
        return t_genproc::toInt16(text);
    } catch (const t_genproc::RuntimeError&) {
        return otherwise;
    }
}

}  // namespace

Tavoru::Tavoru(const Places& places)
    : drive(openDrive(places.drive)),
      host(drive.platform),
      library(host, drive.platform),
      procs(library),
      preferences(officePreferences()),
      dataSettings(officeDataSettings()),
      leastSquares(officeLeastSquares()),
      mainForm(makeMainForm()) {
    start(places);
    restoreSettings();
}

void Tavoru::start(const Places& places) {
    const t_gencvf::StartUpNames& names = host.application().startUp;
    prog.progPath = drive.root + "Programs\\" + names.programFolderName + "\\";
    prog.progINIpath = prog.progPath + "tavoru.ini";
    prog.userINIpath = mainPath() + "user.ini";
    const std::string helpFolder = prog.progPath + "Help\\";
    host.helpFile(helpFolder + "Tavoru.chm");
    host.programState(prog);

    if (!library.utility().FolderExists(prog.progPath)) {
        install(library, prog.progPath, filesIn(places.samples / "Samples"));
    }
    if (!library.utility().FolderExists(helpFolder)) {
        procs.CreatePath(helpFolder);
        bringFiles(library, filesIn(places.samples / "Help"), helpFolder);
    }
    const std::filesystem::path reference = places.samples / "Reference";
    if (!procs.FileExist(transformationsPath())) {
        withDatabase(transformationsPath(), [&] {
            makeTransformations(reference / "transformations.txt", drive.platform, transformationsPath());
        });
    }
    if (!procs.FileExist(messagesPath())) {
        withDatabase(messagesPath(), [&] {
            makeMessages(readMessages(reference / "instant_help.txt"), drive.platform, messagesPath());
        });
    }
    const bool hasData = library.utility().FolderExists(dataPath());
    bool placedElsewhere = false;
    t_genproc::cStartProcs(library).SystemConstants(prog, homePath(), placedElsewhere);
    if (placedElsewhere) throw std::runtime_error("cannot make the folders in " + mainPath());
    if (!hasData) bringFiles(library, filesIn(places.samples), dataPath());
}

void Tavoru::restoreSettings() {
    const t_gencvf::Application& names = host.application();
    const auto general = [&](const std::string& key, const std::string& standard) {
        return procs.INIstringGet(prog.userINIpath, names.generalSection, key, standard, true);
    };
    preferences.Editor = general("Editor", preferences.Editor);
    preferences.ListFileGrouping = wholeNumber(general("ListFile_Grouping", "0"), 0);
    instantHelp.gDisplayIhelp(general("Instant_Help", "1") == "1");
    prog.listPath = procs.SetListPath(preferences.ListFileGrouping, mainPath(), dataPath());
    prog.programValueOne =
        procs.INIstringGet(prog.progINIpath, names.programSection, names.programKeyOne, "English");
    prog.programValueTwo =
        procs.INIstringGet(prog.progINIpath, names.programSection, names.programKeyTwo, "Metres");

    // The settings hold the bare paths; the menu's captions have "&1  " to "&5  " in front of them.
    t_genproc::RecentJobsMenu menu(mainForm);
    for (std::int16_t i = 0; i < kMenuEntries; ++i) {
        const std::string path =
            procs.INIstringGet(prog.userINIpath, names.settingsSection, std::to_string(i + 1));
        if (!path.empty()) menu.setPath(i, path);
    }
    procs.RecentJobsValidate(mainForm);

    procs.ReadCurrentJobName(job, prog.userINIpath);
    if (!job.jobExtension.empty()) job.jobExtension.insert(0, ".");  // it comes without its dot
    job.jobDataPath = dataPath();
    job.jobPath = dataPath() + job.jobName + job.jobExtension;
}

t_gencvf::JobItem Tavoru::findJob(const std::string& name) {
    std::string fileName;
    std::string folder;
    std::string driveName;
    procs.FileNameDetails(name, fileName, &folder, &driveName);

    t_gencvf::JobItem found;
    found.jobDataPath = (driveName.empty() ? dataPath() : driveName) + folder;
    if (!found.jobDataPath.ends_with('\\')) found.jobDataPath += '\\';
    found.jobExtension = procs.FileNameExtn(fileName, &found.jobName);
    if (found.jobExtension.empty()) found.jobExtension = kJobExtension;
    // As the disk spells it: to the menu, "quarry" and "Quarry" would be two jobs.
    const auto onDisk =
        drive.platform.files->FindFirstFileA(found.jobDataPath + found.jobName + found.jobExtension);
    if (onDisk && onDisk.value.size() == 1) {
        found.jobExtension = procs.FileNameExtn(onDisk.value.front().name, &found.jobName);
    }
    found.jobPath = found.jobDataPath + found.jobName + found.jobExtension;
    return found;
}

std::optional<SurveyJob> Tavoru::openJob(const std::string& name) {
    const t_gencvf::JobItem found = findJob(name);
    const std::optional<Lines> lines = readFile(found.jobPath);
    if (!lines) return std::nullopt;
    SurveyJob survey = readSurveyJob(found.jobPath, *lines);

    job = found;
    procs.RecentJobsNewItem(job, mainForm, prog);
    procs.RecentJobsValidate(mainForm);
    saveRecentJobs();
    return survey;
}

Lines Tavoru::recentJobs() const {
    Lines captions;
    const t_gencvf::LateBound form{mainForm};
    for (int i = 0; i < kMenuEntries; ++i) {
        const t_gencvf::LateBound entry = form["mnuFileRecentJobs"](i);
        if (t_genproc::toBoolean(entry["Visible"].get())) captions.push_back(entry["Caption"].text());
    }
    return captions;
}

std::string Tavoru::recentJob(std::int16_t index) const {
    return t_genproc::RecentJobsMenu(mainForm).path(index);
}

void Tavoru::removeRecentJob(std::int16_t index) {
    procs.RecentJobsClearDeleted(index, mainForm);
    procs.RecentJobsValidate(mainForm);
    saveRecentJobs();
}

void Tavoru::saveRecentJobs() {
    procs.INISettingsSave(false, false, false, false, false, true, prog, nullptr, nullptr, nullptr, nullptr,
                          nullptr, mainForm);
}

std::int16_t Tavoru::saveSettings() {
    std::int16_t changes = 0;
    procs.INISettingsSave(true, true, true, true, true, true, prog, &job, &instantHelp, &preferences,
                          &dataSettings, &leastSquares, mainForm, &changes);
    return changes;
}

std::optional<Lines> Tavoru::readFile(const std::string& fileName) {
    std::int16_t fileNo = library.files().freeFile();
    if (!procs.OpenFileForInput(fileNo, fileName)) return std::nullopt;
    Lines lines;
    while (!library.files().endOfFile(fileNo)) lines.push_back(library.files().lineInput(fileNo));
    procs.CloseFile(fileNo);
    return lines;
}

}  // namespace tavoru
