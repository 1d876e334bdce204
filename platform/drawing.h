// The drawing service: canvases on a device context and on bitmaps, and pictures that a host makes.
//
// Coordinates are device pixels, x to the right and y downwards, (0, 0) the top left corner of the top left pixel.
// Areas of paths are even-odd. Drawing never fails visibly: what the platform can't draw is left out, and so is every
// figure with a coordinate that is not finite.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/com.h"

namespace ovaline::platform {

/// Alpha in the high byte, then red, green and blue; not premultiplied.
using Argb = std::uint32_t;
constexpr Argb kOpaqueBlack = 0xFF000000;
constexpr Argb kOpaqueWhite = 0xFFFFFFFF;

/// The opaque colour of a COLORREF: red in its low byte, then green, then blue.
constexpr Argb argbOf(std::uint32_t colorref) {
    return kOpaqueBlack | (colorref & 0xFF) << 16 | (colorref & 0xFF00) | (colorref >> 16 & 0xFF);
}

struct DrawingPoint {
    float X = 0;
    float Y = 0;

    bool operator==(const DrawingPoint&) const = default;
};

struct DrawingBox {
    float X = 0;
    float Y = 0;
    float Width = 0;
    float Height = 0;

    bool operator==(const DrawingBox&) const = default;
};

/// A path as its points and their published type bytes: 0 starts a figure, 1 ends a line, three points of 3 make a
/// cubic (control, control, end), and 0x80 on the last point closes the figure. Both spans have the same length.
struct DrawingPath {
    std::span<const DrawingPoint> points;
    std::span<const std::uint8_t> types;
};

/// In units of the pen's width a dash is 3 long, a dot 1, a gap 1.
enum class DashStyle { Solid, Dash, Dot, DashDot, DashDotDot };

/// Centred on the path, flat ends, mitred corners up to 10 times the width. A pen of width 0 or below draws nothing;
/// below 1 it draws as much ink as a line of that width holds, if need be in a fainter colour.
struct Pen {
    Argb colour = kOpaqueBlack;
    float width = 1;
    DashStyle dash = DashStyle::Solid;
};

/// Something to draw on. A new canvas is unclipped and doesn't smooth.
class Canvas {
public:
    Canvas() = default;
    virtual ~Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Vertical logical pixels per inch.
    virtual float pixelsPerInch() const = 0;
    /// Nothing outside of it can be seen.
    virtual DrawingBox visible() const = 0;

    /// Smooth edges, of shapes and, where the platform can, of clips that are set from then on; otherwise a pixel is
    /// drawn whole or not at all.
    virtual void setSmoothing(bool smooth) = 0;

    // The clip, in which alone is drawn.
    virtual void resetClip() = 0;
    virtual void setClip(const DrawingBox& box) = 0;
    virtual void setClip(const DrawingPath& path) = 0;
    /// The box without the area of the path.
    virtual void setClipOutside(const DrawingBox& box, const DrawingPath& path) = 0;
    /// The area of the path too. An unclipped canvas stays unclipped: there is nothing to add to everything.
    virtual void addToClip(const DrawingPath& path) = 0;

    /// An open figure is filled as if it were closed.
    virtual void fill(const DrawingPath& path, Argb colour) = 0;
    /// Fills the box without the area of the path.
    virtual void fillOutside(const DrawingBox& box, const DrawingPath& path, Argb colour) = 0;
    /// Fills the ellipse inscribed in the box.
    virtual void fillEllipse(const DrawingBox& box, Argb colour) = 0;
    /// A line without length draws nothing.
    virtual void stroke(const DrawingPath& path, const Pen& pen) = 0;
};

/// A canvas on a device context, for as long as both live. Null where `dc` is null or memory is exhausted.
std::unique_ptr<Canvas> makeCanvas(HDC dc);

/// The place of a rectangle that is given in the units of a device context, which may be others than its pixels.
RECTL devicePixels(HDC dc, const RECTL& units);

/// An off-screen bitmap of 24 bits a pixel, opaque white when it is new.
class Bitmap {
public:
    Bitmap() = default;
    virtual ~Bitmap() = default;
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;

    virtual int width() const = 0;
    virtual int height() const = 0;
    /// Its canvas of 96 pixels per inch; the same one at every call.
    virtual Canvas& canvas() = 0;
    /// The pixels of a row within the bitmap, with what was drawn so far: red, green and blue in bits 16, 8 and 0; the
    /// high byte is undefined. Valid until the next operation on the canvas.
    virtual std::span<const std::uint32_t> row(int y) const = 0;
};

/// The largest width and height of a bitmap or picture, in pixels: what the platform's pictures can hold.
constexpr int kMostPixelsAcross = 32767;

/// A new bitmap. Null where memory does not suffice or a side is not from 1 to `kMostPixelsAcross`.
std::unique_ptr<Bitmap> makeBitmap(int width, int height);

enum class PictureKind { Png, Svg, Pdf };

/// Whether the platform makes pictures of that kind; of `Png` all do.
bool offersPictures(PictureKind kind);

/// A picture that is drawn on through its device context and then written.
class Picture {
public:
    Picture() = default;
    virtual ~Picture() = default;
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    virtual HDC dc() = 0;
    /// Ends the drawing: the bytes of the file, or none where it could not be made. Nothing is drawn on it afterwards.
    virtual std::string finish() = 0;
};

/// A new picture of width × height pixels, `pixelsPerInch` of them to an inch, on a ground of the given colour or,
/// without one, transparent. Null where memory does not suffice, a side is not from 1 to `kMostPixelsAcross`, the
/// resolution is not a positive number or the platform does not offer the kind.
std::unique_ptr<Picture> makePicture(PictureKind kind, int width, int height, float pixelsPerInch,
                                     std::optional<Argb> ground);

}  // namespace ovaline::platform
