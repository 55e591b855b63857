/// Chapters of the session.
#pragma once

#include "tavoru.h"

namespace tavoru {

void readHelp(Tavoru& tavoru);

void fitAndPrompt(Tavoru& tavoru);

/// Leaves the platform's clock in another zone.
void compareTimes(Tavoru& tavoru);

}  // namespace tavoru
