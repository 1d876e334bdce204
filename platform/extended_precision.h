// Guards the 64-bit significand of `long double`.
#pragma once

#include <cstdint>

namespace ovaline {

/// While it lives, x87 arithmetic rounds to a 64-bit significand (the full `long double`), whatever precision the
/// hosting process has set; the former control word comes back at the end. Script hosts run with 53 bits.
class ExtendedPrecisionGuard {
public:
    ExtendedPrecisionGuard() {
        asm volatile("fnstcw %0" : "=m"(saved_));
        const std::uint16_t full = saved_ | kPrecision64;
        asm volatile("fldcw %0" : : "m"(full));
    }
    ~ExtendedPrecisionGuard() { asm volatile("fldcw %0" : : "m"(saved_)); }
    ExtendedPrecisionGuard(const ExtendedPrecisionGuard&) = delete;
    ExtendedPrecisionGuard& operator=(const ExtendedPrecisionGuard&) = delete;

private:
    static constexpr std::uint16_t kPrecision64 = 0x0300;  // both bits of the precision-control field
    std::uint16_t saved_ = 0;
};

}  // namespace ovaline
