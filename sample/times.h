/// Times as the application reads and writes them: "2026-03-29 02:30:00".
#pragma once

#include <optional>
#include <string>

#include "tavoru.h"
#include "time/cTimeProcs.h"

namespace tavoru {

/// The library's times, without the rest of the application.
struct Times {
    /// In the time zone `zone`; where it is empty, in that of the system.
    Times(const Places& places, const std::string& zone);

    Drive drive;
    TavoruHost host{drive.platform};
    t_genproc::Library library{host, drive.platform};
    t_genproc::cTimeProcs procs{library};
};

std::string dateText(t_genproc::cTimeProcs& times, double date);

/// Nothing: `text` is no such date.
std::optional<double> readDate(t_genproc::cTimeProcs& times, const std::string& text);

/// What the clock shows, and the record of its zone.
Lines clockLines(const t_genproc::Library& library, t_genproc::cTimeProcs& times);

/// Every UTC date at which the clock shows `local`, and why they are as many.
Lines readingLines(t_genproc::cTimeProcs& times, double local);

}  // namespace tavoru
