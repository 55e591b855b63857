/// Documents of the application on paper, or in a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "desk.h"
#include "tavoru.h"

namespace tavoru {

struct PrintOrder {
    std::string title{};  ///< of the document, behind the program's name
    std::string rtf{};
    std::string project{};                  ///< above the text of each page
    std::optional<PrinterChoice> choice{};  ///< none: the print dialog asks
    /// The first and the last character to print, from 1 on.
    std::optional<std::pair<std::int32_t, std::int32_t>> selection{};
};

struct Printed {
    int pages = 0;
    std::string fileName{};  ///< a backslash path; empty where the pages have gone to a printer
};

/// Prints on the page that the settings keep. Throws std::runtime_error: why nothing was printed.
Printed printDocument(Tavoru& tavoru, const PrintOrder& order);

/// The report of all transformations of the database.
std::string transformationsRtf(Tavoru& tavoru);

/// What the user sees of it: "2 pages in /home/ann/Report.pdf".
std::string printedText(Tavoru& tavoru, const Printed& printed);

}  // namespace tavoru
