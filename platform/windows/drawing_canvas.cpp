#include "platform/windows/drawing_canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <utility>
#include <vector>

#include "platform/windows/drawing_picture.h"

namespace ovaline::platform {

namespace {

constexpr float kThinnest = 1;  // of GDI+'s pens, in pixels
constexpr float kFar = 1e5;     // pixels, of recordings to each side

/// Collects figures as a path of GDI+.
class PathCollector final : public FigureSink {
public:
    void moveTo(Place start) override { add(start, Gdiplus::PathPointTypeStart); }
    void lineTo(Place end) override { add(end, Gdiplus::PathPointTypeLine); }
    void curveTo(Place control1, Place control2, Place end) override {
        for (const Place place : {control1, control2, end}) add(place, Gdiplus::PathPointTypeBezier);
    }
    void close() override { types_.back() |= BYTE{Gdiplus::PathPointTypeCloseSubpath}; }

    void add(const DrawingPath& path, const Sides& seen) { appendAreas(*this, path, seen); }

    void add(const DrawingBox& box, const Sides& seen) { add(boxOutline(box), seen); }

    /// What was collected; even-odd.
    Gdiplus::GraphicsPath path() const {
        return points_.empty() ? Gdiplus::GraphicsPath()
                               : Gdiplus::GraphicsPath(points_.data(), types_.data(), static_cast<INT>(points_.size()));
    }

private:
    void add(Place place, Gdiplus::PathPointType type) {
        points_.push_back({static_cast<float>(place.x), static_cast<float>(place.y)});
        types_.push_back(static_cast<BYTE>(type));
    }

    std::vector<Gdiplus::PointF> points_;
    std::vector<BYTE> types_;
};

template <typename Shape>
Gdiplus::GraphicsPath areaOf(const Shape& shape, const Sides& seen) {
    PathCollector collector;
    collector.add(shape, seen);
    return collector.path();
}

Gdiplus::DashStyle styleOf(DashStyle style) {
    switch (style) {
        case DashStyle::Dash:
            return Gdiplus::DashStyleDash;
        case DashStyle::Dot:
            return Gdiplus::DashStyleDot;
        case DashStyle::DashDot:
            return Gdiplus::DashStyleDashDot;
        case DashStyle::DashDotDot:
            return Gdiplus::DashStyleDashDotDot;
        case DashStyle::Solid:
            break;
    }
    return Gdiplus::DashStyleSolid;
}

Argb faded(Argb colour, float share) {
    constexpr int kAlpha = 24;
    const auto alpha = static_cast<Argb>(std::lround(static_cast<float>(colour >> kAlpha) * share));
    return alpha << kAlpha | (colour & 0xFFFFFF);
}

/// How GDI+ draws a pen's line. Where it has no pen as thin, a wider one is as much fainter.
class PenLook {
public:
    PenLook(const Pen& pen, const PenForm& form)
        : style_(form.lengths().empty() ? Gdiplus::DashStyleSolid : styleOf(pen.dash)),
          width_(std::max(static_cast<float>(form.width()), kThinnest)),
          thinness_(static_cast<float>(form.width()) / width_),
          colour_(faded(pen.colour, thinness_ * static_cast<float>(form.ink()))) {}

    Argb colour() const { return colour_; }
    float width() const { return width_; }

