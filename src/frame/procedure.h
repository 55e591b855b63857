/// The guard of every public procedure.
///
///     bool cGenProcs::FileExist(const std::string& fiName, std::int32_t* fiSize) {
///         return procedure(library_, "(Class Module) cGenProcs::Function FileExist", [&] { ... });
///     }
///
/// Whatever leaves the body is reported to the error trail, with the failing error's source and this
/// procedure's name, and raised again: the same number, the name as its source, the standard description.
/// What the body created is released by then. A C++ exception that is no RuntimeError becomes one here: a
/// failed allocation error 7, a length or range beyond what is possible error 9, anything else error 51.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

namespace t_genproc {

class Library;

namespace guard {
/// The number of the error in flight, as it will be raised again. Call from within a catch block, as the next
/// one.
std::int32_t currentNumber() noexcept;
[[noreturn]] void reportAndRaise(Library& library, std::string_view name);
/// The same for a destructor, which must not throw: the error ends with its report.
void reportAndEnd(Library& library, std::string_view name) noexcept;
}  // namespace guard

template <class Body>
decltype(auto) procedure(Library& library, std::string_view name, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        guard::reportAndRaise(library, name);
    }
}

/// The guard of a destructor.
template <class Body>
void finalProcedure(Library& library, std::string_view name, Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        guard::reportAndEnd(library, name);
    }
}

}  // namespace t_genproc
