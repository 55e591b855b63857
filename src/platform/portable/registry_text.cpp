#include "platform/portable/registry_text.h"

#include <charconv>
#include <optional>

#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

constexpr std::string_view kFirstLine = kEmptyRegistry.substr(0, kEmptyRegistry.find('[') - 1);
constexpr std::string_view kLastLine = "[end]\n";
constexpr std::size_t kNowhere = std::string_view::npos;

bool isControl(char c) { return static_cast<unsigned char>(c) < ' '; }

/// A zero ends the text, as it does for Windows.
std::string escaped(std::string_view plain, std::string_view others = "") {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(plain.size());
    for (const char c : plain.substr(0, plain.find('\0'))) {
        if (isControl(c) || c == '%' || others.find(c) != kNowhere) {
            text +=
                {'%', kDigits[static_cast<std::size_t>(c) >> 4U], kDigits[static_cast<std::size_t>(c) & 15U]};
        } else {
            text += c;
        }
    }
    return text;
}

std::string escapedName(std::string_view name) { return escaped(name, "=["); }

Outcome<std::string> unescaped(std::string_view text) {
    constexpr std::size_t kDigits = 2;
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        char next = text.front();
        if (isControl(next)) return {{}, SystemError::DamagedRegistry};
        text.remove_prefix(1);
        if (next == '%') {
            const std::string_view digits = text.substr(0, kDigits);
            unsigned code = 0;
            const auto read = std::from_chars(digits.begin(), digits.end(), code, 16);
            if (read.ptr != digits.begin() + kDigits) return {{}, SystemError::DamagedRegistry};
            next = static_cast<char>(code);
            text.remove_prefix(kDigits);
        }
        plain += next;
    }
    return {std::move(plain)};
}

// Positions are those of lines: where they start.

std::string_view lineAt(std::string_view text, std::size_t at) {
    return text.substr(at, text.find('\n', at) - at);
}
std::size_t lineBehind(std::string_view text, std::size_t at) { return text.find('\n', at) + 1; }

/// The first key at `at` or behind it, the last line being one.
std::size_t nextKey(std::string_view text, std::size_t at) {
    at = text.find('[', at);
    while (at != kNowhere && text[at - 1] != '\n') at = text.find('[', at + 1);
    return at;
}

std::string keyLine(std::string_view key) { return "[" + std::string(key) + "]\n"; }
std::string_view keyName(std::string_view text, std::size_t at) {
    const std::string_view line = lineAt(text, at);
    return line.substr(1, line.size() - 2);
}

std::size_t findKey(std::string_view text, std::string_view key) {
    std::size_t at = nextKey(text, 0);
    while (at != kNowhere && !text::equalIgnoringCase(keyName(text, at), key)) at = nextKey(text, at + 1);
    return at;
}

/// The value of the key at `keyAt`; the next key where it has no such value.
std::size_t findValue(std::string_view text, std::size_t keyAt, std::string_view name) {
    std::size_t at = lineBehind(text, keyAt);
    while (text[at] != '[') {
        const std::string_view line = lineAt(text, at);
        const bool mayBe = line.size() > name.size() && line[name.size()] == '=';
        if (mayBe && text::equalIgnoringCase(line.substr(0, name.size()), name)) break;
        at += line.size() + 1;
    }
    return at;
}

/// What of the name of a key stands behind that of `key`: empty for the same, else with "\" ahead. None where
/// it is not below it.
std::optional<std::string_view> below(std::string_view name, std::string_view key) {
    const std::string_view rest = name.substr(std::min(key.size(), name.size()));
    const bool isBelow =
        (rest.empty() || rest.front() == '\\') && text::equalIgnoringCase(name.substr(0, key.size()), key);
    return isBelow ? std::optional(rest) : std::nullopt;
}

SystemError whyMissing(std::string_view text, std::string_view parent) {
    return findKey(text, parent) == kNowhere ? SystemError::KeyDeleted : SystemError::FileNotFound;
}

}  // namespace

bool mayBeWhole(std::string_view text) {
    return text.starts_with(kFirstLine) && text.ends_with(kLastLine) &&
           text[text.size() - kLastLine.size() - 1] == '\n';
}

bool isWhole(std::string_view text) {
    if (!mayBeWhole(text)) return false;
    for (std::size_t at = kFirstLine.size() + 1; at < text.size(); at = lineBehind(text, at)) {
        const std::string_view line = lineAt(text, at);
        const bool isLine = line.starts_with('[') ? line.ends_with(']') : text::contains(line, "=");
        if (!isLine || !unescaped(line)) return false;
    }
    return true;
}

