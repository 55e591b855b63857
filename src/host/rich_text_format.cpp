#include "host/rich_text_format.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "host/rtf_tokens.h"
#include "runtime/text.h"

namespace t_gencvf {
namespace {

constexpr char32_t kReplacement = 0xFFFD;  // for what is no character

// ---- Characters

/// 0x80 to 0x9F in Windows-1252; all other bytes are the first characters of Unicode.
constexpr char16_t kWindows1252[] = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178,
};
constexpr char32_t fromWindows1252(char32_t byte) {
    return byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80] : byte;
}

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Makes a text, and keeps what it promises.
class TextBuilder {
   public:
    /// Control characters without a meaning are left out. A page ends with the paragraph ahead, not with an
    /// empty one.
    void append(char32_t character, const CharacterFormat& format, const ParagraphFormat& paragraph) {
        if (character < ' ' && (character < '\t' || character > '\f')) return;
        std::string& text = text_.text;
        if (character == '\f' && text.ends_with('\n')) {
            text.back() = '\f';
            return;
        }
        t_genproc::text::appendCharacter(text, character);
        if (text_.runs.empty() || text_.runs.back().format != format) text_.runs.push_back({0, format});
        text_.runs.back().end = text.size();
        if (paragraphEnded_) text_.paragraphs.emplace_back();
        text_.paragraphs.back() = {text.size(), paragraph};
        paragraphEnded_ = character == '\n' || character == '\f';
    }

    RichText take() { return std::move(text_); }

   private:
    RichText text_;
    bool paragraphEnded_ = true;
};

// ---- Control words

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
    {"'", kReplacement},
};

/// Where the text of a group goes to.
enum class Destination { Text, Fonts, Colours, Nowhere };

constexpr struct {
    std::string_view word;
    Destination destination;
} kDestinations[] = {
    {"fonttbl", Destination::Fonts},
    {"colortbl", Destination::Colours},
    {"*", Destination::Nowhere},
    {"stylesheet", Destination::Nowhere},
    {"info", Destination::Nowhere},
    {"pict", Destination::Nowhere},
    {"object", Destination::Nowhere},
    {"header", Destination::Nowhere},
    {"headerl", Destination::Nowhere},
    {"headerr", Destination::Nowhere},
    {"headerf", Destination::Nowhere},
    {"footer", Destination::Nowhere},
    {"footerl", Destination::Nowhere},
    {"footerr", Destination::Nowhere},
    {"footerf", Destination::Nowhere},
    {"footnote", Destination::Nowhere},
    {"fldinst", Destination::Nowhere},
    {"listtable", Destination::Nowhere},
    {"filetbl", Destination::Nowhere},
    {"revtbl", Destination::Nowhere},
    {"nonshppict", Destination::Nowhere},
    {"themedata", Destination::Nowhere},
    {"tc", Destination::Nowhere},
    {"xe", Destination::Nowhere},
    {"listoverridetable", Destination::Nowhere},
};

constexpr std::int32_t kDefaultFont = -1;

