// A data-entry form in the terminal.

#include <iostream>

#include "commands/commands.h"
#include "entry_form.h"
#include "runtime/errors.h"
#include "screen.h"

namespace tavoru {
namespace {

int fillForm(const Places& places, const Arguments& /*arguments*/) {
    Tavoru tavoru(places);
    EntryForm form(tavoru.procs);
    print(form.lines());
    for (std::string step; std::getline(std::cin, step);) {
        if (step.ends_with('\r')) step.pop_back();
        print({"", "> " + step});
        try {
            form.step(step);
        } catch (const t_genproc::RuntimeError& error) {
            print({"Error " + std::to_string(error.number()) + ": " + std::string(error.description())});
        }
        print(form.lines());
    }
    return 0;
}

}  // namespace

std::span<const Command> formCommands() {
    static constexpr Command kCommands[] = {
        {"form", "Fill a form: each input line is down, up, enter, trim or a text", fillForm},
    };
    return kCommands;
}

}  // namespace tavoru