    void apply(Gdiplus::Pen& pen) const {
        pen.SetLineJoin(Gdiplus::LineJoinMiter);
        pen.SetMiterLimit(static_cast<float>(kMiterLimit));
        pen.SetDashStyle(style_);
        if (style_ == Gdiplus::DashStyleSolid || thinness_ == 1) return;
        std::vector<float> lengths(static_cast<std::size_t>(pen.GetDashPatternCount()));
        pen.GetDashPattern(lengths.data(), static_cast<INT>(lengths.size()));
        for (float& length : lengths) length *= thinness_;
        pen.SetDashPattern(lengths.data(), static_cast<INT>(lengths.size()));
    }

private:
    Gdiplus::DashStyle style_;
    float width_;
    float thinness_;  ///< share of the pen's own width in that
    Argb colour_;
};

/// What can be seen of a device context, in its units.
DrawingBox visibleOf(HDC dc) {
    // What is recorded can be shown on anything.
    const DWORD kind = GetObjectType(dc);
    if (kind == OBJ_METADC || kind == OBJ_ENHMETADC) return {-kFar, -kFar, 2 * kFar, 2 * kFar};
    RECT clip{};
    if (GetClipBox(dc, &clip) == ERROR) return {};
    return {static_cast<float>(clip.left), static_cast<float>(clip.top), static_cast<float>(clip.right - clip.left),
            static_cast<float>(clip.bottom - clip.top)};
}

/// Recordings of the old kind have no pixels: their units are whatever they are played in.
bool hasPixels(HDC dc) {
    return GetObjectType(dc) != OBJ_METADC;
}

}  // namespace

PixelUnits::PixelUnits(HDC dc) : dc_(dc), saved_(hasPixels(dc) && SaveDC(dc) != 0) {
    if (!saved_) return;
    if (GetGraphicsMode(dc) == GM_ADVANCED) ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
    SetMapMode(dc, MM_TEXT);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetViewportOrgEx(dc, 0, 0, nullptr);
}

PixelUnits::~PixelUnits() {
    constexpr int kLastSaved = -1;
    if (saved_) RestoreDC(dc_, kLastSaved);
}

template <typename... Arguments>
std::unique_ptr<GdiplusCanvas> GdiplusCanvas::make(Arguments... arguments) {
    std::unique_ptr<GdiplusCanvas> canvas(new (std::nothrow) GdiplusCanvas(arguments...));
    return canvas && canvas->prepare() ? std::move(canvas) : nullptr;
}

std::unique_ptr<GdiplusCanvas> GdiplusCanvas::onPixels(const PixelBlock& block, Gdiplus::PixelFormat format,
                                                       float pixelsPerInch) {
    return make(block, format, pixelsPerInch);
}

std::unique_ptr<GdiplusCanvas> GdiplusCanvas::onDevice(HDC dc) {
    return make(dc);
}

GdiplusCanvas::GdiplusCanvas(const PixelBlock& block, Gdiplus::PixelFormat format, float pixelsPerInch)
    : image_(std::in_place, block.width, block.height, block.stride(), format, block.bytes()),
      graphics_(&*image_),
      pixelsPerInch_(pixelsPerInch),
      visible_{0, 0, static_cast<float>(block.width), static_cast<float>(block.height)} {}

GdiplusCanvas::GdiplusCanvas(HDC dc)
    : units_(dc),
      graphics_(dc),
      pixelsPerInch_(static_cast<float>(GetDeviceCaps(dc, LOGPIXELSY))),
      visible_(visibleOf(dc)) {}

bool GdiplusCanvas::prepare() {
    if (graphics_.GetLastStatus() != Gdiplus::Ok) return false;
    sides_ = {visible_.X, visible_.Y, visible_.X + visible_.Width, visible_.Y + visible_.Height};
    graphics_.SetPageUnit(Gdiplus::UnitPixel);
    // Else whole coordinates are the middles of pixels.
    graphics_.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    setSmoothing(false);
    return true;
}

void GdiplusCanvas::setSmoothing(bool smooth) {
    graphics_.SetSmoothingMode(smooth ? Gdiplus::SmoothingModeHighQuality : Gdiplus::SmoothingModeNone);
}

void GdiplusCanvas::resetClip() {
    graphics_.ResetClip();
}

void GdiplusCanvas::setClip(const DrawingBox& box) {
    const Gdiplus::GraphicsPath area = areaOf(box, sides_);
    graphics_.SetClip(&area);
}

void GdiplusCanvas::setClip(const DrawingPath& path) {
    const Gdiplus::GraphicsPath area = areaOf(path, sides_);
    graphics_.SetClip(&area);
}

void GdiplusCanvas::setClipOutside(const DrawingBox& box, const DrawingPath& path) {
    setClip(box);
    const Gdiplus::GraphicsPath area = areaOf(path, sides_);
    graphics_.SetClip(&area, Gdiplus::CombineModeExclude);
}

void GdiplusCanvas::addToClip(const DrawingPath& path) {
    const Gdiplus::GraphicsPath area = areaOf(path, sides_);
    graphics_.SetClip(&area, Gdiplus::CombineModeUnion);
}

void GdiplusCanvas::fill(const DrawingPath& path, Argb colour) {
    const Gdiplus::GraphicsPath area = areaOf(path, sides_);
    const Gdiplus::SolidBrush brush{Gdiplus::Color(colour)};
    graphics_.FillPath(&brush, &area);
}

void GdiplusCanvas::fillOutside(const DrawingBox& box, const DrawingPath& path, Argb colour) {
    // The box's own area takes part in the even-odd rule, which turns the path's area inside out within it.
    PathCollector both;
    both.add(box, sides_);
    both.add(path, sides_);
    const Gdiplus::GraphicsPath area = both.path(), within = areaOf(box, sides_);
    const Gdiplus::SolidBrush brush{Gdiplus::Color(colour)};
    const Gdiplus::GraphicsState before = graphics_.Save();
    graphics_.SetClip(&within, Gdiplus::CombineModeIntersect);
    graphics_.FillPath(&brush, &area);
    graphics_.Restore(before);
}

void GdiplusCanvas::fillEllipse(const DrawingBox& box, Argb colour) {
    if (!(box.Width > 0) || !(box.Height > 0)) return;
    if (!isNear(box, sides_)) return fill(ellipseOutline(box), colour);
    const Gdiplus::SolidBrush brush{Gdiplus::Color(colour)};
    graphics_.FillEllipse(&brush, box.X, box.Y, box.Width, box.Height);
}

void GdiplusCanvas::stroke(const DrawingPath& path, const Pen& pen) {
    if (!(pen.width > 0)) return;
    const PenForm form(pen);
    const PenLook look(pen, form);
    Gdiplus::Pen made(Gdiplus::Color(look.colour()), look.width());
    look.apply(made);
    LineFeeder lines(path, sides_, form);
    for (PathCollector some; lines.appendSome(some); some = {}) {
        const Gdiplus::GraphicsPath figures = some.path();
        graphics_.DrawPath(&made, &figures);
    }
}

std::unique_ptr<Canvas> makeCanvas(HDC dc) {
    if (!dc || !startGdiplus()) return nullptr;
    if (std::unique_ptr<Canvas> canvas = makePictureCanvas(dc)) return canvas;
    return GdiplusCanvas::onDevice(dc);
}

RECTL devicePixels(HDC dc, const RECTL& units) {
    std::array<POINT, 2> corners = {{{units.left, units.top}, {units.right, units.bottom}}};
    if (hasPixels(dc)) LPtoDP(dc, corners.data(), static_cast<int>(corners.size()));
    return {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

}  // namespace ovaline::platform
