// The layout of the settings files.

#include <span>
#include <type_traits>
#include <variant>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "frame/recent_jobs_menu.h"
#include "instanthelp/cInstHelpSettings.h"
#include "runtime/errors.h"
#include "runtime/number_text.h"

namespace t_genproc {
namespace {

using t_gencvf::Application;
using t_gencvf::GeneralPreferences;
using t_gencvf::JobConfiguration;
using t_gencvf::LeastSquaresOptions;

// ---- Tables: one row for each key, in the order of writing

template <class Record>
struct Digit {  ///< a Boolean written as "1" or "0"
    bool Record::*member;
};
template <class Record>
struct Word {  ///< a Boolean written as the host's word
    bool Record::*member;
};

template <class Record>
struct Setting {
    std::string_view key;
    std::variant<std::string Record::*, std::uint8_t Record::*, std::int16_t Record::*,
                 std::int32_t Record::*, float Record::*, double Record::*, Variant Record::*, Digit<Record>,
                 Word<Record>>
        value;
};

using GP = GeneralPreferences;
constexpr Setting<GP> kPreferences[] = {
    {"ListFile_Grouping", &GP::ListFileGrouping},
    {"Editor", &GP::Editor},
    {"Start_maximized", Digit<GP>{&GP::StartMaximized}},
    {"Load_Last", Digit<GP>{&GP::LoadLast}},
    {"Show_Extension", Digit<GP>{&GP::ShowExtension}},
    {"Recycle_Backups", Digit<GP>{&GP::RecycleBackups}},
    {"Kfactor", &GP::Kfactor},
    {"Prompt_Mode", Digit<GP>{&GP::PromptMode}},
};

using JC = JobConfiguration;
constexpr Setting<JC> kDataSettings[] = {
    {"Output_Dec_H", &JC::OutputDecH},
    {"Output_Dec_V", &JC::OutputDecV},
    {"Projection", &JC::Projection},
    {"Zone", &JC::Zone},
    {"Geodetic_Datum", &JC::GeodeticDatum},
    {"Height_Datum", &JC::HeightDatum},
    {"Earth_Radius", &JC::EarthRadius},
    {"Approx_Latitude", &JC::ApproxLatitude},
    {"Coord_Type", &JC::CoordType},
    {"Apply_Geoid_Sep", Digit<JC>{&JC::ApplyGeoidSep}},
    {"G-S_Separation", &JC::GSseparation},
    {"Deflect_NS", &JC::DeflectNS},
    {"Deflect_EW", &JC::DeflectEW},
    {"Interp_Method", &JC::InterpMethod},
    {"Geoid_File", &JC::GeoidFile},
    {"Geoid_Type", &JC::GeoidType},
    {"Spheroid", &JC::Spheroid},
    {"Spheroidal", Word<JC>{&JC::Spheroidal}},
    {"Geographic", Word<JC>{&JC::Geographic}},
    {"Project_Grid", Word<JC>{&JC::ProjectGrid}},
    {"Height_In_CSF", Word<JC>{&JC::HeightInCSF}},
    {"V_Datum_Spheroidal", Word<JC>{&JC::VDatumSpheroidal}},
    {"V_Datum_Geoidal", Word<JC>{&JC::VDatumGeoidal}},
    {"V_Datum_Offset", &JC::VDatumOffset},
};

using LS = LeastSquaresOptions;
constexpr Setting<LS> kLeastSquares[] = {
    {"Prov_Pt_Tolerance_H", &LS::ProvPtTolH},
    {"Prov_Pt_Tolerance_V", &LS::ProvPtTolV},
    {"LS_Conv_Limit_H", &LS::ConvLimitH},
    {"LS_Conv_Limit_V", &LS::ConvLimitV},
    {"LS_SD_Angles", &LS::AngleSD},
    {"LS_SD_DistConst", &LS::DisConst},
    {"LS_SD_DistPPM", &LS::DisPPM},
    {"LS_SD_HtDiff", &LS::HtDiffSD},
    {"LS_CentHA", &LS::AngleCentr},
    {"LS_UnitWts", Digit<LS>{&LS::UnitWts}},
    {"LS_CSD_Output", Digit<LS>{&LS::CSD}},
    {"LS_Matrix_Dump", Digit<LS>{&LS::Dump}},
    {"LS_SP1", Digit<LS>{&LS::SP1}},
    {"LS_Scale_ErrEllipses", Digit<LS>{&LS::ScaleEE}},
    {"LS_Iterations", &LS::Iterations},
    {"LS_SD_Azimuth", &LS::AzimuthSD},
    {"LS_SD_Direction", &LS::DirectionSD},
    {"LS_SD_SlopeDisPPM", &LS::SlopeDisPPM},
    {"LS_SD_SlopeDisConst", &LS::SlopeDisConst},
    {"LS_SD_ZenAng", &LS::ZenAngSD},
    {"LS_SD_Coords", &LS::CoordsSD},
    {"LS_SD_Vectors", &LS::VectorsSD},
    {"LS_CentAz", &LS::AzimuthCent},
    {"LS_CentDir", &LS::DirectionCent},
    {"LS_CentHD", &LS::HorDistCent},
    {"LS_CentHtDiff", &LS::HtDiffCent},
    {"LS_CentTgtHA", &LS::AngleTgtCentr},
    {"LS_CentTgtAz", &LS::AzimuthTgtCent},
    {"LS_CentTgtDir", &LS::DirectionTgtCent},
    {"LS_CentTgtHD", &LS::HorDistTgtCent},
    {"LS_CentTgtHtDiff", &LS::HtDiffTgtCent},
    {"LS_CentSDh", &LS::SlopeDistCentH},
    {"LS_CentZAh", &LS::ZenAngleCentH},
    {"LS_CentCoordsH", &LS::CoordsCentH},
    {"LS_CentVectorsH", &LS::VectorsCentH},
    {"LS_CentSDv", &LS::SlopeDistCentV},
    {"LS_CentZAv", &LS::ZenAngleCentV},
    {"LS_CentCoordsV", &LS::CoordsCentV},
    {"LS_CentVectorsV", &LS::VectorsCentV},
    {"LS_Constr_Factor", &LS::SDConstrFactor},
    {"LS_AutoRescale", Word<LS>{&LS::AutoRescale}},
    {"LS_RelaxObsInErr", Word<LS>{&LS::RelaxObsInErr}},
    {"LS_Corrections", &LS::Corrections},
    {"LS_OutlierTest", &LS::OutlierTest},
    {"LS_ConfLevel_ChiSquared", &LS::ConfLevelChiSquared},
    {"LS_ConfLevel_Ellipses", &LS::ConfLevelEllipses},
    {"LS_ConfLevel_MDE", &LS::ConfLevelMDE},
    {"LS_ConfLevel_Outliers", &LS::ConfLevelOutliers},
    {"LS_SaveDBPoints", Word<LS>{&LS::SaveDBPoints}},
    {"LS_SaveDBPtsFixed", Word<LS>{&LS::SaveDBPtsFixed}},
    {"LS_SavePtEntry", Word<LS>{&LS::SavePtEntry}},
    {"LS_SavePtEntryFixed", Word<LS>{&LS::SavePtEntryFixed}},
    {"LS_SavePtEntryOpt", &LS::SavePtEntryOpt},
};

// ---- Values as text

std::string digitText(bool flag) { return flag ? "1" : "0"; }

template <class Record>
std::string settingText(const Setting<Record>& setting, const Record& record, const Application& host) {
    const auto textOf = [&](auto member) -> std::string {
        if constexpr (std::is_same_v<decltype(member), Digit<Record>>) {
            return digitText(record.*member.member);
        } else if constexpr (std::is_same_v<decltype(member), Word<Record>>) {
            return record.*member.member ? host.wordTrue : host.wordFalse;
        } else {
            const auto& value = record.*member;
            using Value = std::remove_cvref_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::string>)
                return value;
            else if constexpr (std::is_same_v<Value, Variant>)
                return toText(value);
            else if constexpr (std::is_integral_v<Value>)
                return numberText(std::int64_t{value});
            else
                return numberText(value);
        }
    };
    return std::visit(textOf, setting.value);
}

/// A record that a group cannot do without.
template <class Record>
const Record& required(const Record* record) {
    if (record == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *record;
}

/// One section of one settings file. A key that cannot be written is passed over.
class SettingsSection {
   public:
    SettingsSection(cGenProcs& procs, const std::string& fileName, const std::string& section,
                    std::int16_t* changes = nullptr)
        : procs_(procs), fileName_(fileName), section_(section), changes_(changes) {}

    void write(std::string_view key, const std::string& value) {
        procs_.INIstringSet(fileName_, section_, std::string(key), value, changes_);
    }

    template <class Record>
    void write(std::span<const Setting<Record>> settings, const Record& record, const Application& host) {
        for (const Setting<Record>& setting : settings)
            write(setting.key, settingText(setting, record, host));
    }

   private:
    cGenProcs& procs_;
    const std::string& fileName_;
    const std::string& section_;
    std::int16_t* changes_;
};

}  // namespace

void cGenProcs::INISettingsSave(bool program, bool tavoruPath, bool preferences, bool dataSettings,
                                bool LSPrefs, bool recentJobs, const t_gencvf::ProgramState& prog,
                                const t_gencvf::JobItem* currentJob, const cInstHelpSettings* IHelp,
                                const GeneralPreferences* genPrefs, const JobConfiguration* jobSettings,
                                const LeastSquaresOptions* LSOptPrefs, const ObjectPointer& mainForm,
                                std::int16_t* changes) {
    procedure(library_, "(Class Module) cGenProcs::Sub INISettingsSave", [&] {
        const Application& host = library_.application();
        const auto userSection = [&](const std::string& section) {
            return SettingsSection(*this, prog.userINIpath, section);
        };

        if (program) {
            SettingsSection general = userSection(host.generalSection);
            if (currentJob != nullptr) general.write("DataPath", currentJob->jobDataPath);
            general.write("ListPath", prog.listPath);
            general.write("Instant_Help", digitText(required(IHelp).gDisplayIhelp()));
        }

        SettingsSection programWide(*this, prog.progINIpath, host.programSection, changes);
        if (tavoruPath) programWide.write("ProgPath", prog.progPath);
        programWide.write(host.programKeyOne, prog.programValueOne);
        programWide.write(host.programKeyTwo, prog.programValueTwo);

        if (preferences) userSection(host.generalSection).write<GP>(kPreferences, required(genPrefs), host);
        if (dataSettings)
            userSection(host.dataSettingsSection).write<JC>(kDataSettings, required(jobSettings), host);
        if (LSPrefs)
            userSection(host.leastSquaresSection).write<LS>(kLeastSquares, required(LSOptPrefs), host);

        if (recentJobs) {
            SettingsSection recent = userSection(host.settingsSection);
            const RecentJobsMenu menu(mainForm);
            for (std::int16_t i = 0; i <= RecentJobsMenu::kLastEntry; ++i) {
                recent.write(numberText(std::int64_t{i} + 1), menu.path(i));
            }
        }
    });
}

void cGenProcs::RegSettingsSave(bool /*program*/, bool /*tavoruPath*/, bool /*preferences*/,
                                bool /*dataSettings*/, bool /*LSPrefs*/, bool /*recentJobs*/,
                                const t_gencvf::ProgramState* /*prog*/,
                                const t_gencvf::JobItem* /*currentJob*/, const cInstHelpSettings* /*IHelp*/,
                                const GeneralPreferences* /*genPrefs*/,
                                const JobConfiguration* /*jobSettings*/,
                                const LeastSquaresOptions* /*LSOptPrefs*/,
                                const ObjectPointer& /*mainForm*/) {
    procedure(library_, "(Class Module) cGenProcs::Sub RegSettingsSave",
              [] { throw RuntimeError(ErrorNumber::InternalError); });
}

}  // namespace t_genproc
