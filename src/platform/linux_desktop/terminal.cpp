#include "platform/linux_desktop/terminal.h"

#include <unistd.h>

#include <iostream>

#include "runtime/text.h"

namespace t_genproc::linux_desktop {

Terminal::Terminal(const LinuxDesktopOptions& options)
    : questions_(options.questions != nullptr ? *options.questions : std::cerr),
      answers_(options.answers != nullptr ? *options.answers : std::cin),
      answersGiven_(options.answers != nullptr) {}

bool Terminal::canAnswer() const { return answersGiven_ || ::isatty(STDIN_FILENO) == 1; }

void Terminal::tell(const std::string& line) { questions_ << line << std::endl; }

std::optional<std::string> Terminal::ask(const std::string& question, const std::string& preset,
                                         const std::function<bool(const std::string&)>& fits) {
    std::string line;
    while (questions_ << question << " [" << preset << "]: " << std::flush && std::getline(answers_, line)) {
        std::string answer(text::trim(line));
        if (answer.empty()) answer = preset;
        if (text::equalIgnoringCase(answer, "cancel")) return std::nullopt;
        if (fits(answer)) return answer;
        tell("That cannot be taken.");
    }
    return std::nullopt;
}

void tellFailure(const LinuxDesktopOptions& options, const std::string& message) {
    if (options.failed) return options.failed(message);
    Terminal(options).tell(message);
}

}  // namespace t_genproc::linux_desktop
