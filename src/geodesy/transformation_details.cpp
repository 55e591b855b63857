#include <array>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "runtime/errors.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

enum Kind { DistortionGrid, ModelParameters, BlockShift, ZoneToZone };
enum ModelType { Molodensky, Similarity };
enum ShiftType { GridShift, GeographicShift };
enum Rotation { CoordinateAxes, PositionVector };

constexpr std::ptrdiff_t kDatumWidth = 10;
constexpr std::ptrdiff_t kNumberWidth = 20;  // ahead of a second number

/// A number of the table with its label and unit.
struct Number {
    std::string_view label;
    std::string_view field;
    std::int16_t decimals = 0;  // at least
    std::string_view unit;
};
struct Row {
    Number number;
    Number second{};  // on the same line; none where it has no field
};

constexpr std::array kMolodensky{
    Row{{"Dx : ", "MP_DX", 3, " m"}, {"Da : ", "MP_RX_Da", 4, " m"}},
    Row{{"Dy : ", "MP_DY", 3, " m"}, {"Df : ", "MP_Scale_Df", 5, ""}},
    Row{{"Dz : ", "MP_DZ", 3, " m"}},
};
constexpr std::array kSimilarity{
    Row{{"DX : ", "MP_DX", 3, " m"}, {"Rx : ", "MP_RX_Da", 4, " Sec"}},
    Row{{"DY : ", "MP_DY", 3, " m"}, {"Ry : ", "MP_RY", 4, " Sec"}},
    Row{{"DZ : ", "MP_DZ", 3, " m"}, {"Rz : ", "MP_RZ", 4, " Sec"}},
    Row{{"Sc : ", "MP_Scale_Df", 5, " ppm"}},
};
constexpr std::array kGridShift{
    Row{{"Shift East-West  : ", "BS_DeltaEastLat", 3, " m"}},
    Row{{"      North-South: ", "BS_DeltaNorthLong", 3, " m"}},
    Row{{"      Vertical   : ", "BS_DeltaHeight", 3, " m"}},
};
constexpr std::array kGeographicShift{
    Row{{"Shift in Latitude: ", "BS_DeltaEastLat", 4, " Sec"}},
    Row{{"        Longitude: ", "BS_DeltaNorthLong", 4, " Sec"}},
    Row{{"           Height: ", "BS_DeltaHeight", 3, " m"}},
};

