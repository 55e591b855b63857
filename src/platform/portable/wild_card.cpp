#include "platform/portable/wild_card.h"

#include <string>

#include "runtime/case_mapping.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

std::u32string capitals(std::string_view text) {
    std::u32string result;
    while (!text.empty()) result += upperCase(text::takeCharacter(text));
    return result;
}

bool isWild(char32_t c) { return c == U'*' || c == U'?'; }

}  // namespace

bool matchesWildCard(std::string_view name, std::string_view pattern) {
    pattern = text::trimRight(pattern);
    if (pattern.ends_with('.')) {
        pattern.remove_suffix(1);
        const bool asksForNoDot = pattern.ends_with('*') || pattern.ends_with('?');
        if (asksForNoDot && text::contains(name, ".")) return false;
    }
    const std::u32string n = capitals(name);
    const std::u32string p = capitals(pattern);

    std::size_t inName = 0;
    std::size_t inPattern = 0;
    std::size_t star = std::u32string::npos;  // the last "*" passed, and where the text it stands for may end
    std::size_t starEnd = 0;
    while (inName < n.size() || inPattern < p.size()) {
        const bool atEnd = inName == n.size();
        const char32_t c = inPattern < p.size() ? p[inPattern] : U'\0';
        if (c == U'*') {
            star = inPattern++;
            starEnd = inName;
        } else if (c == U'?' && (atEnd || n[inName] == U'.')) {
            ++inPattern;
        } else if (c == U'.' && atEnd && inPattern + 1 < p.size() && isWild(p[inPattern + 1])) {
            ++inPattern;
        } else if (!atEnd && inPattern < p.size() && (c == U'?' || c == n[inName])) {
            ++inPattern;
            ++inName;
        } else if (star != std::u32string::npos && starEnd < n.size()) {
            inName = ++starEnd;
            inPattern = star + 1;
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace t_genproc::portable
