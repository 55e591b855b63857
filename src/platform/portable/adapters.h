/// The portable adapters, one for each service. All of them share one drive map.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "platform/portable/drive_map.h"
#include "platform/portable/portable_platform.h"

namespace t_genproc::portable {

std::unique_ptr<ProfileFiles> makeProfileFiles(std::shared_ptr<DriveMap> drives);
std::unique_ptr<Files> makeFiles(std::shared_ptr<DriveMap> drives);
std::unique_ptr<Folders> makeFolders(std::shared_ptr<DriveMap> drives);
std::unique_ptr<WindowsAndMessages> makeWindowsAndMessages(const PortableOptions& options);
std::unique_ptr<Registry> makeRegistry(std::shared_ptr<DriveMap> drives);
std::unique_ptr<Shell> makeShell(std::shared_ptr<DriveMap> drives, const PortableOptions& options);
std::unique_ptr<Processes> makeProcesses(std::shared_ptr<DriveMap> drives);
std::unique_ptr<SystemInformation> makeSystemInformation(std::shared_ptr<DriveMap> drives,
                                                         const PortableOptions& options);
std::unique_ptr<Clock> makeClock();
std::unique_ptr<HelpViewer> makeHelpViewer(std::shared_ptr<DriveMap> drives, const PortableOptions& options);
std::unique_ptr<Printing> makePrinting();
std::unique_ptr<Graphics> makeGraphics();

}  // namespace t_genproc::portable
