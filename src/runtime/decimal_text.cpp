#include "runtime/decimal_text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using Position = std::int64_t;

constexpr Position kMostIntegerDigits = 309;  // of a double,
constexpr std::string_view kGreatestDigits = "17976931348623157";

constexpr Position kNone = std::numeric_limits<Position>::max() / 2;  // leaves room for sums

std::string_view takeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && text[count] >= '0' && text[count] <= '9') ++count;
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
    return digits;
}

/// Takes the first character if it is one of those.
bool take(std::string_view& text, std::string_view anyOf) {
    const bool taken = !text.empty() && anyOf.find(text.front()) != std::string_view::npos;
    if (taken) text.remove_prefix(1);
    return taken;
}

/// An exponent at the start of `text`; 0 where there is none.
Position exponentOf(std::string_view text) {
    constexpr Position kEnough = 1'000'000'000'000;  // outweighs the digits of any text
    if (!take(text, "EeDd")) return 0;
    const bool negative = text.starts_with('-');
    take(text, "+-");
    Position exponent = 0;
    for (const char digit : takeDigits(text)) exponent = std::min(exponent * 10 + (digit - '0'), kEnough);
    return negative ? -exponent : exponent;
}

/// The digits of a number, counted from its first one on, with zeros without end on both sides of them.
class Digits {
   public:
    /// Of the number at the start of `text`.
    explicit Digits(std::string_view text) {
        text = text::trimLeft(text);
        negative_ = text.starts_with('-');
        take(text, "+-");
        ahead_ = takeDigits(text);
        if (take(text, ".")) behind_ = takeDigits(text);
        point_ = std::ssize(ahead_);
        if (!ahead_.empty() || !behind_.empty()) point_ += exponentOf(text);
        first_ = firstSignificant();
        requireDouble();
    }

    bool isNegative() const { return negative_; }
    Position first() const { return first_; }  ///< the first digit that is not 0; kNone where all are
    Position point() const { return point_; }  ///< the first digit behind the point

    char at(Position position) const {
        const Position behind = position - std::ssize(ahead_);
        if (position < 0 || behind >= std::ssize(behind_)) return '0';
        return behind < 0 ? ahead_[static_cast<std::size_t>(position)]
                          : behind_[static_cast<std::size_t>(behind)];
    }
    /// Copies those of `length` digits that the number has.
    void copy(Position from, Position length, char* to) const {
        copyPart(ahead_, from, length, to);
        copyPart(behind_, from - std::ssize(ahead_), length, to);
    }

   private:
    static void copyPart(std::string_view part, Position from, Position length, char* to) {
        const Position start = std::max<Position>(from, 0),
                       end = std::min<Position>(from + length, std::ssize(part));
        if (start < end) std::copy(part.begin() + start, part.begin() + end, to + (start - from));
    }

    Position firstSignificant() const {
        std::size_t zeros = ahead_.find_first_not_of('0');
        if (zeros != std::string_view::npos) return static_cast<Position>(zeros);
        zeros = behind_.find_first_not_of('0');
        return zeros == std::string_view::npos ? kNone : std::ssize(ahead_) + static_cast<Position>(zeros);
    }

    void requireDouble() const {
        const Position integerDigits = point_ - first_;
        if (integerDigits < kMostIntegerDigits) return;
        std::string leading(kGreatestDigits.size(), '0');
        copy(first_, std::ssize(leading), leading.data());
        if (integerDigits > kMostIntegerDigits || leading > kGreatestDigits) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
    }

    std::string_view ahead_;   // of the point
    std::string_view behind_;  // it
    bool negative_ = false;
    Position first_ = kNone;
    Position point_ = 0;
};

/// Adds 1 to the last digit of a number that has a digit to take the carry.
void increment(std::string& number) {
    auto last = number.rbegin();
    for (; *last == '9' || *last == '.'; ++last) {
        if (*last == '9') *last = '0';
    }
    ++*last;
}

}  // namespace

std::string fixedDecimals(std::string_view text, std::size_t decimals) {
    const Digits digits(text);
    const Position point = digits.point(), end = point + static_cast<Position>(decimals);
    const Position start = std::min(digits.first(), point - 1);
    const bool roundsUp = digits.at(end) >= '5';

    // A digit for the carry, those ahead of the point, the point, and those behind it.
    const auto width = static_cast<std::size_t>(point - start);
    std::string number(1 + width + 1 + decimals, '0');
    digits.copy(start, point - start, &number[1]);
    number[1 + width] = '.';
    digits.copy(point, end - point, number.data() + width + 2);
    if (roundsUp) increment(number);

    const bool isZero = digits.first() >= end && !roundsUp;
    const bool hasSign = digits.isNegative() && !isZero;
    if (number.front() != '0') return hasSign ? "-" + number : number;
    if (hasSign) {
        number.front() = '-';
    } else {
        number.erase(0, 1);
    }
    return number;
}

}  // namespace t_genproc
