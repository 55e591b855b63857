// Texts that are made to fit, lists, prompts, help topics and pages.

#include "display.h"

#include <charconv>
#include <iostream>
#include <limits>

#include "commands/commands.h"
#include "runtime/text.h"
#include "screen.h"

namespace tavoru {
namespace {

/// Throws `Failure`: it is none of this type.
template <class Number, class Failure = WrongUse>
Number wholeNumber(std::string_view text, const std::string& place) {
    using Limits = std::numeric_limits<Number>;
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure == std::errc() && stop == end) return number;
    throw Failure(place + ": " + std::string(text) + " is no whole number from " +
                  std::to_string(Limits::min()) + " to " + std::to_string(Limits::max()));
}

// ---- Labels and fields

int abbreviate(const Places& places, const Arguments& arguments) {
    const auto width = wholeNumber<std::int32_t>(arguments[1], "abbreviate");
    Tavoru tavoru(places);
    print(labelLines(tavoru.procs, arguments[0], width));
    return 0;
}

int combine(const Places& places, const Arguments& arguments) {
    const auto width = wholeNumber<std::int16_t>(arguments[2], "combine");
    const bool hasID = !arguments[0].empty();
    Tavoru tavoru(places);
    print({inBars(tavoru.procs.CombineAlphaDesc(arguments[0], arguments[1], width, hasID))});
    return 0;
}

// ---- Lists

/// The lines of the input from element 1 on, where the library starts to sort.
Lines inputLines() {
    Lines lines(1);
    for (std::string line; std::getline(std::cin, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

/// In place.
void sortNumbers(t_genproc::cGenProcs& procs, Lines& lines) {
    std::vector<std::int32_t> numbers(1);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        numbers.push_back(wholeNumber<std::int32_t, std::runtime_error>(t_genproc::text::trim(lines[i]),
                                                                        "line " + std::to_string(i)));
    }
    procs.ShellSort(numbers);
    for (std::size_t i = 1; i < lines.size(); ++i) lines[i] = std::to_string(numbers[i]);
}

int sort(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    Lines lines = inputLines();
    if (arguments[0].empty()) {
        tavoru.procs.Shell_Sort(lines);
    } else {
        sortNumbers(tavoru.procs, lines);
    }
    print({lines.begin() + 1, lines.end()});
    return 0;
}

// ---- Prompts, help, pages

int prompt(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    print(promptLines(tavoru, arguments[0]));
    return 0;
}

int showTopic(const Places& places, const Arguments& arguments) {
    const auto topic = wholeNumber<std::int32_t>(arguments[0], "topic");
    Tavoru tavoru(places);
    print(topicLines(tavoru, topic, !arguments[1].empty()));
    return 0;
}

int showPages(const Places& places, const Arguments& arguments) {
    constexpr std::ptrdiff_t kFirst = 16;
    constexpr std::ptrdiff_t kColumn = 10;
    const auto records = wholeNumber<std::int16_t>(arguments[0], "page");
    Tavoru tavoru(places);
    Lines lines{padded("header records", kFirst), padded("once", kFirst), padded("on every page", kFirst)};
    for (std::int32_t page = 1; page <= 3; ++page) {
        lines[0] += padded("page " + std::to_string(page), kColumn);
        for (const bool every : {false, true}) {
            std::int16_t start = 0;
            tavoru.procs.CheckPageHeader(records, every, page, start);
            lines[every ? 2 : 1] += padded(start == 0 ? "yes" : "no", kColumn);
        }
    }
    for (std::string& line : lines) line = t_genproc::text::trimRight(line);
    print(lines);
    return 0;
}

}  // namespace

std::span<const Command> displayCommands() {
    static constexpr Command kCommands[] = {
        {"abbreviate PATH WIDTH", "Fit a path to a label, WIDTH twips wide, step by step", abbreviate},
        {"combine ID DESCRIPTION WIDTH", "Show both in a field of WIDTH characters", combine},
        {"sort [--numbers]", "Sort the lines of the input, or the whole numbers in them", sort},
        {"prompt TEXT", "Show the status area before a prompt, with it and after it", prompt},
        {"topic N [--open]", "Show what the help viewer is asked for, and open the page", showTopic},
        {"page RECORDS", "Show which pages begin with that many header records", showPages},
    };
    return kCommands;
}

}  // namespace tavoru
