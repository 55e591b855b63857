/// Windows itself behind the platform services. Text is converted to and from the system's ANSI code page.
#pragma once

#include "platform/platform.h"

namespace t_genproc {

Platform windowsPlatform();

}  // namespace t_genproc
