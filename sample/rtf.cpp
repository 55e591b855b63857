#include "rtf.h"

#include "runtime/text.h"

namespace tavoru {
namespace {

std::string unicode(char32_t unit) { return "\\u" + std::to_string(static_cast<std::uint32_t>(unit)) + "?"; }

std::string rtfOf(char32_t character) {
    constexpr char32_t kFirstOfTwo = 0x10000, kLast = 0x10FFFF;
    if (character == '\t') return "\\tab ";
    if (character == '\f') return "\\page ";
    if (character == '\\' || character == '{' || character == '}')
        return {'\\', static_cast<char>(character)};
    if (character >= ' ' && character <= '~') return {static_cast<char>(character)};
    if (character < kFirstOfTwo) return unicode(character);
    if (character > kLast) return unicode(0xFFFD);
    return unicode(0xD800 + ((character - kFirstOfTwo) >> 10U)) + unicode(0xDC00 + (character & 0x3FFU));
}

std::string rtfOf(std::string_view text) {
    std::string rtf;
    while (!text.empty()) rtf += rtfOf(t_genproc::text::takeCharacter(text));
    return rtf;
}

}  // namespace

std::string rtfOf(const std::string& title, const Lines& lines) {
    std::string rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}{\\f1\\fswiss Arial;}}\n";
    if (!title.empty()) rtf += "\\pard\\sa240{\\f1\\fs32\\b " + rtfOf(title) + "\\par}\n";
    rtf += "\\pard\\f0\\fs20 ";
    for (std::size_t i = 0; i < lines.size(); ++i) rtf += (i == 0 ? "" : "\\par\n") + rtfOf(lines[i]);
    return rtf + "}";
}

}  // namespace tavoru
