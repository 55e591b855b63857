/// Printers, rich-text controls and windows, as the system under the sample host has them. The build picks
/// desk_posix.cpp or desk_windows.cpp.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/object.h"
#include "platform/platform.h"

namespace tavoru {

/// What the print dialog would ask for.
struct PrinterChoice {
    std::string printer{};     ///< empty: the one that writes `outputFile`, or else the system's default one
    std::string outputFile{};  ///< where the pages go, a backslash path; empty: the printer decides
};

class Desk {
   public:
    virtual ~Desk() = default;

    virtual std::vector<std::string> printerNames() = 0;

    /// A control that shows `rtf`, with the members that cPrinter::PrintRTF needs. The desk outlives it.
    virtual t_genproc::ObjectPointer openRichText(const std::string& rtf) = 0;

    /// Why the last document could not be printed; empty where the system has not told.
    virtual std::string failure() const = 0;

    /// The window with this title; 0 where there is none.
    virtual t_genproc::WindowHandle windowTitled(const std::string& title) = 0;
};

/// Puts what prints and captures windows into `platform`, as long as the desk stands. `choice` answers the
/// print dialog, where kAnswersPrintDialog; without a choice the user is asked. Of a text in which something
/// is selected the answer is to print nothing else.
std::unique_ptr<Desk> openDesk(t_genproc::Platform& platform, const std::optional<PrinterChoice>& choice);

/// Whether a program can answer the system's print dialog.
extern const bool kAnswersPrintDialog;

/// The library's name of a file that the user names: a path with a drive, or one that the shell knows.
std::string pathOnDrive(const std::string& name);

}  // namespace tavoru
