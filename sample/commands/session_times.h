#pragma once

#include "tavoru.h"

namespace tavoru {

/// The session's chapter on times. Leaves the platform's clock in another zone.
void compareTimes(Tavoru& tavoru);

}  // namespace tavoru
