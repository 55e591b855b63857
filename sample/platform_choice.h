/// The operating system under the sample host. The build picks platform_choice_posix.cpp or
/// platform_choice_windows.cpp, so that no other file asks which one it is.
#pragma once

#include <filesystem>
#include <string>

#include "platform/platform.h"

namespace tavoru {

struct Drive {
    t_genproc::Platform platform;
    std::string root;  ///< as the library names the folder, ending in "\"
};

/// The platform's services, with `folder`, an absolute path, as the place of everything that the host keeps.
Drive openDrive(const std::filesystem::path& folder);

}  // namespace tavoru
