#include <array>
#include <span>
#include <string_view>

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

/// `value` where it is joined to a text.
std::string joined(const Variant& value) { return isNull(value) ? std::string() : toText(value); }

/// Null equals no number.
bool equals(const Variant& value, double number) { return !isNull(value) && toDouble(value) == number; }

std::string zonePart(const Variant& zone) {
    const bool isNumbered = !isNull(zone) && toDouble(zone) > 0;
    return isNumbered ? " Zone" + toText(zone) : " (Single Zone)";
}

std::string reportText(const Variant& value) {
    const auto* single = std::get_if<float>(&value);
    return single != nullptr ? t_genproc::reportText(*single) : t_genproc::reportText(toDouble(value));
}

/// The spheroids to print, and where to look them up.
struct Spheroids {
    bool loaded;
    const std::vector<std::string>& spheroids;
    const std::vector<std::string>& datums;
    std::string& from;
    std::string& to;

    void lookUp(cGenProcs& procs, const std::string& datum, std::string& spheroid) const {
        bool found = false;
        if (loaded) spheroid = procs.GetSpheroidForDatum(datum, datums, spheroids, found);
    }
};

class Report {
   public:
    Report(cGenProcs& procs, t_gencvf::RecordSet& table, const Spheroids& spheroids, bool fileMode)
        : procs_(procs), table_(table), spheroids_(spheroids), fileMode_(fileMode) {}

    /// The text; `copyright` is what a distortion grid brings in addition.
    std::string compose(const std::string& legalCopyright, std::string& copyright) {
        if (is("TransType", ZoneToZone)) {
            zoneToZone();
        } else if (is("TransType", BlockShift)) {
            blockShift();
        } else if (is("TransType", ModelParameters)) {
            modelParameters();
        } else if (is("TransType", DistortionGrid)) {
            title("Distortion Grid: ");
            datums();
            line("Grid file  : " + joined(field("GF_FileName")));
            copyright = legalCopyright;
        } else {
            title("");
            datums();
        }
        return text_;
    }

   private:
    void zoneToZone() {
        title("Zone-to-Zone:  ");
        datum("Datum      : ", "DatumFrom", spheroids_.from);
        if (spheroids_.loaded) spheroids_.to = spheroids_.from;
        line("Grid From  : " + joined(field("ZZ_GridFrom")) + zonePart(field("ZZ_ZoneFrom")));
        line("Grid To    : " + joined(field("ZZ_GridTo")) + zonePart(field("ZZ_ZoneTo")));
        if (field("DatumTO") == Variant("LOCAL")) field("Description");  // adds nothing, but must exist
    }

    void blockShift() {
        title("Block Shift:   ");
        if (is("BS_Plane", 0)) datums();
        if (is("BS_Type", GridShift)) {
            line("Type             : Grid");
            const Variant plane = field("BS_Plane");
            if (!isNull(plane) && toBoolean(plane)) text_ += " (Plane)";
            rows(kGridShift);
        } else if (is("BS_Type", GeographicShift)) {
            line("Type             : Geographic");
            rows(kGeographicShift);
        }
    }

    void modelParameters() {
        if (is("MP_Type", Molodensky)) {
            title("Molodensky:    ");
            datums();
            rows(kMolodensky);
        } else if (is("MP_Type", Similarity)) {
            title("3D Similarity: ");
            datums();
            rows(kSimilarity);
            if (is("MP_Rotation", CoordinateAxes)) line("Rotation convention: Coordinate axes");
            if (is("MP_Rotation", PositionVector)) {
                line("Rotation convention: Pos'n vector (Bursa-Wolfe)");
            }
        } else {
            title("");
            datums();
        }
    }

    void title(std::string_view kind) {
        text_ = kind;
        if (fileMode_) text_ += joined(field("Description"));
    }

    void datums() {
        datum("Datum From : ", "DatumFrom", spheroids_.from);
        datum("Datum To   : ", "DatumTo", spheroids_.to);
    }

    void datum(const std::string& label, std::string_view datumField, std::string& spheroid) {
        const std::string name = toText(field(datumField));
        spheroids_.lookUp(procs_, name, spheroid);
        line(label + name + blanks(kDatumWidth - text::length(name)) + "    Spheroid: " + spheroid);
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
        const std::string stored = reportText(field(number.field));
        std::string printed = toText(procs_.SetNumericField(stored, number.decimals, true));
        text_.append(number.label).append(printed).append(number.unit);
        return printed;
    }

    void line(const std::string& content) {
        text_ += "\r\n";
        text_.append(fileMode_ ? 15 : 5, ' ').append(content);
    }

    Variant field(std::string_view name) { return table_.get(name); }
    bool is(std::string_view name, double code) { return equals(field(name), code); }

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
        std::string ignored[3];
        const auto orIgnored = [&](std::string* given, int i) -> std::string& {
            return given != nullptr ? *given : ignored[i];
        };
        std::string& copyrightOut = orIgnored(copyright, 2);
        copyrightOut.clear();
        const Spheroids spheroids{spheroidOK && datumHok, Spheroid, DatumH,
                                  orIgnored(spheroidForDatumFROM, 0), orIgnored(spheroidForDatumTO, 1)};
        return Report(*this, transTable, spheroids, fileMode)
            .compose(library_.application().legalCopyright, copyrightOut);
    });
}

}  // namespace t_genproc
