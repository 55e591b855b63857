#include "printing.h"

#include <stdexcept>

#include "print_watch.h"
#include "printing/cPrinter.h"
#include "replaced.h"
#include "rtf.h"
#include "transformations.h"

namespace tavoru {
namespace {

using namespace t_genproc;

void select(const ObjectPointer& control, std::pair<std::int32_t, std::int32_t> characters) {
    const t_gencvf::LateBound text(control);
    text["SelStart"] = characters.first - 1;
    text["SelLength"] = characters.second - characters.first + 1;
    if (toInt32(text["SelLength"].get()) == 0) throw std::runtime_error("there is no such selection");
}

/// Why nothing was printed.
std::string reasonOf(const Desk& desk, const PrintJob& job) {
    if (std::string told = desk.failure(); !told.empty()) return told;
    if (job.hasFailed) return "the printer has not taken the document";
    if (job.wasConfirmed) return "there is no such printer";
    return "nothing was printed: the dialog was cancelled";
}

}  // namespace

Printed printDocument(Tavoru& tavoru, const PrintOrder& order) {
    Platform& platform = tavoru.drive.platform;
    const std::unique_ptr<Desk> desk = openDesk(platform, order.choice);
    PrintJob job{.page = readPageSetting(tavoru)};
    const Replaced watched(platform.printing, std::make_unique<PrintWatch>(*platform.printing, job));

    const ObjectPointer control = desk->openRichText(order.rtf);
    if (order.selection) select(control, *order.selection);
    cPrinter printer(tavoru.library);
    bool isCancelled = false;
    printer.PageSetup(0, kPageOptions, false, isCancelled, true);
    if (!isCancelled) printer.PrintRTF(control, order.title, order.project);
    if (!job.wasConfirmed || job.pages == 0 || job.hasFailed) {
        throw std::runtime_error(reasonOf(*desk, job));
    }
    const bool isFile = job.output.find(':') == 1;
    return {job.pages, isFile ? job.output : ""};
}

std::string transformationsRtf(Tavoru& tavoru) {
    TransformationTables tables(tavoru);
    Lines lines;
    std::string copyright;
    for (; !tables.transformations->atEnd(); tables.transformations->moveNext()) {
        const TransformationTables::Report report = tables.report(true);
        lines.insert(lines.end(), report.lines.begin(), report.lines.end());
        lines.emplace_back();
        if (!report.copyright.empty()) copyright = report.copyright;
    }
    lines.push_back(copyright);
    return rtfOf("Datum transformations", lines);
}

std::string printedText(Tavoru& tavoru, const Printed& printed) {
    const std::string pages = std::to_string(printed.pages) + (printed.pages == 1 ? " page " : " pages ");
    if (printed.fileName.empty()) return pages + "sent to the printer";
    return pages + "in " + tavoru.drive.platform.files->nativePath(printed.fileName).value;
}

}  // namespace tavoru
