#include "commands/session_chapters.h"
#include "printing.h"
#include "screen.h"

namespace tavoru {

void printReport(Tavoru& tavoru) {
    heading("A report on paper");
    if (!kAnswersPrintDialog) {
        tell(R"(The client wants the transformations on paper. The command below shows the system's print
             dialog, and prints the report page by page with the number of the project above the text.)");
        show({"./run print transformations --project \"Quarry 2026-014\""});
        return;
    }
    tell(
        R"(The client wants all transformations on paper. The application writes them into a rich text, and the
         library prints it page by page, with the number of the project above the text. In the print dialog
         the surveyor has chosen the printer that writes PDF files.)");
    const Printed printed =
        printDocument(tavoru, {.title = "Datum transformations",
                               .rtf = transformationsRtf(tavoru),
                               .project = "Quarry 2026-014",
                               .choice = PrinterChoice{"", tavoru.mainPath() + "Report.pdf"}});
    show({printed.fileName, printedText(tavoru, printed)});
}

}  // namespace tavoru
