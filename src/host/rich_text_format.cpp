#include "host/rich_text_format.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "host/rtf_tokens.h"
#include "host/rtf_words.h"
#include "runtime/text.h"

namespace t_gencvf {
namespace {

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

    RtfState state_;
    std::vector<RtfState> outer_;
    std::size_t tooDeep_ = 0;  // groups that share one state, so that a damaged file does not fill the memory
    std::int32_t toSkip_ = 0;  // characters that stand for the one ahead of them
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
    if (highSurrogate_ != 0) takeCharacter(kReplacementCharacter);
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
    if (state_.destination == RtfDestination::Fonts) endFont();
    if (tooDeep_ > 0) {
        --tooDeep_;
    } else if (!outer_.empty()) {
        state_ = std::move(outer_.back());
        outer_.pop_back();
    }
}

/// Whether a word is a character that stands for the one ahead of it. Any other word ends such characters.
bool RtfReader::isFallback(const RtfToken& token) {
    const auto character = rtfCharacter(token.word);
    const bool isOne = toSkip_ > 0 && character.value_or(0) > ' ';
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
        const std::int32_t unit = token.number.value_or(kReplacementCharacter);
        const bool isUnit = unit >= -0x8000 && unit <= 0xFFFF;
        takeUnit(isUnit ? static_cast<std::uint16_t>(unit) : kReplacementCharacter);
        toSkip_ = state_.fallback;
    } else if (const auto character = rtfCharacter(token.word)) {
        takeUnit(*character);
    } else if (const auto destination = rtfDestination(token.word)) {
        if (state_.destination != RtfDestination::Nowhere) state_.destination = *destination;
    } else {
        applyRtfWord(state_, token.word, token.number);
    }
}

/// A character, or half of one.
void RtfReader::takeUnit(char32_t unit) {
    const char32_t high = std::exchange(highSurrogate_, isHighSurrogate(unit) ? unit : 0);
    if (isLowSurrogate(unit)) {
        const char32_t character = 0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00);
        takeCharacter(high != 0 ? character : kReplacementCharacter);
        return;
    }
    if (high != 0) takeCharacter(kReplacementCharacter);
    if (highSurrogate_ == 0) takeCharacter(unit);
}

void RtfReader::takeCharacter(char32_t character) {
    constexpr std::size_t kLongestName = 100;
    switch (state_.destination) {
        case RtfDestination::Text:
            if (!state_.hidden) text_.append(character, format(), state_.paragraph);
            break;
        case RtfDestination::Fonts:
            if (character == ';') {
                endFont();
            } else if (fontName_.size() < kLongestName) {
                t_genproc::text::appendCharacter(fontName_, character);
            }
            break;
        case RtfDestination::Colours:
            if (character == ';') colours_.push_back(std::exchange(state_.newColour, 0));
            break;
        case RtfDestination::Nowhere: break;
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
