/// Numbers as text and back, never through a locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace t_genproc {

/// The decimal form, without a leading blank.
std::string numberText(std::int64_t value);

/// The shortest text that reads back to the same value: "0.1", "-1500", "8.1204E-16". Magnitudes from 1e-15
/// to below 1e15 (of a float, 1e7) are in plain decimal, others with an exponent.
std::string numberText(double value);
std::string numberText(float value);

/// For reports: at most 15 significant digits (of a float, 7), a blank ahead of a number that is not negative
/// and no zero ahead of its point: " 12.5", "-.25". Exponents as for a double above. What would round
/// beyond the range of a double keeps its digits. Error 6: infinity or no number.
std::string reportText(double value);
std::string reportText(float value);

/// The number that `text` is as a whole, blanks around it aside: an optional sign, decimals with an optional
/// point, an optional exponent (E or D). None where it is anything else; infinity beyond the range of a
/// double.
std::optional<double> parseNumber(std::string_view text);

/// The number that `text` starts with, blanks ahead of it aside, as far as a number goes: 12 of "12:30"; 0
/// where there is none; infinity beyond the range of a double.
double leadingNumber(std::string_view text);

}  // namespace t_genproc
