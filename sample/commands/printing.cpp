// Printers, the page, documents on paper, and pictures of windows.

#include "printing.h"

#include <charconv>
#include <filesystem>
#include <sstream>
#include <tuple>

#include "commands/commands.h"
#include "os/cAPIprocs.h"
#include "platform/picture.h"
#include "print_watch.h"
#include "printing/cPrinter.h"
#include "replaced.h"
#include "rtf.h"
#include "runtime/text.h"
#include "screen.h"

namespace tavoru {
namespace {

using namespace t_genproc;

// ---- Printers and the page

int listPrinters(const Places& places, const Arguments& /*arguments*/) {
    Tavoru tavoru(places);
    print(openDesk(tavoru.drive.platform, {})->printerNames());
    return 0;
}

/// The page that the user makes of `page` in the dialog.
PageSetting askForPage(Tavoru& tavoru, const PageSetting& page) {
    Platform& platform = tavoru.drive.platform;
    const std::unique_ptr<Desk> desk = openDesk(platform, {});
    PrintJob job{.page = page, .asksForPage = true};
    const Replaced watched(platform.printing, std::make_unique<PrintWatch>(*platform.printing, job));
    bool isCancelled = false;
    cPrinter(tavoru.library).PageSetup(0, kPageOptions, false, isCancelled, true);
    if (!isCancelled) return job.page;
    const std::string reason = desk->failure();
    throw std::runtime_error(reason.empty() ? "the page stays as it was: the dialog was cancelled" : reason);
}

int setUpPage(const Places& places, const Arguments& arguments) {
    const auto& [landscape, paper, margins] = std::tie(arguments[0], arguments[1], arguments[2]);
    const auto number = paperNumber(paper);
    const auto edges = marginsOf(margins);
    if (!paper.empty() && !number) throw WrongUse("page-setup: there is no paper " + paper);
    if (!margins.empty() && !edges)
        throw WrongUse("page-setup: " + margins + " is not like 2000,2000,2000,2000");

    Tavoru tavoru(places);
    PageSetting page = readPageSetting(tavoru);
    if (landscape.empty() && paper.empty() && margins.empty()) {
        page = askForPage(tavoru, page);
    } else {
        page.landscape = page.landscape || !landscape.empty();
        page.paper = number.value_or(page.paper);
        page.margins = edges.value_or(page.margins);
    }
    keepPageSetting(tavoru, page);
    print(pageLines(page));
    return 0;
}

// ---- Documents

/// "1,200" as a first and a last character. Throws WrongUse.
std::pair<std::int32_t, std::int32_t> selectionOf(const std::string& text) {
    std::pair<std::int32_t, std::int32_t> selection;
    const char* const end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, selection.first);
    const auto last = first.ptr == end ? first : std::from_chars(first.ptr + 1, end, selection.second);
    if (first.ec != std::errc() || last.ec != std::errc() || *first.ptr != ',' || last.ptr != end ||
        selection.first < 1 || selection.second < selection.first) {
        throw WrongUse("print: " + text + " is not the first and the last character, like 1,200");
    }
    return selection;
}

std::string readBytes(Files& files, const std::string& fileName) {
    constexpr std::size_t kBlock = 1 << 16;
    const auto file = files.CreateFileA(fileName, FileUse::Read);
    if (!file) throw std::runtime_error("cannot open " + fileName);
    std::string bytes;
    Outcome<std::string> block;
    while ((block = files.ReadFile(file.value, kBlock)) && !block.value.empty()) bytes += block.value;
    files.CloseHandle(file.value);
    if (!block) throw std::runtime_error("cannot read " + fileName);
    return bytes;
}

/// The file as it is, where it is a rich text; otherwise a rich text of its lines.
std::string fileAsRtf(Files& files, const std::string& fileName) {
    std::string bytes = readBytes(files, fileName);
    if (bytes.starts_with("{\\rtf")) return bytes;
    std::istringstream text(files.decode(bytes));
    Lines lines;
    for (std::string line; std::getline(text, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return rtfOf("", lines);
}

/// What the word of the user stands for.
std::string documentRtf(Tavoru& tavoru, const Places& places, const std::string& word) {
    if (word == "transformations") return transformationsRtf(tavoru);
    Files& files = *tavoru.drive.platform.files;
    if (word == "settings") return fileAsRtf(files, tavoru.prog.userINIpath);
    const auto document = places.samples / "Documents" / word;
    const bool isOurs = word.find_first_of(":/\\") == std::string::npos && !std::filesystem::exists(word) &&
                        std::filesystem::exists(document);
    return fileAsRtf(files, pathOnDrive(isOurs ? document.string() : word));
}

int printFile(const Places& places, const Arguments& arguments) {
    const auto& [file, project, selection, printer, output] =
        std::tie(arguments[0], arguments[1], arguments[2], arguments[3], arguments[4]);
    PrintOrder order{.title = file, .project = project};
    if (!selection.empty()) order.selection = selectionOf(selection);
    if (!printer.empty() || !output.empty()) {
        if (!kAnswersPrintDialog)
            throw WrongUse("print: here the print dialog asks for the printer and the file");
        order.choice = {printer, output.empty() ? output : pathOnDrive(output)};
    }
    Tavoru tavoru(places);
    order.rtf = documentRtf(tavoru, places, file);
    print({printedText(tavoru, printDocument(tavoru, order))});
    return 0;
}

// ---- Pictures of windows

/// A window by its number, "0x" ahead of a hexadecimal one, or by its title.
WindowHandle windowNamed(Desk& desk, const std::string& word) {
    const bool isHexadecimal = word.starts_with("0x");
    WindowHandle window = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, failure] =
        std::from_chars(word.data() + (isHexadecimal ? 2 : 0), end, window, isHexadecimal ? 16 : 10);
    if (failure != std::errc() || stop != end) window = desk.windowTitled(word);
    if (window == 0) throw std::runtime_error("there is no window " + word);
    return window;
}

int capture(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    const std::unique_ptr<Desk> desk = openDesk(tavoru.drive.platform, {});
    ObjectPointer object;
    if (arguments[0] == "active") {
        object = cPrinter(tavoru.library).CaptureActiveWindow();
    } else {
        const WindowHandle window = windowNamed(*desk, arguments[0]);
        const Rectangle area = tavoru.drive.platform.graphics->GetWindowRect(window).value;
        object = cAPIprocs(tavoru.library)
                     .CaptureWindow(window, false, 0, 0, area.right - area.left, area.bottom - area.top);
    }
    const auto picture = std::dynamic_pointer_cast<Picture>(object);
    if (!picture) throw std::runtime_error("the system makes no picture of it");
    picture->saveAsPng(pathOnDrive(arguments[1]));
    return 0;
}

}  // namespace

std::span<const Command> printingCommands() {
    static constexpr Command kCommands[] = {
        {"printers", "List the printers", listPrinters},
        {"page-setup [--landscape] [--paper NAME] [--margins L,T,R,B]",
         "Set up the page, margins in 0.01 mm; without options, a dialog asks", setUpPage},
        {"print FILE [--project ID] [--selection FROM,TO] [--printer NAME] [--to OUT.pdf]",
         "Print a rich or plain text, or: transformations, settings", printFile},
        {"capture WINDOW OUT", "Save a picture of a window: active, a number, or a title", capture},
    };
    return kCommands;
}

}  // namespace tavoru
