#include "platform/windows/windows_platform.h"
#include "platform_choice.h"

namespace tavoru {

Drive openDrive(const std::filesystem::path& folder) {
    std::filesystem::path root = folder;
    return {t_genproc::windowsPlatform(), root.make_preferred().string() + "\\"};
}

}  // namespace tavoru
