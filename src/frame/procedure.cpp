#include "frame/procedure.h"

#include <new>
#include <stdexcept>

#include "frame/GenUtil.h"
#include "runtime/errors.h"

namespace t_genproc::guard {
namespace {

/// The error in flight, as a run-time error.
RuntimeError currentError() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(ErrorNumber::OutOfMemory);
    } catch (const std::length_error&) {
        return RuntimeError(ErrorNumber::SubscriptOutOfRange);
    } catch (const std::out_of_range&) {
        return RuntimeError(ErrorNumber::SubscriptOutOfRange);
    } catch (...) {
        return RuntimeError(ErrorNumber::InternalError);
    }
}

/// Reports, and gives the number to raise again. A reporter that fails must not hide the error it was told
/// of.
std::int32_t report(Library& library, std::string_view name) noexcept {
    const RuntimeError error = currentError();
    try {
        GenUtil::ReportErrorTrail(library, error.source(), std::string(name));
    } catch (...) {
        return error.number();
    }
    return error.number();
}

}  // namespace

void reportAndRaise(Library& library, std::string_view name) {
    throw RuntimeError(report(library, name), name);
}

void reportAndEnd(Library& library, std::string_view name) noexcept { report(library, name); }

}  // namespace t_genproc::guard
