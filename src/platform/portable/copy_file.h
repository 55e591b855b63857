/// Copying a file.
#pragma once

#include <string>

#include "platform/system_error.h"

namespace t_genproc::portable {

/// Copies the file at `from`, with its time of the last write, over the one at `to` or to a new one with the
/// same permissions. A copy that fails half-way is removed.
SystemError copyFile(const std::string& from, const std::string& to);

}  // namespace t_genproc::portable
