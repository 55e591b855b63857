#include "platform/portable/command_line.h"

#include <algorithm>

namespace t_genproc::portable {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr char kQuote = '"';
constexpr std::size_t kLongestNameWithBlanks = 260;  // as on Windows; otherwise a long line is a long search

void skipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

/// Takes the first argument off `text`, which does not start with a blank.
std::string takeArgument(std::string_view& text) {
    std::string argument;
    bool quoted = false;
    while (!text.empty() && (quoted || kBlanks.find(text.front()) == std::string_view::npos)) {
        const std::size_t backslashes = std::min(text.find_first_not_of('\\'), text.size());
        text.remove_prefix(backslashes);
        const bool aheadOfQuote = text.starts_with(kQuote);
        argument.append(aheadOfQuote ? backslashes / 2 : backslashes, '\\');
        if (backslashes > 0 && !aheadOfQuote) continue;

        const char c = text.front();
        text.remove_prefix(1);
        if (c != kQuote || backslashes % 2 == 1) {
            argument += c;
        } else if (quoted && text.starts_with(kQuote)) {
            argument += kQuote;
            text.remove_prefix(1);
        } else {
            quoted = !quoted;
        }
    }
    return argument;
}

}  // namespace

std::vector<CommandLineReading> readings(std::string_view commandLine) {
    skipBlanks(commandLine);
    if (commandLine.starts_with(kQuote)) {
        const std::size_t end = std::min(commandLine.find(kQuote, 1), commandLine.size());
        const std::size_t rest = std::min(commandLine.find_first_of(kBlanks, end), commandLine.size());
        return {{std::string(commandLine.substr(1, end - 1)), commandLine.substr(rest)}};
    }
    std::vector<CommandLineReading> found;
    std::size_t end = 0;
    do {
        end = std::min(commandLine.find_first_of(kBlanks, end + 1), commandLine.size());
        found.push_back({std::string(commandLine.substr(0, end)), commandLine.substr(end)});
    } while (end < std::min(commandLine.size(), kLongestNameWithBlanks));
    return found;
}

std::vector<std::string> splitArguments(std::string_view text) {
    std::vector<std::string> arguments;
    for (skipBlanks(text); !text.empty(); skipBlanks(text)) arguments.push_back(takeArgument(text));
    return arguments;
}

}  // namespace t_genproc::portable
