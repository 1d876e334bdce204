// Reading a vector stream whose size the control only estimates.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "control/interface/norvel_ovaline_ctrl.h"
#include "host/buffers.h"

namespace ovaline::host {

/// A stream in the buffer that the control wrote it into.
class VectorStream {
public:
    VectorStream(GuardedBuffer buffer, std::size_t length) : buffer_(std::move(buffer)), length_(length) {}

    /// Up to and with the end record.
    std::span<const std::byte> bytes() const { return buffer_.bytes().first(length_); }

private:
    GuardedBuffer buffer_;
    std::size_t length_;
};

/// GetVectorData or GetOutlineData.
using StreamOperation = HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*)(VARIANT, ULONG);

/// Calls `operation` with a buffer that is large enough. Throws Failure, with the operation's `name`, where it fails,
/// or where the stream is larger than a gibibyte.
VectorStream readVectorStream(INorvel_OvalineCtrl& control, StreamOperation operation, std::string_view name);

}  // namespace ovaline::host
