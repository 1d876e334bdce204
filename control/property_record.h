// The property record: the settings that one call moves between a control and a caller's buffer.
#pragma once

#include <cstddef>
#include <span>

#include "control/text_settings.h"

namespace ovaline {

/// Bytes of a record: fields at fixed offsets, little-endian, singles and 32-bit integers but for one of 16 bits.
constexpr std::size_t kPropertyRecordSize = 272;

/// Writes the whole record. A field keeps every bit, but for the position and size of the actual rectangle, which
/// are whole micrometres in the settings and travel in the unit of `Measurement`. Reserved bytes are zero.
void encodePropertyRecord(const TextSettings& settings, std::span<std::byte, kPropertyRecordSize> record);

/// Stores every field as it comes: nothing is limited, and nothing that another field depends on is computed anew.
/// Reserved bytes have no effect.
void decodePropertyRecord(std::span<const std::byte, kPropertyRecordSize> record, TextSettings& settings);

}  // namespace ovaline
