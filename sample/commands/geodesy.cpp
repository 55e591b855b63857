// Datum transformations, spheroids, geoid models, and the header of a job.

#include <algorithm>
#include <functional>
#include <iomanip>
#include <iostream>

#include "commands/commands.h"
#include "job_header.h"
#include "screen.h"
#include "transformations.h"

namespace tavoru {
namespace {

using t_genproc::toText;

// ---- Transformations and spheroids

int listTransformations(const Places& places, const Arguments& /*arguments*/) {
    Tavoru tavoru(places);
    TransformationTables tables(tavoru);
    t_gencvf::RecordSet& table = *tables.transformations;
    for (; !table.atEnd(); table.moveNext()) {
        std::cout << std::right << std::setw(2) << toText(table.get("Number")) << "  " << std::left
                  << std::setw(11) << toText(table.get("DatumFrom")) << "to " << std::setw(12)
                  << toText(table.get("DatumTo")) << tables.report(true).lines.front() << '\n';
    }
    return 0;
}

/// Writes the report into a file on the drive; a name without a drive is one in the list folder.
void writeReport(Tavoru& tavoru, const TransformationTables::Report& report, const std::string& name) {
    const std::string fileName = name.find(':') == std::string::npos ? tavoru.prog.listPath + name : name;
    std::int16_t fileNo = tavoru.library.files().freeFile();
    tavoru.procs.OpenFileForOutput(fileNo, fileName);
    for (const std::string& line : report.lines) tavoru.library.files().printLine(fileNo, line);
    if (!report.copyright.empty()) tavoru.library.files().printLine(fileNo, report.copyright);
    tavoru.procs.CloseFile(fileNo);
    print({fileName});
}

int showTransformation(const Places& places, const Arguments& arguments) {
    if (arguments[0].size() > 6 || arguments[0].find_first_not_of("0123456789") != std::string::npos) {
        throw WrongUse("transform show: " + arguments[0] + " is no number of a transformation");
    }
    Tavoru tavoru(places);
    TransformationTables tables(tavoru);
    if (!tables.transformations->seek(t_gencvf::SeekComparison::Equal, arguments[0])) {
        throw std::runtime_error("there is no transformation " + arguments[0]);
    }
    if (arguments[1].empty()) {
        print(tables.report(false).lines);
    } else {
        writeReport(tavoru, tables.report(true), arguments[1]);
    }
    return 0;
}

int showSpheroid(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    const TransformationTables tables(tavoru);
    bool found = false;
    const std::string spheroid =
        tavoru.procs.GetSpheroidForDatum(arguments[0], tables.datums, tables.spheroids, found);
    print({spheroid});
    return found || spheroid == "PLANE" ? 0 : 1;
}

// ---- The header of a job

int showHeader(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    if (!tavoru.openJob(arguments[0])) return 1;
    const CompletedHeader header = completeHeader(tavoru, !arguments[1].empty(), !arguments[2].empty());
    print({header.fileName + (header.isNew ? ", new" : ""), "",
           "  Field                Before               After"});
    print(header.fields);
    return 0;
}

// ---- Geoid models

struct GeoidSettings {
    t_gencvf::JobConfiguration configuration;
    t_gencvf::JobGeneral general;
    bool plotGeographic = false;
};

constexpr std::string_view kModelType = "geoidModelType=";

constexpr struct {
    const char* name;
    bool& (*in)(GeoidSettings& settings);
} kSwitches[] = {
    {"geoidEnabled", [](GeoidSettings& s) -> bool& { return s.configuration.geoidEnabled; }},
    {"geoidGridOption", [](GeoidSettings& s) -> bool& { return s.configuration.geoidGridOption; }},
    {"geoidUseOne", [](GeoidSettings& s) -> bool& { return s.configuration.geoidUseOne; }},
    {"geoidUseTwo", [](GeoidSettings& s) -> bool& { return s.configuration.geoidUseTwo; }},
    {"geoidTinExcluded", [](GeoidSettings& s) -> bool& { return s.configuration.geoidTinExcluded; }},
    {"geoidGridLoaded", [](GeoidSettings& s) -> bool& { return s.general.geoidGridLoaded; }},
    {"geoidTinLoaded", [](GeoidSettings& s) -> bool& { return s.general.geoidTinLoaded; }},
    {"geoidTinAvailable", [](GeoidSettings& s) -> bool& { return s.general.geoidTinAvailable; }},
    {"geoidTinBlocked", [](GeoidSettings& s) -> bool& { return s.general.geoidTinBlocked; }},
    {"plotGeographic", [](GeoidSettings& s) -> bool& { return s.plotGeographic; }},
};

constexpr struct {
    const char* name;
    bool (*ask)(t_genproc::cGenProcs& procs, const GeoidSettings& s);
} kTests[] = {
    {"GeoidGRIDoptionsOK",
     [](auto& procs, const auto& s) { return procs.GeoidGRIDoptionsOK(s.configuration); }},
    {"GeoidTINoptionsOK",
     [](auto& procs, const auto& s) {
         return procs.GeoidTINoptionsOK(s.configuration, s.general, s.plotGeographic);
     }},
    {"GeoidGRIDreadyOK",
     [](auto& procs, const auto& s) { return procs.GeoidGRIDreadyOK(s.configuration, s.general); }},
    {"GeoidTINreadyOK",
     [](auto& procs, const auto& s) {
         return procs.GeoidTINreadyOK(s.configuration, s.general, s.plotGeographic);
     }},
    {"GeoidModelReady",
     [](auto& procs, const auto& s) {
         return procs.GeoidModelReady(s.configuration, s.general, s.plotGeographic);
     }},
};

/// The settings with one of them changed: "geoidUseOne" turns it, "geoidUseOne=True" sets it.
GeoidSettings changed(GeoidSettings settings, const std::string& word) {
    if (word.starts_with(kModelType)) {
        settings.configuration.geoidModelType = word.substr(kModelType.size());
        return settings;
    }
    const std::size_t end = std::min(word.find('='), word.size());
    const std::string value = word.substr(end);
    const auto member =
        std::ranges::find(kSwitches, word.substr(0, end), [](const auto& one) { return one.name; });
    if (member == std::end(kSwitches) || (!value.empty() && value != "=True" && value != "=False")) {
        std::string names;
        for (const auto& one : kSwitches) names += std::string(", ") + one.name;
        throw WrongUse("geoid: " + word + " is none of " + std::string(kModelType) + "NAME" + names);
    }
    bool& setting = member->in(settings);
    setting = value.empty() ? !setting : value == "=True";
    return settings;
}

/// What can be changed: the model type to another, each switch to its opposite.
Arguments allChanges(const t_gencvf::Application& names) {
    Arguments words;
    for (const std::string& model : {names.gridModelName1, names.gridModelName2, names.tinModelName}) {
        words.push_back(std::string(kModelType) + model);
    }
    for (const auto& member : kSwitches) words.emplace_back(member.name);
    return words;
}

/// Takes a test's answer for other settings, and gives whether that is what one looks for.
using Wanted = std::function<bool(const GeoidSettings& settings)>;

/// The sets of `count` changes, those from `first` on, that make the settings wanted.
void findChanges(const Arguments& changes, std::size_t first, int count, const GeoidSettings& settings,
                 const std::string& words, const Wanted& isWanted, Lines& found) {
    if (count == 0) {
        if (isWanted(settings)) found.push_back(words);
        return;
    }
    for (std::size_t i = first; i < changes.size(); ++i) {
        findChanges(changes, i + 1, count - 1, changed(settings, changes[i]),
                    words + (words.empty() ? "" : " with ") + changes[i], isWanted, found);
    }
}

/// What decides a test: each change that alone turns its answer, or else one of the smallest sets that do.
std::string decidingChanges(const Arguments& changes, const GeoidSettings& settings, const Wanted& isTurned) {
    Lines found;
    for (int count = 1; found.empty(); ++count) findChanges(changes, 0, count, settings, "", isTurned, found);
    if (found.front().find(" with ") != std::string::npos) return found.front();
    std::string all;
    for (const std::string& change : found) all += (all.empty() ? "" : " or ") + change;
    return all;
}

int testGeoid(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    const Arguments changes = allChanges(tavoru.host.application());
    GeoidSettings settings;
    for (const std::string& word : arguments) settings = changed(settings, word);

    Lines members{std::string(kModelType) + settings.configuration.geoidModelType};
    for (const auto& [name, in] : kSwitches) {
        members.push_back(std::string(name) + (in(settings) ? "=True" : "=False"));
    }
    print(inColumns(members));
    print({""});
    for (const auto& test : kTests) {
        const bool holds = test.ask(tavoru.procs, settings);
        const auto isTurned = [&](const GeoidSettings& other) {
            return test.ask(tavoru.procs, other) != holds;
        };
        print({padded(test.name, 20) + (holds ? "True   " : "False  ") + "turned by " +
               decidingChanges(changes, settings, isTurned)});
    }
    return 0;
}

}  // namespace

std::span<const Command> geodesyCommands() {
    static constexpr Command kCommands[] = {
        {"transform list", "List the datum transformations", listTransformations},
        {"transform show N [--file OUT]", "Describe one; --file writes a report into the list folder",
         showTransformation},
        {"spheroid DATUM", "Show the spheroid of a datum", showSpheroid},
        {"header JOB [--new] [--adjust]", "Complete a job's data header, for an adjustment or anyway",
         showHeader},
        {"geoid [SETTING...]", "Tell which geoid tests hold, and what would turn them", testGeoid},
    };
    return kCommands;
}

}  // namespace tavoru
