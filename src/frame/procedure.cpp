#include "frame/procedure.h"

#include <new>
#include <stdexcept>

#include "frame/GenUtil.h"
#include "runtime/errors.h"

namespace t_genproc::guard {
namespace {

/// Of the error in flight.
std::string currentSource() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error.source();
    } catch (...) {
        return std::string(kLibrarySource);
    }
}

void report(Library& library, std::string_view name) noexcept {
    try {
        GenUtil::ReportErrorTrail(library, currentSource(), std::string(name));
    } catch (...) {  // a reporter that fails must not hide the error that it was told of
    }
}

}  // namespace

// Nothing here needs memory before the report is made.

std::int32_t currentNumber() noexcept {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error.number();
    } catch (const std::bad_alloc&) {
        return static_cast<std::int32_t>(ErrorNumber::OutOfMemory);
    } catch (const std::length_error&) {
        return static_cast<std::int32_t>(ErrorNumber::SubscriptOutOfRange);
    } catch (const std::out_of_range&) {
        return static_cast<std::int32_t>(ErrorNumber::SubscriptOutOfRange);
    } catch (...) {
        return static_cast<std::int32_t>(ErrorNumber::InternalError);
    }
}

void reportAndRaise(Library& library, std::string_view name) {
    const std::int32_t number = currentNumber();
    report(library, name);
    try {
        throw RuntimeError(number, name);
    } catch (const std::bad_alloc&) {
        throw RuntimeError(number);  // its source is short enough to need no memory
    }
}

void reportAndEnd(Library& library, std::string_view name) noexcept { report(library, name); }

}  // namespace t_genproc::guard
