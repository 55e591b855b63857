#pragma once

#include <cstdint>

namespace t_genproc {

using WindowHandle = std::intptr_t;  ///< 0 is none

}  // namespace t_genproc
