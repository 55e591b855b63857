/// Printing into PDF files and to the printers of CUPS, and pictures of the windows of an X display.
///
///     Platform platform = portablePlatform();
///     addLinuxDesktop(platform, {.richText = [&](WindowHandle window) { return texts.find(window); }});
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/rich_text.h"
#include "platform/platform.h"

namespace t_genproc {

/// The printer that writes PDF files; it is always there.
inline constexpr const char* kPdfPrinter = "PDF file";

/// What a user chooses in the print dialog.
struct PrinterAnswer {
    std::string printer{};     ///< its name; empty: the one chosen before, or the system's default one
    std::string outputFile{};  ///< where the PDF printer writes, a backslash path
    bool selection = false;    ///< only what is selected, where the dialog offers it
    std::int16_t copies = 1;
};

/// What a user chooses in the page-setup dialog; what is missing stays as it was.
struct PageAnswer {
    std::optional<bool> landscape{};
    std::string paper{};                 ///< "A4", "Letter" and so on, as papers.h has them
    std::optional<Rectangle> margins{};  ///< hundredths of a millimetre, from the edges of the paper
};

struct LinuxDesktopOptions {
    /// Answer the dialogs; none: cancelled. Without these functions they are asked on the terminal.
    std::function<std::optional<PrinterAnswer>()> choosePrinter{};
    std::function<std::optional<PageAnswer>()> setUpPage{};

    /// The terminal: by default the standard error output and the standard input. Where nobody can answer, a
    /// dialog is cancelled.
    std::ostream* questions = nullptr;
    std::istream* answers = nullptr;

    /// Told why a document could not be printed; by default the terminal is.
    std::function<void(const std::string& message)> failed{};

    /// The text of the rich-text control with this window; none: there is no such control.
    std::function<std::shared_ptr<const t_gencvf::RichText>(WindowHandle window)> richText{};

    std::string display{};  ///< of the windows: ":0"; empty: what DISPLAY names
};

/// Puts the services into `platform`, in the place of those that refuse. They read paths with its `files`,
/// which must outlive them.
void addLinuxDesktop(Platform& platform, LinuxDesktopOptions options = {});

/// The names of all printers, the PDF printer first.
std::vector<std::string> printerNames();

}  // namespace t_genproc
