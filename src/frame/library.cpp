#include "frame/library.h"

#include "runtime/errors.h"

namespace t_genproc {
namespace {

template <class Service>
Service& required(const std::unique_ptr<Service>& service) {
    if (service == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *service;
}

}  // namespace

Library::Library(t_gencvf::Host& host, Platform& platform)
    : host_(host), platform_(platform), files_(required(platform.files), required(platform.folders)) {
    required(platform.profileFiles);
    required(platform.windows);
    required(platform.registry);
    required(platform.shell);
    required(platform.processes);
    required(platform.system);
    required(platform.clock);
    required(platform.helpViewer);
    required(platform.printing);
    required(platform.graphics);
}

Library::~Library() = default;

t_gencvf::Utility& Library::utility() {
    if (utility_ == nullptr) utility_ = host_.createUtility();
    return required(utility_);
}

t_gencvf::ErrorReporter& Library::errorReporter() {
    if (errorReporter_ == nullptr) errorReporter_ = host_.createErrorReporter();
    return required(errorReporter_);
}

}  // namespace t_genproc
