#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"

namespace t_genproc {

// Reading a record shows nowhere: members that no longer matter are not read.

using t_gencvf::JobConfiguration;
using t_gencvf::JobGeneral;

bool cGenProcs::GeoidTINoptionsOK(const JobConfiguration& jobCfg, const JobGeneral& jobGeneral,
                                  bool plotGeographic) {
    return procedure(library_, "(Class Module) cGenProcs::Function GeoidTINoptionsOK", [&] {
        return jobCfg.geoidModelType == library_.application().tinModelName &&
               !(plotGeographic || jobCfg.geoidTinExcluded || jobGeneral.geoidTinBlocked) &&
               (jobCfg.geoidUseOne || jobCfg.geoidUseTwo);
    });
}

bool cGenProcs::GeoidGRIDoptionsOK(const JobConfiguration& jobCfg) {
    return procedure(library_, "(Class Module) cGenProcs::Function GeoidGRIDoptionsOK", [&] {
        const t_gencvf::Application& names = library_.application();
        return (jobCfg.geoidModelType == names.gridModelName1 ||
                jobCfg.geoidModelType == names.gridModelName2) &&
               (jobCfg.geoidUseOne || jobCfg.geoidUseTwo) && jobCfg.geoidGridOption;
    });
}

bool cGenProcs::GeoidModelReady(const JobConfiguration& jobCfg, const JobGeneral& jobGeneral,
                                bool plotGeographic) {
    return procedure(library_, "(Class Module) cGenProcs::Function GeoidModelReady", [&] {
        const bool grid = GeoidGRIDoptionsOK(jobCfg) && jobGeneral.geoidGridLoaded;
        const bool tin =
            GeoidTINoptionsOK(jobCfg, jobGeneral, plotGeographic) && jobGeneral.geoidTinAvailable;
        return (grid || tin) && jobCfg.geoidEnabled;
    });
}

bool cGenProcs::GeoidGRIDreadyOK(const JobConfiguration& jobCfg, const JobGeneral& jobGeneral) {
    return procedure(library_, "(Class Module) cGenProcs::Function GeoidGRIDreadyOK",
                     [&] { return GeoidGRIDoptionsOK(jobCfg) && jobGeneral.geoidGridLoaded; });
}

bool cGenProcs::GeoidTINreadyOK(const JobConfiguration& jobCfg, const JobGeneral& jobGeneral,
                                bool plotGeographic) {
    return procedure(library_, "(Class Module) cGenProcs::Function GeoidTINreadyOK", [&] {
        return GeoidTINoptionsOK(jobCfg, jobGeneral, plotGeographic) && jobGeneral.geoidTinLoaded;
    });
}

}  // namespace t_genproc
