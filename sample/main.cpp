// Finds the command in the tables, runs it, and tells of a failure in one line.

#include <algorithm>
#include <iostream>

#include "command_line.h"
#include "runtime/errors.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

int fail(int exitCode, std::string message) {
    std::ranges::replace(message, '\n', ' ');
    std::cerr << "tavoru: " << message << '\n';
    return exitCode;
}

std::vector<tavoru::Command> allCommands() {
    std::vector<tavoru::Command> all;
    for (const auto group :
         {tavoru::sessionCommands(), tavoru::jobCommands(), tavoru::settingsCommands(),
          tavoru::systemCommands(), tavoru::geodesyCommands(), tavoru::timeCommands(), tavoru::formCommands(),
          tavoru::helpCommands(), tavoru::displayCommands(), tavoru::printingCommands()}) {
        all.insert(all.end(), group.begin(), group.end());
    }
    return all;
}

int run(int argc, const char* const* argv) {
    const std::vector<tavoru::Command> commands = allCommands();
    const tavoru::Choice choice = tavoru::readCommandLine(commands, argc, argv);
    if (choice.command != nullptr) return choice.command->run(choice.places, choice.arguments);
    std::cout << tavoru::helpText(commands);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const tavoru::WrongUse& error) {
        return fail(kWrongUse, std::string(error.what()) + " (--help lists the commands)");
    } catch (const t_genproc::RuntimeError& error) {
        return fail(kFailed, "error " + std::to_string(error.number()) + ", " +
                                 std::string(error.description()) + ", in " + error.source());
    } catch (const std::exception& error) {
        return fail(kFailed, error.what());
    }
}
