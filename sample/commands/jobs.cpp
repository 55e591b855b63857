// Opening jobs, and the menu of recent ones.

#include "commands/commands.h"
#include "screen.h"

namespace tavoru {
namespace {

int open(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    const auto survey = tavoru.openJob(arguments[0]);
    if (!survey) return 1;
    print(jobLines(tavoru.job, *survey));
    print({""});
    print(menuLines(tavoru));
    return 0;
}

int showRecent(const Places& places, const Arguments& /*arguments*/) {
    print(menuLines(Tavoru(places)));
    return 0;
}

int removeRecent(const Places& places, const Arguments& arguments) {
    const std::string& number = arguments[0];
    if (number.size() != 1 || number < "1" || number > "5") {
        throw WrongUse("recent remove: " + number + " is not a number from 1 to 5");
    }
    Tavoru tavoru(places);
    const auto index = static_cast<std::int16_t>(number[0] - '1');
    if (tavoru.recentJob(index).empty()) throw std::runtime_error("there is no recent job " + number);
    tavoru.removeRecentJob(index);
    print(menuLines(tavoru));
    return 0;
}

}  // namespace

std::span<const Command> jobCommands() {
    static constexpr Command kCommands[] = {
        {"open JOB", "Open a job: its name in the data folder, or its full path", open},
        {"recent", "Show the recent jobs", showRecent},
        {"recent remove N", "Take job N, from 1 to 5, off the list", removeRecent},
    };
    return kCommands;
}

}  // namespace tavoru
