#include "platform/portable/profile_text.h"

#include <algorithm>

#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kEndOfLine = "\r\n";

bool isWhite(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f'; }
bool isLineEnd(char c) { return c == '\r' || c == '\n'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isWhite(text.front())) text.remove_prefix(1);
    while (!text.empty() && isWhite(text.back())) text.remove_suffix(1);
    return text;
}

/// A line without its end. Positions are zero-based, in the whole text.
struct Line {
    std::size_t start = 0;
    std::size_t end = 0;
    std::size_t next = 0;  // where the next line starts
};

/// The lines of a text from one of them on. Each end-of-line character is looked for once, however the lines
/// end.
class Lines {
   public:
    Lines(std::string_view text, std::size_t from) : text_(text), at_(from) {}

    /// `from` is behind all lines taken so far.
    void skipTo(std::size_t from) { at_ = from; }

    std::optional<Line> take() {
        if (at_ >= text_.size()) return {};
        const std::size_t end = std::min(nextOf('\r', nextCr_), nextOf('\n', nextLf_));
        const bool both = text_.substr(end, 2) == kEndOfLine;
        const Line line{at_, end, std::min(end + (both ? 2 : 1), text_.size())};
        at_ = line.next;
        return line;
    }

   private:
    std::size_t nextOf(char c, std::size_t& known) {
        if (known == kUnknown || known < at_) known = std::min(text_.find(c, at_), text_.size());
        return known;
    }

    static constexpr std::size_t kUnknown = std::string_view::npos;
    std::string_view text_;
    std::size_t at_;
    std::size_t nextCr_ = kUnknown;
    std::size_t nextLf_ = kUnknown;
};

std::string_view contentOf(std::string_view text, const Line& line) {
    return trimmed(text.substr(line.start, line.end - line.start));
}

/// The section that a line opens, where it does.
std::optional<std::string_view> headerName(std::string_view content) {
    if (!content.starts_with('[')) return {};
    const std::size_t bracket = content.rfind(']');
    if (bracket == std::string_view::npos) return {};
    return trimmed(content.substr(1, bracket - 1));
}

/// Whether nothing but white space stands between `at` and the start of its line.
bool startsLine(std::string_view text, std::size_t at) {
    while (at > 0 && isWhite(text[at - 1])) --at;
    return at == 0 || isLineEnd(text[at - 1]) ||
           (at == kByteOrderMark.size() && text.starts_with(kByteOrderMark));
}

/// A quick look behind a "[": whether the section can be that one at all.
bool mayNameSection(std::string_view behindBracket, std::string_view section) {
    if (behindBracket.empty() || section.empty() || isWhite(behindBracket.front())) return true;
    return text::equalIgnoringCase(behindBracket.substr(0, 1), section.substr(0, 1)) ||
           ((behindBracket.front() | section.front()) & 0x80) != 0;
}

/// The line that opens the section.
std::optional<Line> findSection(std::string_view text, std::string_view section) {
    Lines lines(text, 0);
    for (std::size_t at = text.find('['); at != std::string_view::npos; at = text.find('[', at + 1)) {
        if (!mayNameSection(text.substr(at + 1), section) || !startsLine(text, at)) continue;
        lines.skipTo(at);
        const Line line = *lines.take();
        const std::optional<std::string_view> name = headerName(contentOf(text, line));
        if (name && text::equalIgnoringCase(*name, section)) return line;
    }
    return {};
}

struct Place {
    std::optional<Line> key;        // the line of the key
    std::size_t equals = 0;         // where its "=" stands; its end where it has none
    std::size_t lastUsed = 0;       // where the last line that is not blank ends, and
    std::size_t afterLastUsed = 0;  // where the line behind it starts
};

/// A quick look at where the name would end: whether the line can be that of `key` at all.
bool mayNameKey(std::string_view content, std::string_view key) {
    if (content.size() <= key.size()) return content.size() == key.size();
    const char behind = content[key.size()];
    return behind == '=' || isWhite(behind);
}

/// The key's place in the section that `header` opens.
Place findKey(std::string_view text, const Line& header, std::string_view key) {
    Place place{{}, 0, header.end, header.next};
    Lines lines(text, header.next);
    while (const std::optional<Line> line = lines.take()) {
        const std::string_view content = contentOf(text, *line);
        if (content.empty()) continue;
        if (headerName(content)) break;
        place.lastUsed = line->end;
        place.afterLastUsed = line->next;
        if (content.front() == ';' || !mayNameKey(content, key)) continue;
        const std::size_t equals = content.find('=');
        if (text::equalIgnoringCase(trimmed(content.substr(0, equals)), key)) {
            const auto contentStart = static_cast<std::size_t>(content.data() - text.data());
            place.key = line;
            place.equals = equals == std::string_view::npos ? line->end : contentStart + equals;
            break;
        }
    }
    return place;
}

/// What stands behind the "=" of the key's line.
TextChange changedValue(std::string_view text, const Place& place, std::string_view value) {
    const Line& line = *place.key;
    if (place.equals == line.end) return {line.end, 0, "=" + std::string(value)};
    std::size_t start = place.equals + 1;
    while (start < line.end && isWhite(text[start])) ++start;
    return {start, line.end - start, std::string(value)};
}

std::string line(std::string_view content) { return std::string(content) + std::string(kEndOfLine); }
std::string line(std::string_view key, std::string_view value) {
    return line(std::string(key) + "=" + std::string(value));
}

}  // namespace

std::optional<std::string_view> profileValue(std::string_view text, std::string_view section,
                                             std::string_view key) {
    const std::optional<Line> header = findSection(text, trimmed(section));
    if (!header) return {};
    const Place place = findKey(text, *header, trimmed(key));
    if (!place.key || place.equals == place.key->end) return {};
    return trimmed(text.substr(place.equals + 1, place.key->end - place.equals - 1));
}

std::string_view withoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

TextChange profileChange(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value) {
    section = trimmed(section);
    key = trimmed(key);
    value = trimmed(value);
    const std::optional<Line> header = findSection(text, section);
    if (!header) {
        const bool endsLine = text.empty() || text == kByteOrderMark || isLineEnd(text.back());
        const std::string added = line("[" + std::string(section) + "]") + line(key, value);
        return {text.size(), 0, endsLine ? added : line("") + added};
    }
    const Place place = findKey(text, *header, key);
    if (place.key) return changedValue(text, place, value);
    const bool endsLine = place.afterLastUsed > place.lastUsed;
    return {place.afterLastUsed, 0, endsLine ? line(key, value) : line("") + line(key, value)};
}

}  // namespace t_genproc::portable
