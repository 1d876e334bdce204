// The property record and the settings.
#pragma once

#include <cstddef>
#include <span>

#include "control/interface/property_record.h"
#include "control/text_settings.h"

namespace ovaline {

/// Writes the whole record. A field keeps every bit, but for the position and size of the actual rectangle, which
/// are whole micrometres in the settings and travel in the unit of `Measurement`. Reserved bytes are zero.
void encodePropertyRecord(const TextSettings& settings, std::span<std::byte, kPropertyRecordSize> record);

/// Stores every field as it comes: nothing is limited, and nothing that another field depends on is computed anew.
/// Reserved bytes have no effect.
void decodePropertyRecord(std::span<const std::byte, kPropertyRecordSize> record, TextSettings& settings);

}  // namespace ovaline
