// Conversions from floating point to integers that are defined for every value.
#pragma once

#include <cstdint>
#include <limits>

namespace ovaline {

/// Truncates toward zero into `Integer`. Values beyond the type saturate at its nearest bound; NaN becomes 0.
template <typename Integer, typename Real>
constexpr Integer truncateTo(Real value) {
    using Limits = std::numeric_limits<Integer>;
    // 2^digits is a power of two and therefore exact in every floating-point type, unlike max() itself.
    constexpr Real upper = static_cast<Real>(std::uint64_t{1} << (Limits::digits - 1)) * Real{2};
    if (value != value) return 0;
    if (value >= upper) return Limits::max();
    if (value <= static_cast<Real>(Limits::min())) return Limits::min();
    return static_cast<Integer>(value);
}

template <typename Real>
constexpr std::int32_t truncateToInt32(Real value) {
    return truncateTo<std::int32_t>(value);
}

}  // namespace ovaline
