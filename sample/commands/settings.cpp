// The settings files and the error log.

#include "commands/commands.h"
#include "runtime/text.h"
#include "screen.h"

namespace tavoru {
namespace {

/// Shows a file as it stands; one that is not there yet is empty.
void showFile(Tavoru& tavoru, const std::string& fileName) {
    if (!tavoru.procs.FileExistsNonZero(fileName)) return;
    if (const auto lines = tavoru.readFile(fileName)) print(*lines);
}

int showSettings(const Places& places, const Arguments& /*arguments*/) {
    Tavoru tavoru(places);
    print({"; " + tavoru.prog.userINIpath});
    showFile(tavoru, tavoru.prog.userINIpath);
    print({"", "; " + tavoru.prog.progINIpath});
    showFile(tavoru, tavoru.prog.progINIpath);
    return 0;
}

/// One section is program-wide, all others are the user's.
const std::string& fileOfSection(Tavoru& tavoru, const std::string& section) {
    const std::string& programWide = tavoru.host.application().programSection;
    return t_genproc::text::equalIgnoringCase(section, programWide) ? tavoru.prog.progINIpath
                                                                    : tavoru.prog.userINIpath;
}

int getSetting(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    const std::string& file = fileOfSection(tavoru, arguments[0]);
    print({tavoru.procs.INIstringGet(file, arguments[0], arguments[1])});
    return 0;
}

int setSetting(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    const std::string& file = fileOfSection(tavoru, arguments[0]);
    if (!tavoru.procs.INIstringSet(file, arguments[0], arguments[1], arguments[2])) {
        throw std::runtime_error(file + " does not take the setting");
    }
    return 0;
}

int showLog(const Places& places, const Arguments& /*arguments*/) {
    Tavoru tavoru(places);
    showFile(tavoru, tavoru.logPath());
    return 0;
}

}  // namespace

std::span<const Command> settingsCommands() {
    static constexpr Command kCommands[] = {
        {"settings", "Show both settings files", showSettings},
        {"setting get SECTION KEY", "Show one setting", getSetting},
        {"setting set SECTION KEY [VALUE]", "Change a setting; without VALUE it becomes empty", setSetting},
        {"log", "Show the error log", showLog},
    };
    return kCommands;
}

}  // namespace tavoru
