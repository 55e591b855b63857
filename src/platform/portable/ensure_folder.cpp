#include "platform/portable/ensure_folder.h"

#include <filesystem>

#include "platform/portable/posix.h"

namespace t_genproc::portable {

SystemError ensureFolder(const DriveMap& drives, const std::string& folder) {
    const Outcome<std::string> exact = drives.exactPath(folder);
    if (!exact) return exact.error;
    std::error_code error;
    if (std::filesystem::is_directory(exact.value, error)) return SystemError::Success;
    std::filesystem::create_directories(drives.actualPath(folder).value, error);
    return systemError(error.value());
}

}  // namespace t_genproc::portable
