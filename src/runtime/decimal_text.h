/// Decimal arithmetic on the digits of a number's text: no digit passes through a binary number.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace t_genproc {

/// The number at the start of `text` with that many decimals, halves rounded away from zero: of "1.005 m"
/// with 2 decimals "1.01". A zero stands ahead of a point that has nothing else there, the point stays where
/// there are no decimals, and what rounds to zero has no sign.
///
/// The number may have blanks ahead of it, a sign, a point and an exponent (E or D), and ends where nothing
/// continues it; 0 where there is none. Error 6: it is beyond the range of a double.
std::string fixedDecimals(std::string_view text, std::size_t decimals);

}  // namespace t_genproc
