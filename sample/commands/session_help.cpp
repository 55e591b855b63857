#include "commands/session_chapters.h"

#include <sstream>

#include "help_windows.h"
#include "replaced.h"
#include "screen.h"

namespace tavoru {
namespace {

/// Message boxes for a session that nobody attends.
struct BoxesOnPaper final : t_genproc::WindowsAndMessages {
    t_genproc::MessageAnswer MessageBoxA(const std::string& text, const std::string& caption,
                                         std::uint32_t /*style*/) override {
        Lines box{"--- " + caption + " ---"};
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            box.push_back(line.substr(0, line.find('\r')));
        }
        show(box);
        return t_genproc::MessageAnswer::Ok;
    }
    void DispatchPendingMessages() override {}
};

void point(Window& window, const std::string& name) {
    const Window::Part part = window.partsNamed(name).front();
    show({part.name + ", " + std::to_string(part.number()), "  " + window.pointAt(part)});
}

std::string stateOf(const Window& window) {
    return "Height " + window.form()["Height"].text() + ", pnlHelp.Height " +
           window.form()["pnlHelp"]["Height"].text() + ", MenuIhelp.Checked " +
           window.form()["MenuIhelp"]["Checked"].text();
}

}  // namespace

void readHelp(Tavoru& tavoru) {
    heading("A line of help");
    tell(R"(A panel at the bottom of each window explains the control under the pointer. The texts are in a
         database that only the library can open; the setup has made it. The surveyor opens the window for
         traverses, and the pointer passes over three controls.)");
    Window traverse(tavoru.library, "traverse", true);
    traverse.loadHelp(tavoru.messagesPath());
    point(traverse, "txtAngle");
    point(traverse, "txtKfactor");
    point(traverse, "optAdjustMethod(1)");
    tell("Between the controls it is the window's turn.");
    point(traverse, "frmTraverse");
    tell("The remarks explain themselves, somebody thought, and wrote no text for them.");
    point(traverse, "txtRemarks");

    tell(R"(The window of data sets looks for the database in a wrong place. The library says so, folds the
         panel away, which makes the window that much lower, and unchecks Instant Help in its menu.)");
    Window dataset(tavoru.library, "dataset", true);
    const std::string before = stateOf(dataset);
    {
        const Replaced onPaper(tavoru.drive.platform.windows, std::make_unique<BoxesOnPaper>());
        dataset.loadHelp(tavoru.prog.progPath + "Lost\\Messages.db");
    }
    show({"before  " + before, "after   " + stateOf(dataset)});
}

}  // namespace tavoru
