#include "platform/windows/windows_platform.h"

#include <windows.h>

#include "platform/windows/adapters.h"

namespace t_genproc {

SystemError lastError() { return static_cast<SystemError>(::GetLastError()); }

Platform windowsPlatform() {
    Platform platform;
    platform.profileFiles = makeProfileFiles();
    platform.files = makeFiles();
    platform.folders = makeFolders();
    platform.windows = makeWindowsAndMessages();
    platform.registry = makeRegistry();
    platform.shell = makeShell();
    platform.processes = makeProcesses();
    platform.system = makeSystemInformation();
    platform.clock = makeClock();
    platform.helpViewer = makeHelpViewer();
    platform.printing = makePrinting();
    platform.graphics = makeGraphics();
    return platform;
}

}  // namespace t_genproc
