#include "platform/portable/ensure_folder.h"

#include <sys/stat.h>

#include <filesystem>

#include "platform/portable/posix.h"

namespace t_genproc::portable {

SystemError ensureFolder(const DriveMap& drives, const std::string& folder) {
    const Outcome<std::string> exact = drives.exactPath(folder);
    if (!exact) return exact.error;
    struct stat found {};
    if (::stat(exact.value.c_str(), &found) == 0 && S_ISDIR(found.st_mode)) return SystemError::Success;
    std::error_code error;
    std::filesystem::create_directories(drives.actualPath(folder).value, error);
    return systemError(error.value());
}

}  // namespace t_genproc::portable
