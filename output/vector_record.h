// The record of the vector data stream and its bytes.
#pragma once

#include <cstddef>

#include "platform/little_endian.h"

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

/// Writes the record's 9 bytes at `to`.
inline void encode(const VectorRecord& record, std::byte* to) {
    to[0] = static_cast<std::byte>(record.code);
    storeLittleEndian(to + 1, record.x);
    storeLittleEndian(to + 5, record.y);
}

/// Reads the 9 bytes at `from`.
inline VectorRecord decode(const std::byte* from) {
    VectorRecord record{std::to_integer<char>(from[0]), 0, 0};
    loadLittleEndian(from + 1, record.x);
    loadLittleEndian(from + 5, record.y);
    return record;
}

}  // namespace ovaline
