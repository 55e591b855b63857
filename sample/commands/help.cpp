// Instant Help: what the windows say about themselves and their controls.

#include "commands/commands.h"
#include "help_windows.h"
#include "screen.h"

namespace tavoru {
namespace {

int showHelp(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    Window window(tavoru.library, arguments[0], tavoru.instantHelp.gDisplayIhelp());
    const auto parts = arguments[1].empty() ? window.parts() : window.partsNamed(arguments[1]);
    if (!window.loadHelp(tavoru.messagesPath())) {
        print({"Instant Help is off, and the window is " + window.form()["Height"].text() + " high."});
        return 1;
    }
    for (const Window::Part& part : parts) {
        const std::string text =
            part.number() == 0 ? "(has no number, and leaves the panel as it is)" : window.pointAt(part);
        print({padded(part.name, 20) + padded(std::to_string(part.number()), 7) + text});
    }
    return 0;
}

}  // namespace

std::span<const Command> helpCommands() {
    static constexpr Command kCommands[] = {
        {"help WINDOW [CONTROL]", "Show the help of traverse, network, file, dataset or options", showHelp},
    };
    return kCommands;
}

}  // namespace tavoru
