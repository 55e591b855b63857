/// Clock records as Date values and back.
#pragma once

#include "platform/clock.h"

namespace t_genproc {

/// Whole seconds. Error 5: its month or year is none.
double dateValue(const SystemTime& time);

/// The record of a Date value. Error 5: it is out of range.
SystemTime systemTime(double dateValue);

}  // namespace t_genproc
