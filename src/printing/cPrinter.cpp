#include "printing/cPrinter.h"

#include "frame/procedure.h"

namespace t_genproc {
namespace {

constexpr std::int32_t kDefaultMargin = 2000;
constexpr std::int32_t kMonochrome = 1;

}  // namespace

cPrinter::cPrinter(Library& library) : library_(library) { Class_Initialize(); }

void cPrinter::Class_Initialize() {
    procedure(library_, "(Class Module) cPrinter::Sub Class_Initialize", [&] {
        margins_ = {kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin};
        colourRequest_ = kMonochrome;
    });
}

}  // namespace t_genproc
