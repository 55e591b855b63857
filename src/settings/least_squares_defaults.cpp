#include <string_view>
#include <variant>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "runtime/errors.h"

namespace t_genproc {
namespace {

using t_gencvf::LeastSquaresOptions;
using t_gencvf::RecordSet;
using LS = LeastSquaresOptions;  // for the table

constexpr std::int16_t kRule = -5;  // of the host's normaliser

/// The field keeps its value, or takes the option's; it is normalised.
struct Normalised {
    double LS::*option;
};
/// The field keeps its value, or takes the option's.
using Default =
    std::variant<bool LS::*, std::int16_t LS::*, std::int32_t LS::*, float LS::*, std::string LS::*>;
/// The field takes the option's value.
struct Overwritten {
    bool LS::*option;
};

enum class When { Always, NewHeader, LeastSquaresMode };

struct HeaderField {
    const char* name;
    std::variant<Normalised, Default, Overwritten> treatment;
    When when = When::Always;
};

constexpr HeaderField kHeaderFields[] = {
    {"ProvPtTolH", Normalised{&LS::ProvPtTolH}},
    {"ProvPtTolV", Normalised{&LS::ProvPtTolV}},
    {"ConvLimitH", Normalised{&LS::ConvLimitH}},
    {"ConvLimitV", Normalised{&LS::ConvLimitV}},
    {"AngleSD", Normalised{&LS::AngleSD}},
    {"AngleCentr", Normalised{&LS::AngleCentr}},
    {"DisConst", Normalised{&LS::DisConst}},
    {"DisPPM", Normalised{&LS::DisPPM}},
    {"HtDiffSD", Normalised{&LS::HtDiffSD}},

    {"UnitWts", Overwritten{&LS::UnitWts}, When::NewHeader},
    {"Dump", Overwritten{&LS::Dump}, When::NewHeader},
    {"CSD", Overwritten{&LS::CSD}, When::NewHeader},
    {"SP1", Overwritten{&LS::SP1}, When::NewHeader},
    {"ScaleEE", Overwritten{&LS::ScaleEE}, When::NewHeader},

    {"AutoRescale", Default{&LS::AutoRescale}},
    {"RelaxObsInErr", Default{&LS::RelaxObsInErr}},
    {"Iterations", Default{&LS::Iterations}},

    {"AzimuthSD", Normalised{&LS::AzimuthSD}},
    {"DirectionSD", Normalised{&LS::DirectionSD}},
    {"SlopeDisPPM", Normalised{&LS::SlopeDisPPM}},
    {"SlopeDisConst", Normalised{&LS::SlopeDisConst}},
    {"ZenAngSD", Normalised{&LS::ZenAngSD}},
    {"CoordsSD", Normalised{&LS::CoordsSD}},
    {"VectorsSD", Normalised{&LS::VectorsSD}},
    {"AzimuthCent", Normalised{&LS::AzimuthCent}},
    {"DirectionCent", Normalised{&LS::DirectionCent}},
    {"HorDistCent", Normalised{&LS::HorDistCent}},
    {"HtDiffCent", Normalised{&LS::HtDiffCent}},
    {"AngleTgtCentr", Normalised{&LS::AngleTgtCentr}},
    {"AzimuthTgtCent", Normalised{&LS::AzimuthTgtCent}},
    {"DirectionTgtCent", Normalised{&LS::DirectionTgtCent}},
    {"HorDistTgtCent", Normalised{&LS::HorDistTgtCent}},
    {"HtDiffTgtCent", Normalised{&LS::HtDiffTgtCent}},
    {"SlopeDistCentH", Normalised{&LS::SlopeDistCentH}},
    {"ZenAngleCentH", Normalised{&LS::ZenAngleCentH}},
    {"CoordsCentH", Normalised{&LS::CoordsCentH}},
    {"VectorsCentH", Normalised{&LS::VectorsCentH}},
    {"SlopeDistCentV", Normalised{&LS::SlopeDistCentV}},
    {"ZenAngleCentV", Normalised{&LS::ZenAngleCentV}},
    {"CoordsCentV", Normalised{&LS::CoordsCentV}},
    {"VectorsCentV", Normalised{&LS::VectorsCentV}},

    {"SDConstrFactor", Default{&LS::SDConstrFactor}},
    {"OutlierTest", Default{&LS::OutlierTest}},
    {"Corrections", Default{&LS::Corrections}},
    {"ConfLevelChiSquared", Default{&LS::ConfLevelChiSquared}},
    {"ConfLevelEllipses", Default{&LS::ConfLevelEllipses}},
    {"ConfLevelMDE", Default{&LS::ConfLevelMDE}},
    {"ConfLevelOutliers", Default{&LS::ConfLevelOutliers}},

    {"SaveDBPoints", Overwritten{&LS::SaveDBPoints}, When::LeastSquaresMode},
    {"SaveDBPtsFixed", Overwritten{&LS::SaveDBPtsFixed}, When::LeastSquaresMode},
    {"SavePtEntry", Overwritten{&LS::SavePtEntry}, When::LeastSquaresMode},
    {"SavePtEntryFixed", Overwritten{&LS::SavePtEntryFixed}, When::LeastSquaresMode},

    {"SavePtEntryOpt", Default{&LS::SavePtEntryOpt}, When::LeastSquaresMode},
};

bool isMissing(const Variant& value) { return isEmpty(value) || isNull(value); }

/// Writes a field as its treatment asks.
struct Completion {
    Library& library;
    RecordSet& header;
    const LeastSquaresOptions& options;
    std::string_view field;

    void operator()(Normalised treatment) const {
        const Variant value = header.get(field);
        const double number = isMissing(value) ? options.*treatment.option : toDouble(value);
        header.let(field, library.utility().Normalise(number, kRule));
    }
    void operator()(Default treatment) const {
        Variant value = header.get(field);
        if (isMissing(value)) std::visit([&](auto option) { value = options.*option; }, treatment);
        header.let(field, value);
    }
    void operator()(Overwritten treatment) const { header.let(field, options.*treatment.option); }
};

}  // namespace

Variant cGenProcs::SetDefaultIfNull(const Variant& valu, const Variant& defaultVal) {
    return procedure(library_, "(Class Module) cGenProcs::Function SetDefaultIfNull",
                     [&] { return isMissing(valu) ? defaultVal : valu; });
}

void cGenProcs::CheckLSOptionDefaults(RecordSet& dataHeader, const LeastSquaresOptions& LSOptPref,
                                      bool headerExists, bool LSmode) {
    procedure(library_, "(Class Module) cGenProcs::Sub CheckLSOptionDefaults", [&] {
        for (const HeaderField& field : kHeaderFields) {
            if (field.when == When::NewHeader && headerExists) continue;
            if (field.when == When::LeastSquaresMode && !LSmode) continue;
            std::visit(Completion{library_, dataHeader, LSOptPref, field.name}, field.treatment);
        }
    });
}

}  // namespace t_genproc
