// Local time, UTC and the dates of the internet.

#include "times.h"

#include <cmath>

#include "commands/commands.h"
#include "screen.h"

namespace tavoru {
namespace {

double dateOf(Times& times, const std::string& text) {
    const std::optional<double> date = readDate(times.procs, text);
    if (!date) throw WrongUse("time: " + text + " is no date such as \"2026-03-29 02:30:00\"");
    return *date;
}

int showClock(const Places& places, const Arguments& arguments) {
    Times times(places, arguments[0]);
    print(clockLines(times.library, times.procs));
    return 0;
}

int parse(const Places& places, const Arguments& arguments) {
    constexpr double kMostShift = 30;  // days: no zone moves the zero date further
    Times times(places, arguments[1]);
    const double local = times.procs.InternetTimeToVbLocalTime(arguments[0]);
    if (std::abs(local) < kMostShift) throw std::runtime_error(arguments[0] + " is no date of the internet");
    print({dateText(times.procs, local)});
    return 0;
}

int toLocal(const Places& places, const Arguments& arguments) {
    Times times(places, arguments[1]);
    print({dateText(times.procs, times.procs.UTCtoLocal(dateOf(times, arguments[0])))});
    return 0;
}

int toUniversal(const Places& places, const Arguments& arguments) {
    Times times(places, arguments[1]);
    print(readingLines(times.procs, dateOf(times, arguments[0])));
    return 0;
}

int rewrite(const Places& places, const Arguments& arguments) {
    print({Times(places, "").procs.GetMYSQLTimeDate(arguments[0])});
    return 0;
}

}  // namespace

std::span<const Command> timeCommands() {
    static constexpr Command kCommands[] = {
        {"time now [--zone NAME]", "Show the clock and its zone, the system's or another one", showClock},
        {"time parse TEXT [--zone NAME]", "Show the local time of a date from a mail, or of ISO 8601", parse},
        {"time local DATE [--zone NAME]", "Show the local time of \"2026-03-29 02:30:00\" in UTC", toLocal},
        {"time utc DATE [--zone NAME]", "Show all UTC dates at which the clock shows DATE", toUniversal},
        {"time sql TEXT", "Rewrite \"25/12/2021 08:30:00\" for a database server", rewrite},
    };
    return kCommands;
}

}  // namespace tavoru
