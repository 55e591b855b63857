#include "time/cTimeProcs.h"

#include "frame/procedure.h"

namespace t_genproc {

cTimeProcs::cTimeProcs(Library& library) : library_(library) { Class_Initialize(); }
cTimeProcs::~cTimeProcs() { Class_Terminate(); }

void cTimeProcs::Class_Initialize() {
    procedure(library_, "(Class Module) cTimeProcs::Sub Class_Initialize", [&] { classActive_ = true; });
}

void cTimeProcs::Class_Terminate() noexcept {
    finalProcedure(library_, "(Class Module) cTimeProcs::Sub Class_Terminate", [&] { classActive_ = false; });
}

}  // namespace t_genproc
