// The record of the vector data stream and its bytes.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

namespace ovaline {

/// One record: a code and a point in dots, x to the right and y downwards.
///
/// | code | meaning |
/// | --- | --- |
/// | u | outline: move without marking to the first point of a figure |
/// | d | outline: mark a line to a significant point, or to the point that closes a figure |
/// | x | outline: mark a line to an intermediate point |
/// | U | fill: move without marking to where a hatch line enters the glyph area |
/// | D | fill: mark a line to where it leaves |
/// | E | end of the data; x and y are -1 |
struct VectorRecord {
    char code;
    float x;
    float y;

    bool operator==(const VectorRecord&) const = default;
};

/// Bytes of a record in the stream: the code, then x and y as little-endian IEEE 754 singles, without padding.
constexpr std::size_t kVectorRecordSize = 9;

constexpr VectorRecord kEndRecord{'E', -1.0f, -1.0f};

namespace detail {

inline void storeSingle(std::byte* to, float value) {
    const std::uint32_t bits = std::bit_cast<std::uint32_t>(value);
    to[0] = static_cast<std::byte>(bits);
    to[1] = static_cast<std::byte>(bits >> 8);
    to[2] = static_cast<std::byte>(bits >> 16);
    to[3] = static_cast<std::byte>(bits >> 24);
}

inline float loadSingle(const std::byte* from) {
    const auto byte = [from](int i) { return std::to_integer<std::uint32_t>(from[i]); };
    return std::bit_cast<float>(byte(0) | byte(1) << 8 | byte(2) << 16 | byte(3) << 24);
}

}  // namespace detail

/// Writes the record's 9 bytes at `to`.
inline void encode(const VectorRecord& record, std::byte* to) {
    to[0] = static_cast<std::byte>(record.code);
    detail::storeSingle(to + 1, record.x);
    detail::storeSingle(to + 5, record.y);
}

/// Reads the 9 bytes at `from`.
inline VectorRecord decode(const std::byte* from) {
    return {std::to_integer<char>(from[0]), detail::loadSingle(from + 1), detail::loadSingle(from + 5)};
}

}  // namespace ovaline
