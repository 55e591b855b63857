#include "runtime/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr double kLeastPlain = 1e-15;
template <class Number>
constexpr double kPlainBelow = 1e15;
template <>
constexpr double kPlainBelow<float> = 1e7;  // above, a float has fewer digits than its plain form

template <class Number>
std::string shortest(Number value) {
    const double magnitude = std::abs(static_cast<double>(value));
    const bool plain = magnitude == 0 || (magnitude >= kLeastPlain && magnitude < kPlainBelow<Number>);
    std::array<char, 64> buffer{};
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format).ptr;
    std::string text(buffer.data(), end);
    if (std::isfinite(value)) std::ranges::replace(text, 'e', 'E');
    return text;
}

std::ptrdiff_t significantDigits(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_of("123456789"), text.size()));
    const std::string_view mantissa = text.substr(0, text.find('E'));
    return std::ranges::count_if(mantissa, [](char c) { return c >= '0' && c <= '9'; });
}

/// The number that has the first `digits` significant digits of `value`, or `value` itself where that is
/// beyond the range of a double.
template <class Number>
double rounded(Number value, int digits) {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::scientific, digits - 1)
                         .ptr;
    double result = value;
    std::from_chars(buffer.data(), end, result);
    return result;
}

/// Whether unsigned `digits`, which are out of the range of a double, are so because they are too small.
bool isBelowOne(std::string_view digits) {
    const std::size_t mantissaEnd = std::min(digits.find_first_of("Ee"), digits.size());
    const std::string_view mantissa = digits.substr(0, mantissaEnd);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t firstDigit = mantissa.find_first_of("123456789");
    std::string_view exponentText = digits.substr(mantissaEnd);
    exponentText.remove_prefix(std::min(exponentText.find_first_not_of("Ee+"), exponentText.size()));
    int exponent = 0;  // an exponent beyond an int outweighs any number of digits
    const auto [end, error] =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (error == std::errc::result_out_of_range) return exponentText.starts_with('-');
    return exponent + static_cast<std::int64_t>(point) - static_cast<std::int64_t>(firstDigit) <= 0;
}

}  // namespace

std::string numberText(std::int64_t value) { return std::to_string(value); }
std::string numberText(double value) { return shortest(value); }
std::string numberText(float value) { return shortest(value); }

std::string reportText(double value) {
    if (!std::isfinite(value)) throw RuntimeError(ErrorNumber::Overflow);
    if (value == 0) return " 0";  // -0 too
    std::string text = shortest(value);
    constexpr int kDigits = std::numeric_limits<double>::digits10;
    if (significantDigits(text) > kDigits) text = shortest(rounded(value, kDigits));
    if (value > 0) text.insert(0, " ");
    if (text[1] == '0') text.erase(1, 1);
    return text;
}

std::string reportText(float value) {
    constexpr int kDigits = std::numeric_limits<float>::digits10 + 1;
    return reportText(rounded(value, kDigits));
}

double leadingNumber(std::string_view text) {
    text = text::trimLeft(text);
    std::size_t end = 0;
    const auto take = [&](std::string_view anyOf) {
        const bool taken = end < text.size() && text::contains(anyOf, text.substr(end, 1));
        if (taken) ++end;
        return taken;
    };
    double value = 0;
    const auto takeDigits = [&] {
        const std::size_t start = end;
        for (; end < text.size() && text[end] >= '0' && text[end] <= '9'; ++end) {
            value = value * 10 + (text[end] - '0');
        }
        return end > start;
    };
    take("+-");
    bool isNumber = takeDigits();
    constexpr std::size_t kExactDigits = std::numeric_limits<double>::digits10;
    if (isNumber && end <= kExactDigits &&
        (end == text.size() || !text::contains(".EeDd", text.substr(end, 1)))) {
        return text.starts_with('-') ? -value : value;
    }
    if (take(".")) isNumber = takeDigits() || isNumber;
    if (!isNumber) return 0;
    const std::size_t mantissaEnd = end;
    const bool hasExponent = take("EeDd") && (take("+-"), takeDigits());
    return parseNumber(text.substr(0, hasExponent ? end : mantissaEnd)).value_or(0);
}

std::optional<double> parseNumber(std::string_view text) {
    std::string digits(text::trim(text));
    for (char& c : digits) {
        if (c == 'D' || c == 'd') c = 'E';
    }
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.erase(0, 1);
    if (digits.find_first_not_of("0123456789.Ee+-") != std::string::npos || digits.starts_with('-'))
        return {};

    double value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (stop != end || error == std::errc::invalid_argument) return {};
    if (error == std::errc::result_out_of_range) {
        value = isBelowOne(digits) ? 0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

}  // namespace t_genproc
