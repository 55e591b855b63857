/// Reads a text from its start to its end, piece by piece.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

namespace t_genproc::portable {

// Objects, for calls with them to be inlined.
inline constexpr auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
inline constexpr auto isLetter = [](char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; };

class TextCursor {
   public:
    explicit TextCursor(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {}

    bool isAtEnd() const { return at_ == end_; }
    char next() const { return at_ == end_ ? '\0' : *at_; }

    bool take(char wanted) {
        const bool isNext = at_ != end_ && *at_ == wanted;
        if (isNext) ++at_;
        return isNext;
    }

    /// The longest piece, maybe empty, of such characters.
    template <class Predicate>
    std::string_view takeAll(Predicate belongs) {
        const char* end = at_;
        while (end != end_ && belongs(*end)) ++end;
        return {std::exchange(at_, end), end};
    }

    struct Number {
        int value = 0;
        std::size_t digits = 0;  // 0: there is no number, or it has too many
    };
    Number takeNumber(std::size_t mostDigits) {
        const std::string_view digits = takeAll(isDigit);
        if (digits.size() > mostDigits) return {};
        Number number{0, digits.size()};
        for (const char digit : digits) number.value = number.value * 10 + (digit - '0');
        return number;
    }

   private:
    const char* at_;
    const char* end_;
};

}  // namespace t_genproc::portable
