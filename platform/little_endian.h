// Numbers as little-endian bytes, whatever the machine's own order.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <type_traits>

namespace ovaline {

/// Writes the bytes of `value` at `to`. A single keeps every bit, a NaN's payload included, so it comes by reference: a
/// 32-bit build may pass values through the x87, which changes some.
template <typename Value>
requires(std::is_arithmetic_v<Value>) void storeLittleEndian(std::byte* to, const Value& value) {
    auto bytes = std::bit_cast<std::array<std::byte, sizeof(Value)>>(value);
    if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
    std::ranges::copy(bytes, to);
}

/// Reads `value` from the bytes at `from`, every bit kept.
template <typename Value>
requires(std::is_arithmetic_v<Value>) void loadLittleEndian(const std::byte* from, Value& value) {
    std::array<std::byte, sizeof(Value)> bytes;
    std::copy_n(from, sizeof(Value), bytes.begin());
    if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
    value = std::bit_cast<Value>(bytes);
}

}  // namespace ovaline
