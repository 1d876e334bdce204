// Streams as short strings: "u 0,0 d 10,0 E -1,-1".
#pragma once

#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "output/vector_record.h"

namespace ovaline {

/// The records of a stream up to and with its end record.
inline std::vector<VectorRecord> recordsOf(std::span<const std::byte> stream) {
    std::vector<VectorRecord> records;
    for (std::size_t at = 0; at + kVectorRecordSize <= stream.size(); at += kVectorRecordSize) {
        records.push_back(decode(stream.data() + at));
        if (records.back().code == 'E') break;
    }
    return records;
}

inline std::string describe(std::span<const VectorRecord> records) {
    std::ostringstream text;
    for (const VectorRecord& record : records)
        text << (text.tellp() > 0 ? " " : "") << record.code << ' ' << record.x << ',' << record.y;
    return text.str();
}

}  // namespace ovaline
