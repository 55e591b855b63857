#include "runtime/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "runtime/case_mapping.h"
#include "runtime/errors.h"

namespace t_genproc::text {
namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;
constexpr char32_t kStrayByte = 0x110000;  // stray byte b is kStrayByte + b

constexpr bool isContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80U; }

struct LeadByte {
    std::size_t length;  // of the whole character, 0 where no character starts with the byte
    char32_t payload;    // the bits that the lead byte itself holds
    char32_t smallest;   // the smallest code point that needs this length
};

constexpr LeadByte classify(unsigned char byte) {
    if ((byte & 0xE0U) == 0xC0U) return {2, byte & 0x1FU, 0x80};
    if ((byte & 0xF0U) == 0xE0U) return {3, byte & 0x0FU, 0x800};
    if ((byte & 0xF8U) == 0xF0U) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

constexpr bool isSurrogate(char32_t codePoint) { return codePoint >= 0xD800 && codePoint <= 0xDFFF; }

/// Eight characters of a byte each at the start of the text are taken together.
constexpr std::ptrdiff_t kWord = 8;
bool startsWithAsciiWord(std::string_view text) {
    std::uint64_t word = 0;
    if (text.size() < sizeof word) return false;
    std::memcpy(&word, text.data(), sizeof word);
    return (word & 0x8080808080808080U) == 0;
}

/// The number of bytes of the first `count` characters.
std::size_t bytesOf(std::string_view text, std::ptrdiff_t count) {
    std::string_view rest = text;
    for (; count >= kWord && startsWithAsciiWord(rest); count -= kWord) rest.remove_prefix(kWord);
    for (; count > 0 && !rest.empty(); --count) takeCharacter(rest);
    return text.size() - rest.size();
}

void requireCount(std::ptrdiff_t count) {
    if (count < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

/// Any text, character by character.
bool sameCapitals(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (upperCase(takeCharacter(a)) != upperCase(takeCharacter(b))) return false;
    }
    return a.empty() && b.empty();
}

}  // namespace

char32_t takeLongCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    const LeadByte lead = classify(first);
    char32_t codePoint = lead.payload;
    bool valid = lead.length > 0 && lead.length <= text.size();
    for (std::size_t i = 1; valid && i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        valid = isContinuation(byte);
        codePoint = (codePoint << 6U) | (byte & 0x3FU);
    }
    valid = valid && codePoint >= lead.smallest && codePoint <= kLastCodePoint && !isSurrogate(codePoint);
    text.remove_prefix(valid ? lead.length : 1);
    return valid ? codePoint : kStrayByte + first;
}

void appendCharacter(std::string& text, char32_t character) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    const auto appendContinuations = [&](unsigned count) {
        while (count-- > 0) append(0x80U | ((character >> (6U * count)) & 0x3FU));
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0U | (character >> 6U));
        appendContinuations(1);
    } else if (character < 0x10000) {
        append(0xE0U | (character >> 12U));
        appendContinuations(2);
    } else if (character <= kLastCodePoint) {
        append(0xF0U | (character >> 18U));
        appendContinuations(3);
    } else {
        append(character - kStrayByte);
    }
}

std::ptrdiff_t length(std::string_view text) {
    std::ptrdiff_t characters = 0;
    for (; startsWithAsciiWord(text); characters += kWord) text.remove_prefix(kWord);
    for (; !text.empty(); ++characters) takeCharacter(text);
    return characters;
}

std::string left(std::string_view text, std::ptrdiff_t count) { return std::string(slice(text, 1, count)); }

std::string right(std::string_view text, std::ptrdiff_t count) {
    requireCount(count);
    return std::string(text.substr(bytesOf(text, length(text) - count)));
}

std::string mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count) {
    return std::string(slice(text, start, count));
}

std::string_view slice(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count) {
    requireCount(start < 1 ? -1 : count);
    text.remove_prefix(bytesOf(text, start - 1));
    return text.substr(0, bytesOf(text, count));
}

std::string_view trimLeft(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view trimRight(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

std::string_view trim(std::string_view text) { return trimRight(trimLeft(text)); }

std::string upper(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) appendCharacter(result, upperCase(takeCharacter(text)));
    return result;
}

std::string lower(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) appendCharacter(result, lowerCase(takeCharacter(text)));
    return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    if (a == b) return true;
    if (a.size() != b.size()) return false;  // a letter and its capital take the same number of bytes
    const auto asciiCapital = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
    for (std::size_t i = a.size(); i-- > 0;) {  // names in a list mostly differ at their end
        if (((a[i] | b[i]) & 0x80) != 0) return sameCapitals(a, b);
        if (asciiCapital(a[i]) != asciiCapital(b[i])) return false;
    }
    return true;
}

}  // namespace t_genproc::text
