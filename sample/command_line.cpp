#include "command_line.h"

#include <CLI/CLI.hpp>
#include <iomanip>
#include <map>
#include <sstream>

namespace tavoru {
namespace {

/// The next word of a usage text, or all words of a pair of brackets; false at the end.
bool nextWord(std::istream& usage, std::string& word) {
    if (!(usage >> word)) return false;
    for (std::string more; word.front() == '[' && word.back() != ']' && usage >> more;) word += " " + more;
    return true;
}

/// The words of a usage text in capitals or brackets are arguments: "N", "[VALUE]", "[--trace]",
/// "[--file OUT]", "[WORD...]", "WORD...".
bool isArgument(const std::string& word) {
    return word.front() == '[' || word.find_first_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos;
}

void addArgument(CLI::App& command, std::string word, Arguments& arguments) {
    if (word.ends_with("...]")) {  // any number of words, and nothing else
        command.add_option(word.substr(1, word.size() - 5), arguments);
        return;
    }
    if (word.ends_with("...")) {
        command.prefix_command()->fallthrough(false);  // all words from here on, with options of their own
        return;
    }
    const bool optional = word.front() == '[';
    if (optional) word = word.substr(1, word.size() - 2);
    std::string& argument = arguments.emplace_back();
    const std::size_t value = word.find(' ');
    if (word.starts_with("--") && value == std::string::npos) {
        command.add_flag(word, argument);
    } else {
        command.add_option(word.substr(0, value), argument)->required(!optional);
    }
}

/// Adds the command's words as subcommands within one another, its arguments to the last. Gives the last.
CLI::App* addCommand(CLI::App& program, std::map<std::string, CLI::App*>& known, const Command& command,
                     Arguments& arguments) {
    CLI::App* app = &program;
    std::istringstream usage(command.usage);
    std::string path;
    for (std::string word; nextWord(usage, word);) {
        if (isArgument(word)) {
            addArgument(*app, word, arguments);
        } else {
            CLI::App*& next = known[path += word + " "];
            if (next == nullptr) next = app->add_subcommand(word)->fallthrough()->require_subcommand(1);
            app = next;
        }
    }
    return app->require_subcommand(0, 1);  // it does something by itself
}

}  // namespace

Choice readCommandLine(std::span<const Command> commands, int argc, const char* const* argv) {
    CLI::App program;
    std::string drive = "drive";
    std::string samples = TAVORU_SAMPLES;
    program.add_option("--drive", drive)->envname("TAVORU_DRIVE");
    program.add_option("--samples", samples)->envname("TAVORU_SAMPLES");
    program.require_subcommand(0, 1);

    constexpr std::size_t kMostArguments = 5;
    std::vector<Arguments> arguments(commands.size());
    std::map<std::string, CLI::App*> known;
    std::map<const CLI::App*, std::size_t> commandOf{{&program, 0}};
    for (std::size_t i = 0; i < commands.size(); ++i) {
        arguments[i].reserve(kMostArguments);  // the parser writes into them: they must not move
        commandOf[addCommand(program, known, commands[i], arguments[i])] = i;
    }

    try {
        program.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return {};
    } catch (const CLI::ParseError& error) {
        throw WrongUse(error.what());
    }
    const CLI::App* chosen = &program;
    while (!chosen->get_subcommands().empty()) chosen = chosen->get_subcommands().front();
    const std::size_t command = commandOf.at(chosen);
    for (const std::string& word : chosen->remaining()) arguments[command].push_back(word);
    return {&commands[command],
            arguments[command],
            {std::filesystem::absolute(drive), std::filesystem::absolute(samples)}};
}

std::string helpText(std::span<const Command> commands) {
    constexpr std::size_t kUsageWidth = 34;
    std::ostringstream text;
    const auto row = [&text](const std::string& usage, const char* help) {
        const bool isLong = usage.size() >= kUsageWidth;
        if (isLong) text << "  " << usage << '\n';
        text << "  " << std::left << std::setw(static_cast<int>(kUsageWidth)) << (isLong ? "" : usage) << help
             << '\n';
    };
    text << "Usage: ./run [--drive DIR] [COMMAND]\n\n"
            "A small survey application, without windows, on top of the general-procedures\n"
            "library. It keeps its jobs and settings in a folder that stands for a disk drive.\n\n"
            "Commands:\n";
    for (const Command& command : commands) row(command.usage, command.help);
    text << "\nOptions:\n";
    row("--drive DIR", "The folder to use as the drive (build/drive)");
    row("--samples DIR", "The files that a new drive starts with (sample/data)");
    row("--help", "This text");
    return text.str();
}

}  // namespace tavoru
