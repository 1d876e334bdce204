#include "pages/text_preview.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "geometry/ellipse_layout.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

using platform::Argb;
using platform::DashStyle;
using platform::DrawingBox;
using platform::DrawingPoint;

constexpr double kScreenDotsPerInch = 96;  // nominal
constexpr double kPointsPerInch = 72;
constexpr float kMillimetresPerInch = 25.4f;
constexpr std::size_t kLongestFaceName = 31;
constexpr std::int32_t kBold = 700;
constexpr std::int32_t kRegular = 400;
constexpr float kThinLine = 1;
constexpr float kGuideLine = 2;
constexpr float kEndMarker = 6;  // diameter

bool isSize(float value) {
    return std::isfinite(value) && value > 0;
}

/// How large things are drawn.
struct Scale {
    float dotsPerUnit;   ///< dots in a millimetre, or in an inch
    float dotsPerPixel;  ///< as the font and the spacing use it
    float pixelsPerDot;
};

Scale scaleOf(const TextPageSettings& settings) {
    const float dotsPerUnit = settings.field<float>(record_offset::DotsPerUnit);
    const float pixelsPerUnit = settings.field<float>(record_offset::UnitFactor);
    return {dotsPerUnit, dotsPerUnit / pixelsPerUnit, pixelsPerUnit / dotsPerUnit};
}

std::int32_t cellHeight(const TextPageSettings& settings, float dotsPerPixel) {
    double inches = static_cast<double>(settings.fontHeight) * dotsPerPixel;
    if (settings.displayInPoint != 0)
        inches /= kPointsPerInch;
    else if (settings.measurement == 0)
        inches /= 25.4;
    return std::max(truncateToInt32(inches * kScreenDotsPerInch), 1);
}

platform::LogFont logFontOf(const TextPageSettings& settings, float dotsPerPixel) {
    platform::LogFont font;
    font.lfHeight = cellHeight(settings, dotsPerPixel);
    font.lfWeight = settings.fontBold != VARIANT_FALSE ? kBold : kRegular;
    font.lfItalic = settings.fontItalic != VARIANT_FALSE;
    font.lfUnderline = settings.fontUnderline;
    font.lfStrikeOut = settings.fontStrikeout;
    font.lfFaceName = settings.fontName.substr(0, kLongestFaceName);
    return font;
}

LayoutInput layoutInputOf(const TextPageSettings& settings, const Scale& scale) {
    LayoutInput input;
    input.text = settings.text;
    input.font = logFontOf(settings, scale.dotsPerPixel);
    input.box = {0, 0, settings.field<float>(record_offset::Width) * scale.dotsPerUnit,
                 settings.field<float>(record_offset::Height) * scale.dotsPerUnit};
    input.startAngle = settings.field<float>(record_offset::StartAngle);
    input.direction = settings.field<std::int32_t>(record_offset::TextDirection);
    input.pathType = settings.field<std::int32_t>(record_offset::PathType);
    input.spacing = settings.field<float>(record_offset::CharSpace);
    if (settings.measurement != 0) input.spacing *= kMillimetresPerInch;
    input.dotsPerPixel = scale.dotsPerPixel;
    input.flattenText = true;
    return input;
}

DrawingBox boxOf(const RECT& area) {
    return {static_cast<float>(area.left), static_cast<float>(area.top), static_cast<float>(area.right - area.left),
            static_cast<float>(area.bottom - area.top)};
}

DrawingBox intersection(const DrawingBox& a, const DrawingBox& b) {
    const float left = std::max(a.X, b.X);
    const float top = std::max(a.Y, b.Y);
    return {left, top, std::max(std::min(a.X + a.Width, b.X + b.Width) - left, 0.0f),
            std::max(std::min(a.Y + a.Height, b.Y + b.Height) - top, 0.0f)};
}

void fillWhite(platform::Canvas& canvas, const DrawingBox& box) {
    const float right = box.X + box.Width;
    const float bottom = box.Y + box.Height;
    const std::array<DrawingPoint, 4> corners = {{{box.X, box.Y}, {right, box.Y}, {right, bottom}, {box.X, bottom}}};
    constexpr std::array<std::uint8_t, 4> kTypes = {PathPointTypeStart, PathPointTypeLine, PathPointTypeLine,
                                                    PathPointTypeLine | PathPointTypeCloseSubpath};
    canvas.fill({corners, kTypes}, platform::kOpaqueWhite);
}

