// What a test may expect of the engine beneath the drawing service.
#pragma once

#include <array>
#include <cstdint>

#include "platform/drawing.h"

namespace ovaline::platform {

/// Whether the engine knows more of an edge than the whole pixel nearest to it. Those that don't (some stand in for
/// GDI+ where there is no Windows) draw about as much ink, a pixel aside, and never smooth.
inline bool drawsWithinPixels() {
    static constexpr std::array<DrawingPoint, 4> kHalf = {{{0, 0}, {0.5f, 0}, {0.5f, 1}, {0, 1}}};
    static constexpr std::array<std::uint8_t, 4> kTypes = {0, 1, 1, 0x81};
    const auto bitmap = makeBitmap(1, 1);
    bitmap->canvas().setSmoothing(true);
    bitmap->canvas().fill({kHalf, kTypes}, kOpaqueBlack);
    const std::uint32_t level = bitmap->row(0)[0] & 0xFF;
    return level > 0x70 && level < 0x90;
}

}  // namespace ovaline::platform