/// What a group takes over from the one around it, and gives up at its end.
struct State {
    Destination destination = Destination::Text;
    CharacterFormat character{};  // but for these two
    std::int32_t font = kDefaultFont;
    std::int32_t colour = 0;
    bool hidden = false;
    ParagraphFormat paragraph{};
    std::int32_t defaultFont = 0;
    std::int32_t fallback = 1;  // characters behind a \u for readers that do not know it
    std::uint32_t newColour = 0;
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

void setColour(State& state, std::int32_t number, unsigned shift) {
    const auto part = static_cast<std::uint32_t>(std::clamp(number, 0, 255));
    state.newColour = (state.newColour & ~(0xFFU << shift)) | part << shift;
}

void makePlain(State& state) {
    state.character = {};
    state.font = kDefaultFont;
    state.colour = 0;
    state.hidden = false;
}

constexpr struct {
    std::string_view word;
    std::int32_t otherwise;  // where the word has no number
    void (*apply)(State& state, std::int32_t number);
} kFormats[] = {
    {"plain", 0, [](State& s, std::int32_t) { makePlain(s); }},
    {"f", 0, [](State& s, std::int32_t n) { s.font = std::max(n, 0); }},
    {"fs", 24, [](State& s, std::int32_t n) { s.character.size = fontSize(n); }},
    {"b", 1, [](State& s, std::int32_t n) { s.character.bold = n != 0; }},
    {"i", 1, [](State& s, std::int32_t n) { s.character.italic = n != 0; }},
    {"ul", 1, [](State& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"uld", 1, [](State& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"uldb", 1, [](State& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"ulw", 1, [](State& s, std::int32_t n) { s.character.underline = n != 0; }},
    {"ulnone", 0, [](State& s, std::int32_t) { s.character.underline = false; }},
    {"cf", 0, [](State& s, std::int32_t n) { s.colour = n; }},
    {"v", 1, [](State& s, std::int32_t n) { s.hidden = n != 0; }},

    {"pard", 0, [](State& s, std::int32_t) { s.paragraph = {}; }},
    {"ql", 0, [](State& s, std::int32_t) { s.paragraph.alignment = Alignment::Left; }},
    {"qc", 0, [](State& s, std::int32_t) { s.paragraph.alignment = Alignment::Centre; }},
    {"qr", 0, [](State& s, std::int32_t) { s.paragraph.alignment = Alignment::Right; }},
    {"qj", 0, [](State& s, std::int32_t) { s.paragraph.alignment = Alignment::Justified; }},
    {"li", 0, [](State& s, std::int32_t n) { s.paragraph.leftIndent = length(n); }},
    {"ri", 0, [](State& s, std::int32_t n) { s.paragraph.rightIndent = length(n); }},
    {"fi", 0, [](State& s, std::int32_t n) { s.paragraph.firstLineIndent = length(n); }},
    {"sb", 0, [](State& s, std::int32_t n) { s.paragraph.spaceBefore = std::max(length(n), 0); }},
    {"sa", 0, [](State& s, std::int32_t n) { s.paragraph.spaceAfter = std::max(length(n), 0); }},
    {"tx", 0, [](State& s, std::int32_t n) { addTab(s.paragraph, n); }},

    {"deff", 0, [](State& s, std::int32_t n) { s.defaultFont = std::max(n, 0); }},
    {"uc", 1, [](State& s, std::int32_t n) { s.fallback = std::max(n, 0); }},
    {"red", 0, [](State& s, std::int32_t n) { setColour(s, n, 16); }},
    {"green", 0, [](State& s, std::int32_t n) { setColour(s, n, 8); }},
    {"blue", 0, [](State& s, std::int32_t n) { setColour(s, n, 0); }},
};

/// The row of a table; null where there is none.
template <class Table>
auto find(const Table& table, std::string_view word) -> decltype(&*std::begin(table)) {
    const auto found = std::ranges::find(table, word, [](const auto& row) { return row.word; });
    return found == std::end(table) ? nullptr : &*found;
}

// ---- The reader

class RtfReader {
   public:
    RichText read(std::string_view bytes);

   private:
    void open();
    void close();
    bool isFallback(const RtfToken& token);
    void byte(unsigned char byte);
    void word(const RtfToken& token);
    void takeUnit(char32_t unit);
    void takeCharacter(char32_t character);
    void endFont();
    std::int32_t font() const { return state_.font == kDefaultFont ? state_.defaultFont : state_.font; }
    CharacterFormat format() const;

    State state_;
    std::vector<State> outer_;
    std::size_t tooDeep_ = 0;  // groups that share one state, so that a damaged file does not fill the memory
    std::int32_t toSkip_ = 0;  // bytes that stand for the character ahead of them
    char32_t highSurrogate_ = 0;

    std::map<std::int32_t, std::string> fonts_;
    std::string fontName_;  // as far as it is read
    std::vector<std::uint32_t> colours_;
    TextBuilder text_;
};

RichText RtfReader::read(std::string_view bytes) {
    RtfTokens tokens(bytes);
    for (RtfToken token = tokens.next(); token.kind != RtfToken::Kind::End; token = tokens.next()) {
        switch (token.kind) {
            case RtfToken::Kind::Open: open(); break;
            case RtfToken::Kind::Close: close(); break;
            case RtfToken::Kind::Word:
                if (!isFallback(token)) word(token);
                break;
            default: byte(token.byte);
        }
        if (token.kind == RtfToken::Kind::Close && outer_.empty()) break;
    }
    if (highSurrogate_ != 0) takeCharacter(kReplacement);
    return text_.take();
}

void RtfReader::open() {
    toSkip_ = 0;
    constexpr std::size_t kDeepest = 20000;
    if (outer_.size() < kDeepest) {
        outer_.push_back(state_);
    } else {
        ++tooDeep_;
    }
}

void RtfReader::close() {
    toSkip_ = 0;
    if (state_.destination == Destination::Fonts) endFont();
    if (tooDeep_ > 0) {
        --tooDeep_;
    } else if (!outer_.empty()) {
        state_ = std::move(outer_.back());
        outer_.pop_back();
    }
}

/// Whether a word is a character that stands for the one ahead of it. Any other word ends such characters.
bool RtfReader::isFallback(const RtfToken& token) {
    const auto* const character = find(kCharacters, token.word);
    const bool isOne = toSkip_ > 0 && character != nullptr && character->character > ' ';
    toSkip_ = isOne ? toSkip_ - 1 : 0;
    return isOne;
}

void RtfReader::byte(unsigned char byte) {
    if (toSkip_ > 0) {
        --toSkip_;
    } else {
        takeUnit(fromWindows1252(byte));
    }
}

void RtfReader::word(const RtfToken& token) {
    if (token.word == "u") {
        const std::int32_t unit = token.number.value_or(kReplacement);
        const bool isUnit = unit >= -0x8000 && unit <= 0xFFFF;
        takeUnit(isUnit ? static_cast<std::uint16_t>(unit) : kReplacement);
        toSkip_ = state_.fallback;
    } else if (const auto* character = find(kCharacters, token.word)) {
        takeUnit(character->character);
    } else if (const auto* destination = find(kDestinations, token.word)) {
        if (state_.destination != Destination::Nowhere) state_.destination = destination->destination;
    } else if (const auto* format = find(kFormats, token.word)) {
        format->apply(state_, token.number.value_or(format->otherwise));
    }
}

/// A character, or half of one.
void RtfReader::takeUnit(char32_t unit) {
    const char32_t high = std::exchange(highSurrogate_, isHighSurrogate(unit) ? unit : 0);
    if (isLowSurrogate(unit)) {
        const char32_t character = 0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00);
        takeCharacter(high != 0 ? character : kReplacement);
        return;
    }
    if (high != 0) takeCharacter(kReplacement);
    if (highSurrogate_ == 0) takeCharacter(unit);
}

void RtfReader::takeCharacter(char32_t character) {
    constexpr std::size_t kLongestName = 100;
    switch (state_.destination) {
        case Destination::Text:
            if (!state_.hidden) text_.append(character, format(), state_.paragraph);
            break;
        case Destination::Fonts:
            if (character == ';') {
                endFont();
            } else if (fontName_.size() < kLongestName) {
                t_genproc::text::appendCharacter(fontName_, character);
            }
            break;
        case Destination::Colours:
            if (character == ';') colours_.push_back(std::exchange(state_.newColour, 0));
            break;
        case Destination::Nowhere: break;
    }
}

void RtfReader::endFont() {
    const std::string_view name = t_genproc::text::trim(fontName_);
    if (!name.empty()) fonts_.insert_or_assign(font(), name);
    fontName_.clear();
}

CharacterFormat RtfReader::format() const {
    CharacterFormat format = state_.character;
    const auto name = fonts_.find(font());
    if (name != fonts_.end()) format.font = name->second;
    if (state_.colour >= 0 && std::cmp_less(state_.colour, colours_.size())) {
        format.colour = colours_[static_cast<std::size_t>(state_.colour)];
    }
    return format;
}

}  // namespace

RichText readRichText(std::string_view bytes) {
    return bytes.starts_with("{\\rtf") ? RtfReader().read(bytes) : plainText(bytes, {});
}

RichText plainText(std::string_view text, const CharacterFormat& format) {
    TextBuilder builder;
    for (char32_t last = 0; !text.empty();) {
        constexpr char32_t kLastCodePoint = 0x10FFFF;
        const char32_t character = t_genproc::text::takeCharacter(text);
        // A byte that is no character of UTF-8 is one of Windows-1252.
        const char32_t known =
            character > kLastCodePoint ? fromWindows1252(character - (kLastCodePoint + 1)) : character;
        if (known != '\n' || last != '\r') builder.append(known == '\r' ? U'\n' : known, format, {});
        last = known;
    }
    return builder.take();
}

}  // namespace t_gencvf
