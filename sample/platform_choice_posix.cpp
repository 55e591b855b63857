#include "platform/portable/portable_platform.h"
#include "platform_choice.h"

namespace tavoru {

Drive openDrive(const std::filesystem::path& folder) {
    t_genproc::PortableOptions options;
    options.driveC = folder.string();
    options.userName = "Surveyor";
    options.canAnswer = [] { return true; };  // a pipe may answer too; its end takes the default button
    return {t_genproc::portablePlatform(std::move(options)), "C:\\"};
}

}  // namespace tavoru
