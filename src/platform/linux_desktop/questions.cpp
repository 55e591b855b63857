#include "platform/linux_desktop/questions.h"

#include <algorithm>
#include <cmath>

#include "platform/linux_desktop/terminal.h"
#include "platform/papers.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc::linux_desktop {
namespace {

constexpr double kMostCopies = 9999;
constexpr double kMostMillimetres = 10000;
constexpr double kHundredths = 100;

std::string listed(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
    return list;
}

std::vector<std::string> paperNames() {
    std::vector<std::string> names;
    for (const Paper& paper : papers()) names.emplace_back(paper.name);
    return names;
}

/// One of two words, or a beginning of it.
std::optional<bool> askWhether(Terminal& terminal, const std::string& question, const std::string& no,
                               const std::string& yes, bool preset) {
    const auto means = [](const std::string& answer, const std::string& word) {
        return !answer.empty() && text::equalIgnoringCase(word.substr(0, answer.size()), answer);
    };
    const std::optional<std::string> answer =
        terminal.ask(question + " (" + no + ", " + yes + ')', preset ? yes : no,
                     [&](const std::string& given) { return means(given, no) || means(given, yes); });
    if (!answer) return std::nullopt;
    return means(*answer, yes);
}

/// "20, 15.5, 20, 15": millimetres.
std::optional<Rectangle> marginsFrom(std::string_view answer) {
    Rectangle margins{};
    for (std::int32_t* side : {&margins.left, &margins.top, &margins.right, &margins.bottom}) {
        const std::size_t comma = std::min(answer.find(','), answer.size());
        if ((comma == answer.size()) != (side == &margins.bottom)) return std::nullopt;
        const std::optional<double> value = parseNumber(answer.substr(0, comma));
        if (!value || *value < 0 || *value > kMostMillimetres) return std::nullopt;
        *side = static_cast<std::int32_t>(std::lround(*value * kHundredths));
        answer.remove_prefix(std::min(comma + 1, answer.size()));
    }
    return margins;
}

std::string textOf(const Rectangle& margins) {
    const auto side = [](std::int32_t value) { return numberText(value / kHundredths); };
    return listed({side(margins.left), side(margins.top), side(margins.right), side(margins.bottom)});
}

}  // namespace

std::optional<PrinterAnswer> askForPrinter(const LinuxDesktopOptions& options, const PrinterAnswer& preset,
                                           bool offersSelection) {
    if (options.choosePrinter) return options.choosePrinter();
    Terminal terminal(options);
    if (!terminal.canAnswer()) return std::nullopt;

    terminal.tell("--- Print ---  (\"cancel\" leaves at any question)");
    const std::vector<std::string> printers = printerNames();
    PrinterAnswer answer;
    const auto printer = terminal.ask(
        "Printer (" + listed(printers) + ')', preset.printer,
        [&](const std::string& name) { return std::ranges::find(printers, name) != printers.end(); });
    if (!printer) return std::nullopt;
    answer.printer = *printer;

    if (answer.printer == kPdfPrinter) {
        const auto file =
            terminal.ask("File", preset.outputFile, [](const std::string& name) { return !name.empty(); });
        if (!file) return std::nullopt;
        answer.outputFile = *file;
    }
    if (offersSelection) {
        const auto selection = askWhether(terminal, "Only the selection", "no", "yes", preset.selection);
        if (!selection) return std::nullopt;
        answer.selection = *selection;
    }
    const auto copies =
        terminal.ask("Copies", numberText(std::int64_t{preset.copies}), [](const std::string& text) {
            const double value = parseNumber(text).value_or(0);
            return value >= 1 && value <= kMostCopies && value == std::floor(value);
        });
    if (!copies) return std::nullopt;
    answer.copies = static_cast<std::int16_t>(*parseNumber(*copies));
    return answer;
}

std::optional<PageAnswer> askForPage(const LinuxDesktopOptions& options, const PageAnswer& preset) {
    if (options.setUpPage) return options.setUpPage();
    Terminal terminal(options);
    if (!terminal.canAnswer()) return std::nullopt;

    terminal.tell("--- Page setup ---  (\"cancel\" leaves at any question)");
    PageAnswer answer;
    if (!preset.paper.empty()) {
        const auto isKnown = [&](const std::string& name) {
            return name == preset.paper || paperNamed(name) != nullptr;
        };
        const auto paper = terminal.ask("Paper (" + listed(paperNames()) + ')', preset.paper, isKnown);
        if (!paper) return std::nullopt;
        if (*paper != preset.paper) answer.paper = *paper;
    }
    if (preset.landscape) {
        answer.landscape = askWhether(terminal, "Orientation", "portrait", "landscape", *preset.landscape);
        if (!answer.landscape) return std::nullopt;
    }
    if (preset.margins) {
        const auto margins =
            terminal.ask("Margins left, top, right, bottom in millimetres", textOf(*preset.margins),
                         [](const std::string& text) { return marginsFrom(text).has_value(); });
        if (!margins) return std::nullopt;
        answer.margins = marginsFrom(*margins);
    }
    return answer;
}

}  // namespace t_genproc::linux_desktop
