/// Questions on the terminal, in place of dialogs.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "platform/linux_desktop/linux_desktop.h"

namespace t_genproc::linux_desktop {

class Terminal {
   public:
    explicit Terminal(const LinuxDesktopOptions& options);

    /// Whether somebody can be asked.
    bool canAnswer() const;
    void tell(const std::string& line);

    /// The answer that `fits`; an empty line means `preset`. None: "cancel", or the end of the answers.
    std::optional<std::string> ask(const std::string& question, const std::string& preset,
                                   const std::function<bool(const std::string&)>& fits);

   private:
    std::ostream& questions_;
    std::istream& answers_;
    bool answersGiven_;
};

/// Tells why something could not be done: the host, or the terminal.
void tellFailure(const LinuxDesktopOptions& options, const std::string& message);

}  // namespace t_genproc::linux_desktop