std::string blanks(std::ptrdiff_t count) {
    if (count < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return std::string(static_cast<std::size_t>(count), ' ');
}

/// Null equals no number.
bool equals(const Variant& value, double number) { return !isNull(value) && toDouble(value) == number; }

/// Null is neither.
bool is(const Variant& value, bool truth) { return !isNull(value) && toBoolean(value) == truth; }

std::string zonePart(const Variant& zone) {
    const double number = isNull(zone) ? 0 : toDouble(zone);
    if (number <= 0) return " (Single Zone)";
    if (!std::isfinite(number)) throw RuntimeError(ErrorNumber::Overflow);
    return " Zone" + toText(zone);
}

std::string storedNumber(const Variant& value) {
    const auto* single = std::get_if<float>(&value);
    return single != nullptr ? reportText(*single) : reportText(toDouble(value));
}

/// The spheroids to print, and where to look them up.
struct Spheroids {
    bool loaded;
    const std::vector<std::string>& spheroids;
    const std::vector<std::string>& datums;
    std::string& from;
    std::string& to;
};

class Report {
   public:
    Report(cGenProcs& procs, t_gencvf::RecordSet& table, const Spheroids& spheroids, bool fileMode)
        : procs_(procs), table_(table), spheroids_(spheroids), fileMode_(fileMode) {}

    /// The text; `copyright` takes what belongs under that of a distortion grid.
    std::string compose(const std::string& legalCopyright, std::string& copyright) {
        const Variant kind = field("TransType");
        if (equals(kind, ZoneToZone)) {
            zoneToZone();
        } else if (equals(kind, BlockShift)) {
            blockShift();
        } else if (equals(kind, ModelParameters)) {
            modelParameters();
        } else if (equals(kind, DistortionGrid)) {
            title("Distortion Grid: ");
            datums();
            line("Grid file  : ", field("GF_FileName"));
            copyright = legalCopyright;
        } else {
            title("");
            datums();
        }
        return std::move(text_);
    }

   private:
    void zoneToZone() {
        title("Zone-to-Zone:  ");
        const std::string datum = lookUp("DatumFrom", spheroids_.from);
        if (spheroids_.loaded) spheroids_.to = spheroids_.from;
        datumLine("Datum      : ", datum, spheroids_.from);
        line("Grid From  : ", field("ZZ_GridFrom"));
        text_ += zonePart(field("ZZ_ZoneFrom"));
        line("Grid To    : ", field("ZZ_GridTo"));
        text_ += zonePart(field("ZZ_ZoneTo"));
        if (field("DatumTO") == Variant("LOCAL")) field("Description");  // adds nothing, but must exist
    }

    void blockShift() {
        title("Block Shift:   ");
        const Variant plane = field("BS_Plane");
        if (is(plane, false)) datums();
        const Variant type = field("BS_Type");
        if (equals(type, GridShift)) {
            line("Type             : Grid");
            if (is(plane, true)) text_ += " (Plane)";
            rows(kGridShift);
        } else if (equals(type, GeographicShift)) {
            line("Type             : Geographic");
            rows(kGeographicShift);
        }
    }

    void modelParameters() {
        const Variant type = field("MP_Type");
        if (equals(type, Molodensky)) {
            title("Molodensky:    ");
            datums();
            rows(kMolodensky);
        } else if (equals(type, Similarity)) {
            title("3D Similarity: ");
            datums();
            rows(kSimilarity);
            const Variant rotation = field("MP_Rotation");
            if (equals(rotation, CoordinateAxes)) line("Rotation convention: Coordinate axes");
            if (equals(rotation, PositionVector)) line("Rotation convention: Pos'n vector (Bursa-Wolfe)");
        } else {
            title("");
            datums();
        }
    }

    void title(std::string_view kind) {
        text_ = kind;
        if (!fileMode_) return;
        const Variant description = field("Description");
        if (!isNull(description)) text_ += toText(description);
    }

    void datums() {
        const std::string from = lookUp("DatumFrom", spheroids_.from);
        datumLine("Datum From : ", from, spheroids_.from);
        const std::string to = lookUp("DatumTo", spheroids_.to);
        datumLine("Datum To   : ", to, spheroids_.to);
    }

    /// Gives the datum that the field names; its spheroid is found where the arrays are loaded.
    std::string lookUp(std::string_view datumField, std::string& spheroid) {
        std::string datum = toText(field(datumField));
        bool found = false;
        if (spheroids_.loaded) {
            spheroid = procs_.GetSpheroidForDatum(datum, spheroids_.datums, spheroids_.spheroids, found);
        }
        return datum;
    }

    void datumLine(std::string_view label, const std::string& datum, const std::string& spheroid) {
        line(label);
        text_ += datum + blanks(kDatumWidth - text::length(datum));
        text_ += "    Spheroid: " + spheroid;
    }

    void rows(std::span<const Row> all) {
        for (const auto& [first, second] : all) {
            line("");
            const std::string number = append(first);
            if (second.field.empty()) continue;
            text_ += blanks(kNumberWidth - text::length(number));
            append(second);
        }
    }

    /// Gives the number as it was printed.
    std::string append(const Number& number) {
        const std::string stored = storedNumber(field(number.field));
        std::string printed = toText(procs_.SetNumericField(stored, number.decimals, true));
        text_.append(number.label).append(printed).append(number.unit);
        return printed;
    }

    /// A value that is Null adds nothing.
    void line(std::string_view label, const Variant& value = Empty{}) {
        text_.append("\r\n").append(fileMode_ ? 15 : 5, ' ').append(label);
        if (!isNull(value)) text_ += toText(value);
    }

    Variant field(std::string_view name) { return table_.get(name); }

    cGenProcs& procs_;
    t_gencvf::RecordSet& table_;
    const Spheroids& spheroids_;
    bool fileMode_;
    std::string text_;
};

}  // namespace

std::string cGenProcs::TransformationDetails(t_gencvf::RecordSet& transTable, bool fileMode, bool spheroidOK,
                                             const std::vector<std::string>& Spheroid, bool datumHok,
                                             const std::vector<std::string>& DatumH,
                                             std::string* spheroidForDatumFROM,
                                             std::string* spheroidForDatumTO, std::string* copyright) {
    return procedure(library_, "(Class Module) cGenProcs::TransformationDetails", [&] {
        std::string from, to, ignored;  // where the caller has none
        const Spheroids spheroids{spheroidOK && datumHok, Spheroid, DatumH,
                                  spheroidForDatumFROM != nullptr ? *spheroidForDatumFROM : from,
                                  spheroidForDatumTO != nullptr ? *spheroidForDatumTO : to};
        std::string& copyrightText = copyright != nullptr ? *copyright : ignored;
        copyrightText.clear();
        return Report(*this, transTable, spheroids, fileMode)
            .compose(library_.application().legalCopyright, copyrightText);
    });
}

}  // namespace t_genproc
