/// The operating system, service by service. A host builds one with portablePlatform
/// (portable/portable_platform.h) or windowsPlatform (windows/windows_platform.h); a test replaces the
/// services that it wants to script.
#pragma once

#include <memory>

#include "platform/clock.h"
#include "platform/database.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/graphics.h"
#include "platform/help_viewer.h"
#include "platform/printing.h"
#include "platform/processes.h"
#include "platform/profile_files.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/system_information.h"
#include "platform/windows_and_messages.h"

namespace t_genproc {

struct Platform {
    std::unique_ptr<ProfileFiles> profileFiles;
    std::unique_ptr<Files> files;
    std::unique_ptr<Folders> folders;
    std::unique_ptr<WindowsAndMessages> windows;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<Shell> shell;
    std::unique_ptr<Processes> processes;
    std::unique_ptr<SystemInformation> system;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<HelpViewer> helpViewer;
    std::unique_ptr<Printing> printing;
    std::unique_ptr<Graphics> graphics;

    /// Added by a host that has databases, for example sqliteEngine (sqlite/sqlite_engine.h); may be missing.
    std::unique_ptr<DatabaseEngine> databases{};
};

}  // namespace t_genproc
