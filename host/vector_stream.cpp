#include "host/vector_stream.h"

#include <algorithm>

#include "host/control_host.h"
#include "host/failure.h"

namespace ovaline::host {

namespace {

/// The size that the control asks for is an estimate and may be far too large, or too small. The buffer starts at what
/// is asked, but not above the first limit, and grows up to the second while the stream does not fit.
constexpr std::size_t kLargestFirstBuffer = std::size_t{64} << 20;
constexpr std::size_t kLargestBuffer = std::size_t{1} << 30;

}  // namespace

VectorStream readVectorStream(INorvel_OvalineCtrl& control, StreamOperation operation, std::string_view name) {
    ULONG asked = 0;
    require(control.GetVectorDataSize(&asked), "GetVectorDataSize");
    for (std::size_t size = std::clamp<std::size_t>(asked, 1, kLargestFirstBuffer); size <= kLargestBuffer; size *= 2) {
        GuardedBuffer buffer(size);
        const NestedReference reference(buffer.data(), VT_UI1);
        const HRESULT hr = (control.*operation)(reference.outer(), static_cast<ULONG>(size));
        if (buffer.overrun()) throw Failure("the control wrote beyond its buffer, install its module again");
        if (hr == DISP_E_BUFFERTOOSMALL) continue;
        require(hr, name);
        const std::size_t length = vectorStreamLength(buffer.bytes());
        return VectorStream(std::move(buffer), length);
    }
    throw Failure("the vector stream is larger than " + std::to_string(kLargestBuffer >> 20) +
                  " MiB, fill less or make a smaller array");
}

}  // namespace ovaline::host
