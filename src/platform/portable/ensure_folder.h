/// Folders that exist on every Windows.
#pragma once

#include <string>

#include "platform/portable/drive_map.h"

namespace t_genproc::portable {

/// Makes `folder`, a path with a drive, and its parents where they are missing.
SystemError ensureFolder(const DriveMap& drives, const std::string& folder);

}  // namespace t_genproc::portable
