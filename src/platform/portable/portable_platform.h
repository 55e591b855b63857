/// The platform services on POSIX systems.
///
///     PortableOptions options;
///     options.driveC = "/home/ann/tavoru";
///     Platform platform = portablePlatform(std::move(options));
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "platform/platform.h"

namespace t_genproc {

struct PortableOptions {
    /// The folder that is drive C:, created where missing. Empty: "tavoru/drive_c" in the user's data folder
    /// (XDG_DATA_HOME, or ~/.local/share). Drive Z: is the root of the file system.
    std::string driveC{};

    /// The user, by the name that the folder below "C:\Users\" bears. Empty: the login name.
    std::string userName{};

    /// Called whenever the library lets the host's windows process their messages.
    std::function<void()> messagePump{};

    /// Where message boxes are shown and answered; by default the standard error output and the standard
    /// input.
    std::ostream* messages = nullptr;
    std::istream* answers = nullptr;
    /// Whether somebody can answer; otherwise a box closes by its default button. By default: `answers` is
    /// given, or the standard input is a terminal.
    std::function<bool()> canAnswer{};
};

Platform portablePlatform(PortableOptions options = {});

}  // namespace t_genproc
