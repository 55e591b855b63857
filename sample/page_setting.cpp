#include "page_setting.h"

#include <charconv>

#include "platform/papers.h"

namespace tavoru {
namespace {

constexpr const char *kSection = "Printing", *kOrientation = "Orientation", *kPaper = "Paper",
                     *kMargins = "Margins", *kLandscape = "Landscape";

std::string paperName(std::int16_t number) {
    const t_genproc::Paper* const paper = t_genproc::paperNumbered(number);
    if (paper != nullptr) return std::string(paper->name);
    return number == 0 ? "" : std::to_string(number);
}

/// Takes a number from 0 on and what separates it from the next one.
std::optional<std::int32_t> takeNumber(std::string_view& text, std::int32_t most) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || number < 0 || number > most) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    if (text.starts_with(',') && text.size() > 1) text.remove_prefix(1);
    return number;
}

std::string marginsText(const t_genproc::Rectangle& margins) {
    return std::to_string(margins.left) + "," + std::to_string(margins.top) + "," +
           std::to_string(margins.right) + "," + std::to_string(margins.bottom);
}

}  // namespace

std::optional<std::int16_t> paperNumber(const std::string& name) {
    const t_genproc::Paper* const paper = t_genproc::paperNamed(name);
    if (paper != nullptr) return paper->number;
    std::string_view rest = name;
    const auto number = takeNumber(rest, std::numeric_limits<std::int16_t>::max());
    if (!number || *number == 0 || !rest.empty()) return std::nullopt;
    return static_cast<std::int16_t>(*number);
}

std::optional<t_genproc::Rectangle> marginsOf(std::string_view text) {
    constexpr std::int32_t kMost = 100'000;
    t_genproc::Rectangle margins;
    for (std::int32_t* margin : {&margins.left, &margins.top, &margins.right, &margins.bottom}) {
        const auto number = takeNumber(text, kMost);
        if (!number) return std::nullopt;
        *margin = *number;
    }
    return text.empty() ? std::optional(margins) : std::nullopt;
}

PageSetting readPageSetting(Tavoru& tavoru) {
    const auto kept = [&](const char* key) {
        return tavoru.procs.INIstringGet(tavoru.prog.userINIpath, kSection, key);
    };
    PageSetting page;
    page.landscape = kept(kOrientation) == kLandscape;
    page.paper = paperNumber(kept(kPaper)).value_or(page.paper);
    page.margins = marginsOf(kept(kMargins)).value_or(page.margins);
    return page;
}

void keepPageSetting(Tavoru& tavoru, const PageSetting& page) {
    const std::string& file = tavoru.prog.userINIpath;
    const std::pair<const char*, std::string> values[] = {
        {kOrientation, page.landscape ? kLandscape : "Portrait"},
        {kPaper, paperName(page.paper)},
        {kMargins, marginsText(page.margins)},
    };
    for (const auto& [key, value] : values) {
        if (!tavoru.procs.INIstringSet(file, kSection, key, value)) {
            throw std::runtime_error(file + " does not take the page set-up");
        }
    }
}

Lines pageLines(const PageSetting& page) {
    return {
        std::string("Orientation  ") + (page.landscape ? kLandscape : "Portrait"),
        "Paper        " + (page.paper == 0 ? "that of the printer" : paperName(page.paper)),
        "Margins      " + marginsText(page.margins) + " hundredths of a millimetre",
    };
}

}  // namespace tavoru
