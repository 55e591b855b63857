#include <cmath>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;

/// The cell width of a column, which becomes the current one.
Variant cellWidth(const LateBound& grid, std::int32_t column) {
    grid["col"] = column;
    return grid["CellWidth"].get();
}

/// Measures blanks until they take as much room, and prints nothing. A blank without a width ends it.
void leaveOut(const LateBound& printer, const std::string& valu) {
    const auto widthOf = [&](const std::string& text) { return toDouble(printer["TextWidth"].call(text)); };
    const double wanted = widthOf(valu);
    if (!std::isfinite(wanted)) return;
    std::string blanks;
    double width = widthOf(blanks), before = width - 1;
    while (width < wanted && width > before) {
        before = width;
        width = widthOf(blanks += ' ');
    }
}

void readNames(const LateBound& objects) {
    const std::int32_t count = toInt32(objects["Count"].get());
    for (std::int32_t i = 0; i < count; ++i) objects(i)["name"].get();
}

}  // namespace

std::int32_t cGenProcs::ColumnsWidth(const ObjectPointer& flexGrid, bool /*getDividerWidth*/) {
    return procedure(library_, "(Class Module) cGenProcs::Function ColumnsWidth", [&] {
        const LateBound grid(flexGrid);
        const auto lastColumn = [&] { return checkedSubtract(toInt32(grid["Cols"].get()), 1); };

        // A column that is empty is as wide as what divides the others.
        grid["FormatString"] = grid["FormatString"].text() + '|';
        const std::int32_t divider = toInt16(cellWidth(grid, lastColumn()));
        const std::string format = grid["FormatString"].text();
        grid["FormatString"] = text::left(format, text::length(format) - 1);
        grid["Cols"] = lastColumn();

        std::int32_t width = 0;
        const std::int32_t last = lastColumn();
        for (std::int32_t i = 0; i <= last; ++i) width = checkedAdd(width, toInt32(cellWidth(grid, i)));
        return checkedAdd(width, 2 * divider);
    });
}

void cGenProcs::PrinterPrintAt(const ObjectPointer& Printer, const std::string& valu, std::int32_t X,
                               std::int32_t Y, bool omit) {
    procedure(library_, "(Class Module) cGenProcs::Sub PrinterPrintAt", [&] {
        const LateBound printer(Printer);
        printer["CurrentX"] = X;
        printer["CurrentY"] = Y;
        if (omit) return leaveOut(printer, valu);
        printer["Print"].call(valu);
    });
}

void cGenProcs::CheckPageHeader(std::int16_t headerRecs, bool headerRecEvery, std::int32_t pageNo,
                                std::int16_t& rStart) {
    procedure(library_, "(Class Module) cGenProcs::Sub CheckPageHeader", [&] {
        const bool hasHeader = headerRecs > 0 && (headerRecEvery || pageNo < 2);
        rStart = hasHeader ? 0 : 1;
    });
}

void cGenProcs::ListControls(const ObjectPointer& currentForm) {
    procedure(library_, "(Class Module) cGenProcs::Sub ListControls",
              [&] { readNames(LateBound(currentForm)["Controls"]); });
}

void cGenProcs::ListLoadedForms() {
    procedure(library_, "(Class Module) cGenProcs::Sub ListLoadedForms", [&] {
        if (const ObjectPointer forms = library_.loadedForms()) readNames(LateBound(forms));
    });
}

}  // namespace t_genproc
