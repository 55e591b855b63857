#include "host/rtf_tokens.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace t_gencvf {
namespace {

using Kind = RtfToken::Kind;

constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view take(std::string_view& text, std::size_t count) {
    const std::string_view taken = text.substr(0, count);
    text.remove_prefix(taken.size());
    return taken;
}

/// The number at the start of `text`, which holds as many characters as belong to it.
template <class Number>
std::optional<Number> wholeNumber(std::string_view text, int base = 10) {
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, value, base);
    if (failure == std::errc::result_out_of_range) {
        return text.front() == '-' ? std::numeric_limits<Number>::min() : std::numeric_limits<Number>::max();
    }
    return failure == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

}  // namespace

RtfToken RtfTokens::next() {
    while (!rest_.empty()) {
        const char first = take(rest_, 1).front();
        switch (first) {
            case '\r':
            case '\n': continue;
            case '{': return {Kind::Open};
            case '}': return {Kind::Close};
            case '\\':
                if (const auto token = control()) return *token;
                continue;
            default: return {Kind::Byte, {}, {}, static_cast<unsigned char>(first)};
        }
    }
    return {};
}

/// Nothing for \bin and at the end.
std::optional<RtfToken> RtfTokens::control() {
    if (rest_.empty()) return std::nullopt;
    if (isLetter(rest_.front())) {
        const RtfToken token = word();
        if (token.word != "bin") return token;
        take(rest_, static_cast<std::size_t>(std::max(token.number.value_or(0), 0)));
        return std::nullopt;
    }
    const std::string_view symbol = take(rest_, 1);
    if (symbol != "'") return RtfToken{Kind::Word, symbol};
    const auto byte = wholeNumber<unsigned char>(rest_.substr(0, 2), 16);
    if (!byte || rest_.size() < 2) return RtfToken{Kind::Word, symbol};
    take(rest_, 2);
    return RtfToken{Kind::Byte, {}, {}, *byte};
}

RtfToken RtfTokens::word() {
    const auto end = std::ranges::find_if_not(rest_, isLetter);
    RtfToken token{Kind::Word, take(rest_, static_cast<std::size_t>(end - rest_.begin()))};
    token.number = number();
    if (rest_.starts_with(' ')) take(rest_, 1);
    return token;
}

std::optional<std::int32_t> RtfTokens::number() {
    std::size_t length = rest_.starts_with('-') ? 1 : 0;
    while (length < rest_.size() && isDigit(rest_[length])) ++length;
    const auto value = wholeNumber<std::int32_t>(rest_.substr(0, length));
    if (value) take(rest_, length);
    return value;
}

}  // namespace t_gencvf
