#include "frame/cGenProcs.h"

#include "frame/procedure.h"

namespace t_genproc {

cGenProcs::cGenProcs(Library& library) : library_(library) { Class_Initialize(); }
cGenProcs::~cGenProcs() { Class_Terminate(); }

void cGenProcs::Class_Initialize() {
    procedure(library_, "(Class Module) cGenProcs::Sub Class_Initialize", [&] { classActive_ = true; });
}

void cGenProcs::Class_Terminate() noexcept {
    finalProcedure(library_, "(Class Module) cGenProcs::Sub Class_Terminate", [&] { classActive_ = false; });
}

}  // namespace t_genproc
