#include "startup/cStartProcs.h"

#include "frame/cGenProcs.h"
#include "frame/procedure.h"
#include "os/cAPIprocs.h"

namespace t_genproc {

cStartProcs::cStartProcs(Library& library) : library_(library) { Class_Initialize(); }
cStartProcs::~cStartProcs() { Class_Terminate(); }

void cStartProcs::Class_Initialize() {
    procedure(library_, "(Class Module) cStartProcs::Sub Class_Initialize", [&] {
        genProcs_ = std::make_unique<cGenProcs>(library_);
        apiProcs_ = std::make_unique<cAPIprocs>(library_);
        classActive_ = true;
    });
}

void cStartProcs::Class_Terminate() noexcept {
    finalProcedure(library_, "(Class Module) cStartProcs::Sub Class_Terminate", [&] {
        genProcs_.reset();
        apiProcs_.reset();
    });
}

}  // namespace t_genproc
