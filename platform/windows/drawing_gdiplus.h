// GDI+ as the drawing service uses it.
#pragma once

#include "platform/com.h"
// GDI+ takes the types that the SDK's headers before it declare.
#include <gdiplus.h>

#include <cstdint>

#include "platform/drawing.h"

namespace ovaline::platform {

/// Starts GDI+ at the first call and keeps it for the rest of the process: it may not be shut down while a module is
/// being unloaded, and starting it for each drawing would take longer than most drawings. False where it cannot start.
bool startGdiplus();

/// Whether a bitmap of that size can be made.
constexpr bool fitsBitmap(int width, int height) {
    return width >= 1 && height >= 1 && width <= kMostPixelsAcross && height <= kMostPixelsAcross;
}

/// Pixels in memory, top row first, no gap between the rows.
struct PixelBlock {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;

    int stride() const { return width * static_cast<int>(sizeof *pixels); }
    BYTE* bytes() const { return reinterpret_cast<BYTE*>(pixels); }  // GDI+'s name for them
};

}  // namespace ovaline::platform
