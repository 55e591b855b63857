/// Whole numbers that never wrap around: whatever does not fit raises error 6.
///
///     const std::int16_t right = checkedAdd(left, width);
#pragma once

#include <concepts>
#include <utility>

#include "runtime/errors.h"

namespace t_genproc {

template <std::signed_integral Number>
Number checkedAdd(Number a, Number b) {
    Number sum{};
    if (__builtin_add_overflow(a, b, &sum)) throw RuntimeError(ErrorNumber::Overflow);
    return sum;
}

template <std::signed_integral Number>
Number checkedSubtract(Number a, Number b) {
    Number difference{};
    if (__builtin_sub_overflow(a, b, &difference)) throw RuntimeError(ErrorNumber::Overflow);
    return difference;
}

template <std::signed_integral Number>
Number checkedMultiply(Number a, Number b) {
    Number product{};
    if (__builtin_mul_overflow(a, b, &product)) throw RuntimeError(ErrorNumber::Overflow);
    return product;
}

/// `value` as a narrower number.
template <std::integral Narrow, std::integral Wide>
Narrow checkedNarrow(Wide value) {
    if (!std::in_range<Narrow>(value)) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Narrow>(value);
}

}  // namespace t_genproc
