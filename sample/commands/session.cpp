// Two days with the application. All that is shown comes from the library at that moment.

#include <algorithm>
#include <iostream>

#include "commands/commands.h"
#include "commands/session_chapters.h"
#include "frame/GenUtil.h"
#include "job_header.h"
#include "listing.h"
#include "os/cAPIprocs.h"
#include "runtime/errors.h"
#include "screen.h"
#include "transformations.h"

namespace tavoru {
namespace {

namespace fs = std::filesystem;

// ---- Showing

void open(Tavoru& tavoru, const std::string& name) {
    const auto survey = tavoru.openJob(name);
    if (!survey) throw std::runtime_error("the session has no job " + name);
    show(jobLines(tavoru.job, *survey));
    show(menuLines(tavoru));
}

/// A settings file, the keys of each section side by side.
void showSettingsFile(Tavoru& tavoru, const std::string& fileName) {
    const Lines file = tavoru.readFile(fileName).value();
    Lines shown{fileName};
    for (auto line = file.begin(); line != file.end();) {
        shown.push_back(*line++);  // the section's name
        const auto next =
            std::find_if(line, file.end(), [](const auto& text) { return text.starts_with('['); });
        for (const std::string& row : inColumns({line, next})) shown.push_back("  " + row);
        line = next;
    }
    show(shown);
}

/// Does what must fail, and shows the error and the way that it took.
template <class Action>
void showFailure(Tavoru& tavoru, Action action) {
    try {
        action();
    } catch (const t_genproc::RuntimeError& error) {
        Lines lines{"Error " + std::to_string(error.number()) + ": " + std::string(error.description())};
        for (const ErrorStep& step : tavoru.host.takeErrorTrail()) {
            lines.push_back("  came from  " + step.source);
            lines.push_back("  and left   " + step.procedure);
        }
        show(lines);
        return;
    }
    throw std::runtime_error("the session expected a failure");
}

// ---- The chapters

/// The folders below `folder`, or the files there with their lengths.
Lines driveLines(const Tavoru& tavoru, const std::string& folder, bool folders) {
    Lines lines;
    for (const Listed& entry : listing(*tavoru.drive.platform.files, folder)) {
        if (entry.isFolder() != folders) continue;
        lines.push_back(entry.path + (folders ? "" : "  " + std::to_string(entry.size) + " bytes"));
    }
    return lines;
}

void installation(Tavoru& tavoru, const fs::path& drive) {
    heading("The installation");
    tell("The drive is new: the folder " + drive.string() + R"(. The setup makes the program's folder, with
         a sample job in it, and enters it in the registry.)");
    show(driveLines(tavoru, tavoru.prog.progPath + "Samples\\", false));
    const t_gencvf::StartUpNames& names = tavoru.host.application().startUp;
    t_genproc::cAPIprocs system(tavoru.library);
    for (const auto& [root, name] : {std::pair(t_genproc::RootKey::LocalMachine, "HKEY_LOCAL_MACHINE\\"),
                                     std::pair(t_genproc::RootKey::ClassesRoot, "HKEY_CLASSES_ROOT\\")}) {
        const std::string value = system.GetRegString(root, names.registryKey, names.registryValue, "");
        if (!value.empty()) show({name + names.registryKey + ", " + names.registryValue, "  " + value});
    }
}

void firstStart(Tavoru& tavoru) {
    heading("The first start");
    tell(R"(Tavoru asks the library for what depends on the machine and the user, and it fills the members of
         the program's record. On Windows these folders are the user's real ones, elsewhere they are on the
         drive.)");
    show(recordLines(tavoru.prog));
    tell("These folders are on the drive now.");
    show(driveLines(tavoru, tavoru.drive.root, true));
    tell(R"(The data folder is new, so the library has copied the sample job with its two companions. Tavoru
         itself has brought the six jobs of the office.)");
    show(driveLines(tavoru, tavoru.dataPath(), false));
    tell("The surveyor adds a line of their own to the notes of the sample job.");
    const std::int16_t fileNo = tavoru.library.files().freeFile();
    tavoru.library.files().openForAppend(fileNo, tavoru.dataPath() + "tSampleNotes.txt");
    tavoru.library.files().printLine(fileNo, "Peg A3 leans a little.");
    tavoru.library.files().close(fileNo);
}

void secondStart(const Places& places) {
    heading("The second start");
    const Drive drive = openDrive(places.drive);
    const std::vector<Listed> before = listing(*drive.platform.files, drive.root);
    const Tavoru tavoru(places);
    const std::vector<Listed> after = listing(*drive.platform.files, drive.root);
    const auto isOld = [&](const Listed& entry) { return std::ranges::find(before, entry) != before.end(); };
    tell(R"(Tavoru starts once more. Its folders are there, so the library makes none and copies nothing, and
         the surveyor's line in the notes stays.)");
    show({
        "folders and files on the drive before it   " + std::to_string(before.size()),
        "after it                                   " + std::to_string(after.size()),
        "with the same name, length and time        " + std::to_string(std::ranges::count_if(after, isOld)),
    });
}

void openJobs(Tavoru& tavoru) {
    heading("Six jobs");
    tell(R"(The surveyor opens Quarry. Tavoru shows how well it closes, and puts it on top of the recent jobs
         in the File menu, where its digit opens it again.)");
    open(tavoru, "Quarry");
    tell("Harbour is next: levels along the harbour wall.");
    open(tavoru, "Harbour");
    tell("Then Church, for the triangles around its spire.");
    open(tavoru, "Church");
    tell("Ridge has satellite baselines, up in the mountains.");
    open(tavoru, "Ridge");
    tell("Dam is levelled every spring, to see whether it moves. The menu is full now.");
    open(tavoru, "Dam");
    tell("Tunnel is the sixth. The menu holds five, so Quarry, the oldest, drops off.");
    open(tavoru, "Tunnel");
}

void tidyMenu(Tavoru& tavoru) {
    heading("The menu follows the work");
    tell("The surveyor presses 4 to go back to Church, and Church moves to the top.");
    open(tavoru, tavoru.recentJob(3));
    tell("Harbour is finished. The surveyor takes it off the menu.");
    tavoru.removeRecentJob(4);
    show(menuLines(tavoru));
}

void completeJobHeader(Tavoru& tavoru) {
    heading("The options of a job");
    tell(
        R"(Church will be adjusted by least squares. It has no data header yet, so Tavoru makes one beside the
         job, a record with empty fields, and the library fills them from the surveyor's options. A second
         time it finds nothing to fill.)");
    const CompletedHeader first = completeHeader(tavoru, false, true);
    const CompletedHeader second = completeHeader(tavoru, false, true);
    Lines lines{first.fileName};
    lines.insert(lines.end(), first.fields.begin(), first.fields.begin() + 5);
    lines.push_back("  and so on: " + std::to_string(first.changes) + " fields changed, " +
                    std::to_string(second.changes) + " the second time");
    show(lines);
}

void describeTransformations(Tavoru& tavoru) {
    heading("From one datum to another");
    tell(R"(A neighbour's coordinates are on another datum. The setup has left a database of published
         transformations in the program's folder, and the library describes them. Here is one of each kind.)");
    TransformationTables tables(tavoru);
    t_genproc::Variant shownKind;
    for (; !tables.transformations->atEnd(); tables.transformations->moveNext()) {
        const t_genproc::Variant kind = tables.transformations->get("TransType");
        if (kind == shownKind) continue;
        auto report = tables.report(false);
        if (!report.copyright.empty()) report.lines.push_back(report.copyright);
        show(report.lines);
        shownKind = kind;
    }
}

void chooseListFolder(Tavoru& tavoru) {
    heading("A folder for the list files");
    tell(R"(Results go into list files, and there are three places for these. The surveyor looks at all of
         them, and at what a choice that does not exist would give.)");
    const auto folder = [&](std::int16_t grouping) {
        return tavoru.procs.SetListPath(grouping, tavoru.mainPath(), tavoru.dataPath());
    };
    show({
        "0  all together       " + folder(0),
        "1  beside the jobs    " + folder(1),
        "2  among the jobs     " + folder(2),
        "7  no such choice     " + folder(7),
    });
    tell("The surveyor takes number 1. Its folder was missing a moment ago: asking for it has made it.");
    tavoru.preferences.ListFileGrouping = 1;
    tavoru.prog.listPath = folder(1);
}

void saveSettings(Tavoru& tavoru) {
    heading("Saving the settings");
    const std::int16_t programWide = tavoru.saveSettings();
    tell(
        R"(Time to save, all six groups. What concerns everybody goes into the program's file, and the library
         counts the writes to it: )" +
        std::to_string(programWide) + ".");
    showSettingsFile(tavoru, tavoru.prog.progINIpath);
    tell(
        "Everything else is the surveyor's own: the list folder, the last job, the menu, and the standards.");
    showSettingsFile(tavoru, tavoru.prog.userINIpath);
}

void noteFailure(Tavoru& tavoru) {
    heading("When something fails");
    const std::string geoidFile = tavoru.dataSettings.GeoidFile;
    tell("The settings name a geoid model, " + geoidFile +
         R"(, that nobody has installed, so the system cannot
         open it. No message interrupts the work. The library adds a line to the error log, with the code that
         the host has set for such failures: 2 to the power of 4.)");
    const auto opened =
        tavoru.drive.platform.files->CreateFileA(tavoru.prog.progPath + geoidFile, t_genproc::FileUse::Read);
    tavoru.prog.errorLogCode = 4;
    const std::string code = std::to_string(static_cast<std::uint32_t>(opened.error));
    t_genproc::GenUtil::WriteDLLerror(tavoru.library, "Error in CreateFileA, " + geoidFile + ": code " + code,
                                      tavoru.prog);
    show({tavoru.readFile(tavoru.logPath()).value().back()});
}

void raiseErrors(Tavoru& tavoru) {
    tell(
        R"(Then the surveyor asks for list files beside the jobs of 2019, a folder that was deleted long ago. The
         library raises an error, and tells the host where it came from and which procedure it left.)");
    showFailure(tavoru, [&] {
        tavoru.procs.SetListPath(1, tavoru.mainPath(), tavoru.drive.root + "Archive\\2019\\");
    });
    tell(
        R"(An error that leaves two procedures, one within the other, is reported twice. Here the settings are
         saved while the host's count of changes stands at 32767, the most that 16 bits hold.)");
    showFailure(tavoru, [&] {
        std::int16_t changes = 32767;
        tavoru.procs.INISettingsSave(false, true, false, false, false, false, tavoru.prog, nullptr, nullptr,
                                     nullptr, nullptr, nullptr, nullptr, &changes);
    });
}

void nextMorning(const Places& places) {
    heading("The next morning");
    Tavoru tavoru(places);
    const std::string lastJob = tavoru.job.jobName + tavoru.job.jobExtension;
    tell("Tavoru starts again. The settings name " + lastJob +
         R"( as the last job, so it is opened once more, and the menu is as the surveyor left it.)");
    open(tavoru, lastJob);
    tell("At the end of this day Tavoru writes its settings back, " + std::to_string(tavoru.saveSettings()) +
         " of them into the program's file, and shuts down.");
    tell("Now it is your turn: the drive stays as it is.");
    show({"./run open Dam", "./run transform list", "./run folders", "./run --help"});
}

/// What Tavoru and the library's portable adapters make on a drive.
constexpr const char* kOnTheDrive[] = {
    "Programs", "ProgramData", "Program Files", "Program Files (x86)", "Users", "Windows",
};

/// Empties the drive, unless it is one that Tavoru has not made.
void makeDriveAfresh(const fs::path& drive) {
    if (!fs::exists(drive) || fs::is_empty(drive)) return;
    const auto isOurs = [](const fs::directory_entry& entry) {
        return std::ranges::find(kOnTheDrive, entry.path().filename()) != std::end(kOnTheDrive);
    };
    if (!fs::exists(drive / "Programs" / "Tavoru Survey") ||
        !std::all_of(fs::directory_iterator(drive), fs::directory_iterator(), isOurs)) {
        throw std::runtime_error(drive.string() + " holds other files: the session needs a drive of its own");
    }
    for (const char* name : kOnTheDrive) fs::remove_all(drive / name);
}

int session(const Places& places, const Arguments& /*arguments*/) {
    makeDriveAfresh(places.drive);
    {
        Tavoru tavoru(places);
        installation(tavoru, places.drive);
        firstStart(tavoru);
    }
    secondStart(places);
    {
        Tavoru tavoru(places);
        openJobs(tavoru);
        tidyMenu(tavoru);
        completeJobHeader(tavoru);
        describeTransformations(tavoru);
        readHelp(tavoru);
        fitAndPrompt(tavoru);
        printReport(tavoru);
        chooseListFolder(tavoru);
        saveSettings(tavoru);
        noteFailure(tavoru);
        raiseErrors(tavoru);
        compareTimes(tavoru);
    }
    nextMorning(places);
    return 0;
}

}  // namespace

std::span<const Command> sessionCommands() {
    static constexpr Command kCommands[] = {
        {"session", "Two days with the application, on a new drive (the default)", session},
    };
    return kCommands;
}

}  // namespace tavoru
