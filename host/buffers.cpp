#include "host/buffers.h"

#include <algorithm>
#include <limits>
#include <new>

#include "output/vector_record.h"

namespace ovaline::host {

namespace {

/// A page: a stream that runs on behind its end is noticed wherever it stops in it.
constexpr std::size_t kGuardSize = 4096;

/// Guard bytes differ from their neighbours, from zeros and from the codes of records.
constexpr std::byte guardByte(std::size_t i) {
    return static_cast<std::byte>(0x80 | (i * 37 & 0x7F));
}

}  // namespace

GuardedBuffer::GuardedBuffer(std::size_t size) : size_(size) {
    if (size > std::numeric_limits<std::size_t>::max() - kGuardSize) throw std::bad_alloc();
    bytes_.reset(static_cast<std::byte*>(std::calloc(size + kGuardSize, 1)));
    if (!bytes_) throw std::bad_alloc();
    for (std::size_t i = 0; i < kGuardSize; ++i) bytes_[size_ + i] = guardByte(i);
}

bool GuardedBuffer::overrun() const {
    for (std::size_t i = 0; i < kGuardSize; ++i)
        if (bytes_[size_ + i] != guardByte(i)) return true;
    return false;
}

NestedReference::NestedReference(void* address, VARTYPE type) {
    inner_.vt = static_cast<VARTYPE>(VT_BYREF | type);
    inner_.byref = address;
    outer_.vt = VT_BYREF | VT_VARIANT;
    outer_.pvarVal = &inner_;
}

std::size_t vectorStreamLength(std::span<const std::byte> buffer) {
    for (std::size_t at = 0; buffer.size() - at >= kVectorRecordSize; at += kVectorRecordSize)
        if (buffer[at] == static_cast<std::byte>(kEndRecord.code)) return at + kVectorRecordSize;
    return buffer.size();
}

std::size_t rasterLength(std::span<const std::byte> buffer) {
    constexpr std::size_t kHeaderSize = 4;
    if (buffer.size() < kHeaderSize) return buffer.size();
    const auto word = [&](std::size_t at) {
        return std::to_integer<std::size_t>(buffer[at]) | std::to_integer<std::size_t>(buffer[at + 1]) << 8;
    };
    const std::size_t rows = word(0);
    const std::size_t columns = word(2);
    const std::size_t bytesPerRow = columns == 0 ? 1 : (columns - 1) / 8 + 1;
    return std::min(buffer.size(), kHeaderSize + rows * bytesPerRow);
}

}  // namespace ovaline::host
