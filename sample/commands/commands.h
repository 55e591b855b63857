/// The commands of the program: a table for each group of them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "tavoru.h"
#include "wrong_use.h"

namespace tavoru {

/// As many as the command's usage names; one that was left out is empty, a flag that was given is "true", an
/// option that was given is the value behind it.
/// Where the usage ends in "...", all words that were given.
using Arguments = std::vector<std::string>;

struct Command {
    const char* usage;  ///< its words, then its arguments: "setting set SECTION KEY [VALUE]"
    const char* help;
    /// Gives the exit code: 0, or 1 where the user has been told of a failure already. Other failures are
    /// thrown.
    int (*run)(const Places& places, const Arguments& arguments);
};

std::span<const Command> sessionCommands();   // commands/session.cpp
std::span<const Command> jobCommands();       // commands/jobs.cpp
std::span<const Command> settingsCommands();  // commands/settings.cpp
std::span<const Command> systemCommands();    // commands/system.cpp
std::span<const Command> geodesyCommands();   // commands/geodesy.cpp
std::span<const Command> timeCommands();      // commands/times.cpp
std::span<const Command> formCommands();      // commands/forms.cpp
std::span<const Command> helpCommands();      // commands/help.cpp
std::span<const Command> displayCommands();   // commands/display.cpp
std::span<const Command> printingCommands();  // commands/printing.cpp

}  // namespace tavoru
