// The host's buffer, filled record by record.
#pragma once

#include <span>

#include "output/vector_record.h"

namespace ovaline {

/// Writes records into a buffer and never past its end. A record that does not fit is dropped, and so is every one
/// after it; `fits` then tells.
class RecordSink {
public:
    explicit RecordSink(std::span<std::byte> buffer) : next_(buffer.data()), end_(buffer.data() + buffer.size()) {}

    void write(const VectorRecord& record) {
        if (static_cast<std::size_t>(end_ - next_) < kVectorRecordSize) {
            fits_ = false;
            next_ = end_;
            return;
        }
        encode(record, next_);
        next_ += kVectorRecordSize;
    }
    bool fits() const { return fits_; }
    /// First byte behind what was written.
    const std::byte* position() const { return next_; }

private:
    std::byte* next_;
    std::byte* end_;
    bool fits_ = true;
};

}  // namespace ovaline
