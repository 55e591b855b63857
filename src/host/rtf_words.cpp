#include "host/rtf_words.h"

#include <algorithm>

namespace t_gencvf {
namespace {

constexpr struct {
    std::string_view word;
    char32_t character;
} kCharacters[] = {
    {"par", '\n'},
    {"line", '\v'},
    {"page", '\f'},
    {"sect", '\f'},
    {"tab", '\t'},
    {"row", '\n'},
    {"cell", '\t'},
    {"\n", '\n'},
    {"\r", '\n'},
    {"\t", '\t'},
    {"\\", '\\'},
    {"{", '{'},
    {"}", '}'},
    {"~", 0xA0},
    {"_", 0x2011},
    {"bullet", 0x2022},
    {"endash", 0x2013},
    {"emdash", 0x2014},
    {"lquote", 0x2018},
    {"rquote", 0x2019},
    {"ldblquote", 0x201C},
    {"rdblquote", 0x201D},
    {"enspace", 0x2002},
    {"emspace", 0x2003},
    {"'", kReplacementCharacter},
};

constexpr struct {
    std::string_view word;
    RtfDestination destination;
} kDestinations[] = {
    {"fonttbl", RtfDestination::Fonts},
    {"colortbl", RtfDestination::Colours},
    {"*", RtfDestination::Nowhere},
    {"stylesheet", RtfDestination::Nowhere},
    {"info", RtfDestination::Nowhere},
    {"pict", RtfDestination::Nowhere},
    {"object", RtfDestination::Nowhere},
    {"header", RtfDestination::Nowhere},
    {"headerl", RtfDestination::Nowhere},
    {"headerr", RtfDestination::Nowhere},
    {"headerf", RtfDestination::Nowhere},
    {"footer", RtfDestination::Nowhere},
    {"footerl", RtfDestination::Nowhere},
    {"footerr", RtfDestination::Nowhere},
    {"footerf", RtfDestination::Nowhere},
    {"footnote", RtfDestination::Nowhere},
    {"fldinst", RtfDestination::Nowhere},
    {"listtable", RtfDestination::Nowhere},
    {"filetbl", RtfDestination::Nowhere},
    {"revtbl", RtfDestination::Nowhere},
    {"nonshppict", RtfDestination::Nowhere},
    {"themedata", RtfDestination::Nowhere},
    {"tc", RtfDestination::Nowhere},
    {"xe", RtfDestination::Nowhere},
    {"listoverridetable", RtfDestination::Nowhere},
};

/// In twips, no further than the largest paper.
std::int32_t length(std::int32_t number) {
    constexpr std::int32_t kMost = 31680;
    return std::clamp(number, -kMost, kMost);
}

double fontSize(std::int32_t halfPoints) { return std::clamp(halfPoints, 2, 2 * 1638) / 2.0; }

void addTab(ParagraphFormat& paragraph, std::int32_t number) {
    constexpr std::size_t kMost = 32;  // as rich-text controls have
    std::vector<std::int32_t>& tabs = paragraph.tabs;
    const auto place = std::ranges::lower_bound(tabs, length(number));
    if (number <= 0 || tabs.size() == kMost || (place != tabs.end() && *place == length(number))) return;
    tabs.insert(place, length(number));
}

void setColour(RtfState& state, std::int32_t number, unsigned shift) {
    const auto part = static_cast<std::uint32_t>(std::clamp(number, 0, 255));
    state.newColour = (state.newColour & ~(0xFFU << shift)) | part << shift;
}

void makePlain(RtfState& state) {
    state.character = {};
    state.font = kDefaultFont;
    state.colour = 0;
    state.hidden = false;
}

constexpr struct {
    std::string_view word;
    std::int32_t otherwise;  // where the word has no number
    void (*apply)(RtfState& state, std::int32_t number);
} kFormats[] = {
    {"plain", 0, [](RtfState& s, std::int32_t) { makePlain(s); }},
    {"f", 0, [](RtfState& s, std::int32_t n) { s.font = std::max(n, 0); }},
    {"fs", 24, [](RtfState& s, std::int32_t n) { s.character.size = fontSize(n); }},
    {"b", 1, [](RtfState& s, std::int32_t n) { s.character.bold = n != 0; }},
    {"i", 1, [](RtfState& s, std::int32_t n) { s.character.italic = n != 0; }},
    {"ul", 1, [](RtfState& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"uld", 1, [](RtfState& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"uldb", 1, [](RtfState& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"ulw", 1, [](RtfState& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"ulnone", 0, [](RtfState& s, std::int32_t) { s.character.underline = false; }},
    {"cf", 0, [](RtfState& s, std::int32_t n) { s.colour = n; }},
    {"v", 1, [](RtfState& s, std::int32_t n) { s.hidden = n != 0; }},

    {"pard", 0, [](RtfState& s, std::int32_t) { s.paragraph = {}; }},
    {"ql", 0, [](RtfState& s, std::int32_t) { s.paragraph.alignment = Alignment::Left; }},
    {"qc", 0, [](RtfState& s, std::int32_t) { s.paragraph.alignment = Alignment::Centre; }},
    {"qr", 0, [](RtfState& s, std::int32_t) { s.paragraph.alignment = Alignment::Right; }},
    {"qj", 0, [](RtfState& s, std::int32_t) { s.paragraph.alignment = Alignment::Justified; }},
    {"li", 0, [](RtfState& s, std::int32_t n) { s.paragraph.leftIndent = length(n); }},
    {"ri", 0, [](RtfState& s, std::int32_t n) { s.paragraph.rightIndent = length(n); }},
    {"fi", 0, [](RtfState& s, std::int32_t n) { s.paragraph.firstLineIndent = length(n); }},
    {"sb", 0, [](RtfState& s, std::int32_t n) { s.paragraph.spaceBefore = std::max(length(n), 0); }},
    {"sa", 0, [](RtfState& s, std::int32_t n) { s.paragraph.spaceAfter = std::max(length(n), 0); }},
    {"tx", 0, [](RtfState& s, std::int32_t n) { addTab(s.paragraph, n); }},

    {"deff", 0, [](RtfState& s, std::int32_t n) { s.defaultFont = std::max(n, 0); }},
    {"uc", 1, [](RtfState& s, std::int32_t n) { s.fallback = std::max(n, 0); }},
    {"red", 0, [](RtfState& s, std::int32_t n) { setColour(s, n, 16); }},
    {"green", 0, [](RtfState& s, std::int32_t n) { setColour(s, n, 8); }},
    {"blue", 0, [](RtfState& s, std::int32_t n) { setColour(s, n, 0); }},
};

/// The row of a table; null where there is none.
template <class Table>
auto find(const Table& table, std::string_view word) -> decltype(&*std::begin(table)) {
    const auto found = std::ranges::find(table, word, [](const auto& row) { return row.word; });
    return found == std::end(table) ? nullptr : &*found;
}

}  // namespace

std::optional<char32_t> rtfCharacter(std::string_view word) {
    const auto* const row = find(kCharacters, word);
    return row == nullptr ? std::nullopt : std::optional(row->character);
}

std::optional<RtfDestination> rtfDestination(std::string_view word) {
    const auto* const row = find(kDestinations, word);
    return row == nullptr ? std::nullopt : std::optional(row->destination);
}

void applyRtfWord(RtfState& state, std::string_view word, std::optional<std::int32_t> number) {
    if (const auto* const row = find(kFormats, word)) row->apply(state, number.value_or(row->otherwise));
}

}  // namespace t_gencvf
