#pragma once

#include <stdexcept>

namespace tavoru {

/// The program was called wrongly: exit code 2.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace tavoru
