#include "instanthelp/cInstHelp.h"

#include "frame/procedure.h"

namespace t_genproc {

cInstHelp::cInstHelp(Library& library) : library_(library) { Class_Initialize(); }
cInstHelp::~cInstHelp() { Class_Terminate(); }

void cInstHelp::Class_Initialize() {
    procedure(library_, "(Class Module) cInstHelp::Sub Class_Initialize", [&] { classActive_ = true; });
}

void cInstHelp::Class_Terminate() noexcept {
    finalProcedure(library_, "(Class Module) cInstHelp::Sub Class_Terminate", [&] { classActive_ = false; });
}

}  // namespace t_genproc
