/// The user's trash, in the form that desktops share (freedesktop.org, version 1.0).
#pragma once

#include <string>

#include "platform/system_error.h"

namespace t_genproc::portable {

/// Moves the file, folder or symbolic link at `location` to the trash: to the folder `homeTrash`, or to the
/// trash of its own file system where that is another one. Where that has none and takes none, it is copied
/// to `homeTrash`, with its permissions and times, and removed when the copy has reached the disk.
///
/// What fails leaves it as it was. Only when the original of a copied folder can be removed in part, but not
/// as a whole, the complete copy stays in the trash beside what is left.
SystemError moveToTrash(const std::string& location, const std::string& homeTrash);

}  // namespace t_genproc::portable
