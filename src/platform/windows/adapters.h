/// The services of the Windows platform, one factory for each.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace t_genproc {

std::unique_ptr<ProfileFiles> makeProfileFiles();
std::unique_ptr<Files> makeFiles();
std::unique_ptr<Folders> makeFolders();
std::unique_ptr<WindowsAndMessages> makeWindowsAndMessages();
std::unique_ptr<Registry> makeRegistry();
std::unique_ptr<Shell> makeShell();
std::unique_ptr<Processes> makeProcesses();
std::unique_ptr<SystemInformation> makeSystemInformation();
std::unique_ptr<Clock> makeClock();
std::unique_ptr<HelpViewer> makeHelpViewer();
std::unique_ptr<Printing> makePrinting();
std::unique_ptr<Graphics> makeGraphics();

/// Why the last call of this thread failed.
SystemError lastError();

}  // namespace t_genproc
