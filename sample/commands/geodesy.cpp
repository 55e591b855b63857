// Datum transformations, spheroids, geoid models, and the header of a job.

#include <algorithm>
#include <array>
#include <iomanip>
#include <iostream>

#include "commands/commands.h"
#include "job_header.h"
#include "runtime/number_text.h"
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
    if (!t_genproc::parseNumber(arguments[0])) {
        throw WrongUse("transform show: " + arguments[0] + " is no number");
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

constexpr const char* kTests[] = {"GeoidGRIDoptionsOK", "GeoidTINoptionsOK", "GeoidGRIDreadyOK",
                                  "GeoidTINreadyOK", "GeoidModelReady"};

/// What the tests answer.
std::array<bool, std::size(kTests)> answers(t_genproc::cGenProcs& procs, const GeoidSettings& settings) {
    const auto& [configuration, general, plotGeographic] = settings;
    return {procs.GeoidGRIDoptionsOK(configuration),
            procs.GeoidTINoptionsOK(configuration, general, plotGeographic),
            procs.GeoidGRIDreadyOK(configuration, general),
            procs.GeoidTINreadyOK(configuration, general, plotGeographic),
            procs.GeoidModelReady(configuration, general, plotGeographic)};
}

/// What one can turn: a switch by its name, the model type by naming another.
Arguments allTurns(const t_gencvf::Application& names) {
    Arguments words;
    for (const std::string& model : {names.gridModelName1, names.gridModelName2, names.tinModelName}) {
        words.push_back(std::string(kModelType) + model);
    }
    for (const auto& member : kSwitches) words.emplace_back(member.name);
    return words;
}

GeoidSettings turned(GeoidSettings settings, const std::string& word) {
    const auto member = std::ranges::find(kSwitches, word, [](const auto& one) { return one.name; });
    if (member != std::end(kSwitches)) {
        member->in(settings) = !member->in(settings);
    } else if (word.starts_with(kModelType)) {
        settings.configuration.geoidModelType = word.substr(kModelType.size());
    } else {
        std::string names;
        for (const auto& one : kSwitches) names += std::string(", ") + one.name;
        throw WrongUse("geoid: " + word + " is none of " + std::string(kModelType) + "NAME" + names);
    }
    return settings;
}

int testGeoid(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    const Arguments turns = allTurns(tavoru.host.application());
    GeoidSettings settings;
    for (const std::string& word : arguments) settings = turned(settings, word);

    Lines members{std::string(kModelType) + settings.configuration.geoidModelType};
    for (const auto& [name, in] : kSwitches) {
        members.push_back(std::string(name) + (in(settings) ? "=True" : "=False"));
    }
    print(inColumns(members));
    print({""});
    const auto held = answers(tavoru.procs, settings);
    for (std::size_t i = 0; i < std::size(kTests); ++i) {
        std::string deciding;
        for (const std::string& turn : turns) {
            if (answers(tavoru.procs, turned(settings, turn))[i] != held[i]) deciding += " " + turn;
        }
        std::cout << std::left << std::setw(20) << kTests[i] << std::setw(7) << (held[i] ? "True" : "False")
                  << (deciding.empty() ? "no member alone turns it" : "turned by" + deciding) << '\n';
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
