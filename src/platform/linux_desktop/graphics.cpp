#include "platform/linux_desktop/desktop.h"