/// The layout of the page's text. Single strokes are open lines, as the control marks them: their figures end where
/// the pen does.
LayoutPaths layOut(const LayoutInput& input, std::int32_t fontStyle, platform::FontService& fonts, LayoutFont& font) {
    LayoutPaths paths = LayoutTextOnEllipse(input, fonts, font);
    if (fontStyle != TrueType) {
        GraphicsPath strokes;
        ConvertToSingleStroke(paths.text, strokes);
        paths.text = std::move(strokes);
    }
    return paths;
}

/// A layout as it is drawn: turned, in dots, and the way from there to the pixels of the area.
class Picture {
public:
    Picture(const TextPageSettings& settings, LayoutPaths paths, const RectF& layoutBox, float pixelsPerDot,
            const DrawingBox& area)
        : settings_(settings), paths_(std::move(paths)), scale_(pixelsPerDot) {
        const Matrix rotation = rotationInBox(layoutBox, settings.field<float>(record_offset::Angle));
        for (GraphicsPath* path : {&paths_.text, &paths_.frame, &paths_.guide}) GdipTransformPath(*path, &rotation);
        const RectF bounds = extentOf(includesFrame(showAxes()) ? paths_.frame : paths_.text).rectangle();
        const DrawingBox box = {area.X + (area.Width - bounds.Width * scale_) / 2,
                                area.Y + (area.Height - bounds.Height * scale_) / 2, bounds.Width * scale_,
                                bounds.Height * scale_};
        move_ = {box.X - bounds.X * scale_, box.Y - bounds.Y * scale_};
        clip_ = intersection(box, area);
    }

    void draw(platform::Canvas& canvas) const {
        canvas.setSmoothing(true);
        canvas.setClip(clip_);
        if (showAxes() == FullAxes || showAxes() == PartialAxes) drawAxes(canvas);
        drawText(canvas);
    }

private:
    std::int32_t showAxes() const { return settings_.field<std::int32_t>(record_offset::ShowAxes); }
    Argb colour(std::size_t offset) const { return platform::argbOf(settings_.field<std::uint32_t>(offset)); }

    DrawingPoint toPixels(PointF p) const { return {p.X * scale_ + move_.X, p.Y * scale_ + move_.Y}; }
    std::vector<DrawingPoint> toPixels(const GraphicsPath& path) const {
        std::vector<DrawingPoint> points(path.size());
        std::ranges::transform(path.points(), points.begin(), [this](PointF p) { return toPixels(p); });
        return points;
    }

    void drawAxes(platform::Canvas& canvas) const {
        const Argb frameColour = colour(record_offset::FrameColor);
        const std::vector<DrawingPoint> frame = toPixels(paths_.frame);
        canvas.stroke({frame, paths_.frame.types()}, {frameColour, kThinLine, DashStyle::Dash});
        const std::vector<DrawingPoint> guide = toPixels(paths_.guide);
        canvas.stroke({guide, paths_.guide.types()}, {colour(record_offset::GuideColor), kGuideLine, DashStyle::Dot});
        if (guide.empty()) return;
        const DrawingPoint end = guide.back();
        canvas.fillEllipse({end.X - kEndMarker / 2, end.Y - kEndMarker / 2, kEndMarker, kEndMarker}, frameColour);
    }

    /// Every fill is shown solid.
    void drawText(platform::Canvas& canvas) const {
        const std::vector<DrawingPoint> points = toPixels(paths_.text);
        const platform::DrawingPath text = {points, paths_.text.types()};
        const auto fillStyle = settings_.field<std::int32_t>(record_offset::FillStyle);
        const bool filled = fillStyle == Solid || fillStyle == Line || fillStyle == Cross;
        if (filled && settings_.fontStyle == TrueType) canvas.fill(text, platform::kOpaqueBlack);
        canvas.stroke(text, {platform::kOpaqueBlack, kThinLine, DashStyle::Solid});
    }

    const TextPageSettings& settings_;
    LayoutPaths paths_;
    float scale_;  // pixels per dot
    PointF move_;  // pixels
    DrawingBox clip_;
};

}  // namespace

void TextPreview::draw(const TextPageSettings& settings, platform::FontService& fonts, platform::Canvas& canvas,
                       const RECT& area) {
    fillWhite(canvas, boxOf(area));
    const Scale scale = scaleOf(settings);
    if (!isSize(scale.dotsPerUnit) || !isSize(scale.dotsPerPixel) || !isSize(scale.pixelsPerDot)) return;
    const LayoutInput input = layoutInputOf(settings, scale);
    if (!isSize(input.box.Width) || !isSize(input.box.Height)) return;
    LayoutPaths paths = layOut(input, settings.fontStyle, fonts, font_);
    Picture(settings, std::move(paths), input.box, scale.pixelsPerDot, boxOf(area)).draw(canvas);
}

}  // namespace ovaline
