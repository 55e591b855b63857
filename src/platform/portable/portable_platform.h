/// The platform services on POSIX systems.
///
///     PortableOptions options;
///     options.driveC = "/home/ann/tavoru";
///     Platform platform = portablePlatform(std::move(options));
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>

#include "platform/platform.h"

namespace t_genproc {

/// What stands in for a compiled help file: addresses of the web, or files with their backslash paths, in the
/// folder of the help file where they have no drive. "#" and a place of the page may follow.
struct HelpPages {
    std::string contents{};                        ///< the table of contents
    std::map<std::int32_t, std::string> topics{};  ///< by help context number
};

struct PortableOptions {
    /// The folder that is drive C:, created where missing. Empty: "tavoru/drive_c" in the user's data folder
    /// (XDG_DATA_HOME, or ~/.local/share). Drive Z: is the root of the file system.
    std::string driveC{};

    /// The user, by the name that the folder below "C:\Users\" bears. Empty: the login name.
    std::string userName{};

    /// Called whenever the library lets the host's windows process their messages.
    std::function<void()> messagePump{};

    /// Where message boxes are shown and answered, those of the help viewer too; by default the standard
    /// error output and the standard input.
    std::ostream* messages = nullptr;
    std::istream* answers = nullptr;
    /// Whether somebody can answer; otherwise a box closes by its default button. By default: `answers` is
    /// given, or the standard input is a terminal.
    std::function<bool()> canAnswer{};

    HelpPages helpPages{};
    /// The program that shows a page; its argument is the page's address. A program with a blank in its name
    /// stands in quotes.
    std::string browser = "xdg-open";
};

Platform portablePlatform(PortableOptions options = {});

}  // namespace t_genproc
