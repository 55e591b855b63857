/// The library over a drive of its own, with a host that has no more than it asks for.
#pragma once

#include "folder.h"
#include "frame/library.h"
#include "host.h"
#include "platform/portable/portable_platform.h"

namespace t_genproc::bench {

struct World {
    Folder folder;
    Platform platform = portablePlatform({.driveC = folder.file("")});
    Host host{platform};
    Library library{host, platform};
};

}  // namespace t_genproc::bench
