// Buffers that the control fills, and the nested VARIANTs that carry their addresses.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>

#include "platform/com.h"

namespace ovaline::host {

/// Zeroed bytes with guard bytes behind them, which tell whether somebody wrote beyond the end.
class GuardedBuffer {
public:
    /// Throws std::bad_alloc where the memory cannot be had. Pages that nobody touches cost nothing, so a generous size
    /// is cheap.
    explicit GuardedBuffer(std::size_t size);

    std::byte* data() { return bytes_.get(); }
    std::span<const std::byte> bytes() const { return {bytes_.get(), size_}; }
    bool overrun() const;

private:
    struct Free {
        void operator()(std::byte* bytes) const { std::free(bytes); }
    };
    std::size_t size_;
    std::unique_ptr<std::byte[], Free> bytes_;
};

/// An address in the data field of a VARIANT that the data field of another VARIANT refers to: the form in which the
/// operations with VARIANT arguments take buffers, and places for their results. Lives longer than the call.
class NestedReference {
public:
    /// `type` is the tag of what is at `address`.
    NestedReference(void* address, VARTYPE type);
    NestedReference(const NestedReference&) = delete;
    NestedReference& operator=(const NestedReference&) = delete;

    const VARIANT& outer() const { return outer_; }

private:
    VARIANT inner_{};
    VARIANT outer_{};
};

/// The length of the vector stream that begins a buffer: up to and with its end record, or the whole buffer where there
/// is none.
std::size_t vectorStreamLength(std::span<const std::byte> buffer);

/// The length of the raster data that begins a buffer, by its header of rows and columns; at most the whole buffer.
std::size_t rasterLength(std::span<const std::byte> buffer);

}  // namespace ovaline::host
