/// Keeps the host's windows alive through long work, without asking them for their messages all the time.
#pragma once

namespace t_genproc {

struct Platform;

/// Lets the host's windows process their messages where more than `interval` seconds have passed since
/// `start`, which counts seconds since midnight and is then set to now. Shortly before midnight `start`
/// becomes 0 in any case.
void processEventsAfter(const Platform& platform, float& start, float interval);

}  // namespace t_genproc