std::string registryPath(std::string_view parent, std::string_view subKey) {
    std::string path;
    path.reserve(parent.size() + 1 + subKey.size());
    path = parent;
    subKey = subKey.substr(0, subKey.find('\0'));
    while (!subKey.empty()) {
        const std::string_view part = subKey.substr(0, subKey.find('\\'));
        if (!part.empty()) path.append("\\").append(escaped(part));
        subKey.remove_prefix(std::min(part.size() + 1, subKey.size()));
    }
    return path;
}

Outcome<std::string> registryKey(std::string_view text, std::string_view parent, std::string_view key) {
    const std::size_t at = findKey(text, key);
    if (at == kNowhere) return {{}, whyMissing(text, parent)};
    return {std::string(keyName(text, at))};
}

Outcome<std::string> registryValue(std::string_view text, std::string_view key, std::string_view name) {
    const std::size_t keyAt = findKey(text, key);
    if (keyAt == kNowhere) return {{}, SystemError::KeyDeleted};
    const std::string shownName = escapedName(name);
    const std::size_t at = findValue(text, keyAt, shownName);
    if (text[at] == '[') return {{}, SystemError::FileNotFound};
    return unescaped(lineAt(text, at).substr(shownName.size() + 1));
}

Outcome<std::string> subKeyName(std::string_view text, std::string_view key, std::uint32_t index) {
    std::size_t at = findKey(text, key);
    if (at == kNowhere) return {{}, SystemError::KeyDeleted};
    for (at = nextKey(text, 0); at != kNowhere; at = nextKey(text, at + 1)) {
        const auto rest = below(keyName(text, at), key);
        const bool isNext = rest && rest->rfind('\\') == 0;
        if (isNext && index-- == 0) return unescaped(rest->substr(1));
    }
    return {{}, SystemError::NoMoreItems};
}

Outcome<std::string> valueName(std::string_view text, std::string_view key, std::uint32_t index) {
    const std::size_t keyAt = findKey(text, key);
    if (keyAt == kNowhere) return {{}, SystemError::KeyDeleted};
    for (std::size_t at = lineBehind(text, keyAt); text[at] != '['; at = lineBehind(text, at)) {
        const std::string_view line = lineAt(text, at);
        if (index-- == 0) return unescaped(line.substr(0, line.find('=')));
    }
    return {{}, SystemError::NoMoreItems};
}

Outcome<TextChange> withKey(std::string_view text, std::string_view parent, std::string_view key) {
    if (findKey(text, parent) == kNowhere) return {{}, SystemError::KeyDeleted};
    std::string added;
    for (std::size_t end = parent.size(); end < key.size();) {
        end = std::min(key.find('\\', end + 1), key.size());
        if (findKey(text, key.substr(0, end)) == kNowhere) added += keyLine(key.substr(0, end));
    }
    return {{text.size() - kLastLine.size(), 0, added}};
}

Outcome<TextChange> withoutKey(std::string_view text, std::string_view parent, std::string_view key) {
    const std::size_t first = findKey(text, key);
    if (first == kNowhere) return {{}, whyMissing(text, parent)};
    std::string kept;
    for (std::size_t at = nextKey(text, 0), next = 0; at != kNowhere; at = next) {
        next = nextKey(text, at + 1);
        if (!below(keyName(text, at), key)) kept += text.substr(at, next - at);
    }
    const std::size_t firstKey = nextKey(text, 0);
    return {{firstKey, text.size() - firstKey, kept}};
}

Outcome<TextChange> withValue(std::string_view text, std::string_view key, std::string_view name,
                              std::string_view value) {
    const std::size_t keyAt = findKey(text, key);
    if (keyAt == kNowhere) return {{}, SystemError::KeyDeleted};
    const std::string shownName = escapedName(name);
    const std::size_t at = findValue(text, keyAt, shownName);
    if (text[at] == '[') return {{at, 0, shownName + '=' + escaped(value) + '\n'}};
    const std::size_t old = at + shownName.size() + 1;
    return {{old, lineAt(text, old).size(), escaped(value)}};
}

Outcome<TextChange> withoutValue(std::string_view text, std::string_view key, std::string_view name) {
    const std::size_t keyAt = findKey(text, key);
    if (keyAt == kNowhere) return {{}, SystemError::KeyDeleted};
    const std::size_t at = findValue(text, keyAt, escapedName(name));
    if (text[at] == '[') return {{}, SystemError::FileNotFound};
    return {{at, lineBehind(text, at) - at, ""}};
}

}  // namespace t_genproc::portable
