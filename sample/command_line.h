/// The command line, read as the tables of commands describe it.
#pragma once

#include <string>

#include "commands/commands.h"

namespace tavoru {

/// What the user asked for.
struct Choice {
    const Command* command = nullptr;  ///< none: the help
    Arguments arguments;
    Places places;
};

/// No words at all choose the first command. Throws WrongUse.
Choice readCommandLine(std::span<const Command> commands, int argc, const char* const* argv);

std::string helpText(std::span<const Command> commands);

}  // namespace tavoru
