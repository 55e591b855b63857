/// Command lines by the rules of Windows. Blanks and tabs part the words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace t_genproc::portable {

/// A way to read a command line: the name of the program, and what is behind it.
struct CommandLineReading {
    std::string program;
    std::string_view rest;
};

/// Every way to read `commandLine`, in the order in which the program is to be looked for; none where the
/// line is blank. A name in quotes is the only way; of a name without them each blank may be the end.
std::vector<CommandLineReading> readings(std::string_view commandLine);

/// The arguments that a program sees. Quotes hold a text with blanks together; two of them within quotes are
/// one that counts as text. Backslashes count as text except ahead of a quote, where each pair is one
/// backslash, and a single one left over makes the quote count as text.
std::vector<std::string> splitArguments(std::string_view text);

}  // namespace t_genproc::portable
