#include "runtime/variant.h"

#include <cmath>
#include <cstdio>
#include <type_traits>

#include "runtime/date_value.h"
#include "runtime/errors.h"
#include "runtime/integers.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

[[noreturn]] void raise(ErrorNumber number) { throw RuntimeError(number); }

template <class T>
concept PlainNumber = std::is_arithmetic_v<T> && !std::is_same_v<T, bool>;

std::string dateText(double value) {
    const CivilTime time = civilTime(value);
    char buffer[96];
    const bool midnight = time.hour == 0 && time.minute == 0 && time.second == 0;
    const int length =
        midnight ? std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", time.year, time.month, time.day)
                 : std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", time.year,
                                 time.month, time.day, time.hour, time.minute, time.second);
    return {buffer, static_cast<std::size_t>(length)};
}

double numberOf(const std::string& text) {
    const std::optional<double> number = parseNumber(text);
    if (!number) raise(ErrorNumber::TypeMismatch);
    if (!std::isfinite(*number)) raise(ErrorNumber::Overflow);
    return *number;
}

/// The nearest whole number, halves to the even one.
double rounded(double value) { return value - std::remainder(value, 1.0); }

template <class Whole>
Whole toWhole(const Variant& value) {
    const double whole = rounded(toDouble(value));
    constexpr double kLeast = std::numeric_limits<Whole>::min();
    constexpr double kMost = std::numeric_limits<Whole>::max();
    if (!(whole >= kLeast && whole <= kMost)) raise(ErrorNumber::Overflow);
    return static_cast<Whole>(whole);
}

}  // namespace

std::string toText(const Variant& value) {
    return std::visit(
        Overloaded{
            [](Empty) -> std::string { return {}; },
            [](Null) -> std::string { raise(ErrorNumber::InvalidUseOfNull); },
            [](bool flag) -> std::string { return flag ? "True" : "False"; },
            [](Date date) -> std::string { return dateText(date.value); },
            [](const std::string& text) -> std::string { return text; },
            [](const ObjectPointer&) -> std::string { raise(ErrorNumber::TypeMismatch); },
            []<std::integral Number>(Number number) -> std::string {
                return numberText(std::int64_t{number});
            },
            []<std::floating_point Number>(Number number) -> std::string { return numberText(number); },
        },
        value);
}

double toDouble(const Variant& value) {
    return std::visit(Overloaded{
                          [](Empty) -> double { return 0; },
                          [](Null) -> double { raise(ErrorNumber::InvalidUseOfNull); },
                          [](bool flag) -> double { return flag ? -1 : 0; },
                          [](Date date) -> double { return date.value; },
                          [](const std::string& text) -> double { return numberOf(text); },
                          [](const ObjectPointer&) -> double { raise(ErrorNumber::TypeMismatch); },
                          []<PlainNumber Number>(Number number) -> double { return number; },
                      },
                      value);
}

bool toBoolean(const Variant& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (text::equalIgnoringCase(*text, "True")) return true;
        if (text::equalIgnoringCase(*text, "False")) return false;
    }
    return toDouble(value) != 0;
}

std::int16_t toInt16(const Variant& value) { return toWhole<std::int16_t>(value); }
std::int32_t toInt32(const Variant& value) { return toWhole<std::int32_t>(value); }

ObjectPointer toObject(const Variant& value) {
    const auto* object = std::get_if<ObjectPointer>(&value);
    if (object == nullptr) raise(ErrorNumber::ObjectRequired);
    if (*object == nullptr) raise(ErrorNumber::ObjectNotSet);
    return *object;
}

}  // namespace t_genproc
