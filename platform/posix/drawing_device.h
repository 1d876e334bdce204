// What a device context is on this platform: the address of a surface that is being drawn on.
#pragma once

#include <cairo.h>

#include <memory>

#include "platform/drawing.h"

namespace ovaline::platform {

template <auto destroy>
struct Destroy {
    template <typename Object>
    void operator()(Object* object) const {
        destroy(object);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy<&cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Destroy<&cairo_destroy>>;
using Pattern = std::unique_ptr<cairo_pattern_t, Destroy<&cairo_pattern_destroy>>;

struct Device {
    Surface surface;
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    float pixelsPerInch = 96;
    double surfaceUnitsPerPixel = 1;

    HDC dc() { return reinterpret_cast<HDC>(this); }
    static Device& of(HDC dc) { return *reinterpret_cast<Device*>(dc); }
};

/// A canvas on the device, which outlives it. Null where memory is exhausted.
std::unique_ptr<Canvas> makeCanvas(const Device& device);

/// Whether a surface of that size can be made.
constexpr bool fitsSurface(int width, int height) {
    return width >= 1 && height >= 1 && width <= kMostPixelsAcross && height <= kMostPixelsAcross;
}

}  // namespace ovaline::platform
