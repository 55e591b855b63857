/// Chapters of the session.
#pragma once

#include "tavoru.h"

namespace tavoru {

void readHelp(Tavoru& tavoru);

void fitAndPrompt(Tavoru& tavoru);

/// Prints a report, where a program can answer the print dialog.
void printReport(Tavoru& tavoru);

/// Leaves the platform's clock in another zone.
void compareTimes(Tavoru& tavoru);

}  // namespace tavoru
