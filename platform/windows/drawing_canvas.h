// A canvas on GDI+.
#pragma once

#include <memory>
#include <optional>

#include "platform/drawing.h"
#include "platform/drawing_path.h"
#include "platform/windows/drawing_gdiplus.h"

namespace ovaline::platform {

/// Gives a device context pixels for units, for as long as it lives. GDI+ would scale by the context's own.
class PixelUnits {
public:
    explicit PixelUnits(HDC dc);
    ~PixelUnits();
    PixelUnits(const PixelUnits&) = delete;
    PixelUnits& operator=(const PixelUnits&) = delete;

private:
    HDC dc_;
    bool saved_;
};

/// Clips are not smoothed: GDI+'s go along pixels.
class GdiplusCanvas final : public Canvas {
public:
    /// On pixels that outlive it. Null where memory is exhausted.
    static std::unique_ptr<GdiplusCanvas> onPixels(const PixelBlock& block, Gdiplus::PixelFormat format,
                                                   float pixelsPerInch);
    /// On a device context, whose own clip holds too. Null where GDI+ does not draw on it.
    static std::unique_ptr<GdiplusCanvas> onDevice(HDC dc);

    /// Ends what is still being drawn.
    void flush() { graphics_.Flush(Gdiplus::FlushIntentionSync); }

    float pixelsPerInch() const override { return pixelsPerInch_; }
    DrawingBox visible() const override { return visible_; }
    void setSmoothing(bool smooth) override;
    void resetClip() override;
    void setClip(const DrawingBox& box) override;
    void setClip(const DrawingPath& path) override;
    void setClipOutside(const DrawingBox& box, const DrawingPath& path) override;
    void addToClip(const DrawingPath& path) override;
    void fill(const DrawingPath& path, Argb colour) override;
    void fillOutside(const DrawingBox& box, const DrawingPath& path, Argb colour) override;
    void fillEllipse(const DrawingBox& box, Argb colour) override;
    void stroke(const DrawingPath& path, const Pen& pen) override;

private:
    GdiplusCanvas(const PixelBlock& block, Gdiplus::PixelFormat format, float pixelsPerInch);
    explicit GdiplusCanvas(HDC dc);
    template <typename... Arguments>
    static std::unique_ptr<GdiplusCanvas> make(Arguments... arguments);
    bool prepare();

    // GDI+'s objects are members: on the free store, its own allocator would hand out null unchecked.
    std::optional<Gdiplus::Bitmap> image_;  ///< what is drawn on, unless that is a device context
    std::optional<PixelUnits> units_;       ///< of the device context
    Gdiplus::Graphics graphics_;
    float pixelsPerInch_;
    DrawingBox visible_;
    Sides sides_;  ///< of `visible_`
};

}  // namespace ovaline::platform
