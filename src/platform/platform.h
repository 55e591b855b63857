/// The operating system, service by service. A host builds one with portablePlatform
/// (portable/portable_platform.h) or windowsPlatform (windows/windows_platform.h); a test replaces the
/// services that it wants to script.
#pragma once

#include <memory>

#include "platform/files.h"
#include "platform/folders.h"
#include "platform/profile_files.h"
#include "platform/windows_and_messages.h"

namespace t_genproc {

struct Platform {
    std::unique_ptr<ProfileFiles> profileFiles;
    std::unique_ptr<Files> files;
    std::unique_ptr<Folders> folders;
    std::unique_ptr<WindowsAndMessages> windows;
};

}  // namespace t_genproc
