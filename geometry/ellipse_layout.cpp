#include "geometry/ellipse_layout.h"

#include <cmath>
#include <utility>

#include "geometry/cubic.h"
#include "platform/extended_precision.h"

namespace ovaline {

namespace {

constexpr float kOffsetFlatness = 0.25f;
constexpr float kBaselineFlatness = 2.5f;
constexpr float kTextFlatness = 0.25f;

RectF boundsOf(const GraphicsPath& path) {
    RectF bounds;
    GdipGetPathWorldBounds(path, bounds);
    return bounds;
}

void translate(GraphicsPath& path, float dx, float dy) {
    const Matrix matrix{1, 0, 0, 1, dx, dy};
    GdipTransformPath(path, &matrix);
}

float offsetScale(float extent, float distance) {
    const long double wide = extent;
    const float scale = static_cast<float>(std::fabs((wide + 2 * static_cast<long double>(distance)) / wide));
    return std::isfinite(scale) ? scale : 1.0f;
}

GraphicsPath offset(const GraphicsPath& curve, float distance) {
    GraphicsPath path = curve;
    OffsetEllipse(path, distance);
    return path;
}

/// Inner, middle and outer curve of the band of text and the curve that the text stands on.
struct BandCurves {
    GraphicsPath inner, middle, outer, baseline;
};

BandCurves bandCurves(const GraphicsPath& ellipse, bool counterClockwise, float ascent, float descent, float half) {
    // Every offset begins by flattening alike, so one polyline serves them all.
    GraphicsPath polyline = ellipse;
    GdipFlattenPath(polyline, kOffsetFlatness);
    BandCurves curves;
    curves.inner = offset(polyline, -descent);
    curves.middle = offset(curves.inner, half);
    curves.outer = offset(polyline, ascent);
    curves.baseline = counterClockwise ? offset(curves.outer, -descent) : ellipse;
    return curves;
}

const GraphicsPath& guideCurve(const BandCurves& curves, std::int32_t pathType, bool counterClockwise) {
    switch (pathType) {
        case Center:
            return curves.middle;
        case Baseline:
            return curves.baseline;
        case Descender:
            return counterClockwise ? curves.outer : curves.inner;
        case Ascender:
            return counterClockwise ? curves.inner : curves.outer;
        default:
            return curves.outer;
    }
}

GraphicsPath framePath(const BandCurves& curves) {
    GraphicsPath frame;
    const RectF b = boundsOf(curves.outer);
    const float middleX = b.X + b.Width * 0.5f;
    const float middleY = b.Y + b.Height * 0.5f;
    GdipStartPathFigure(frame);
    GdipAddPathLine(frame, b.X, middleY, b.X + b.Width, middleY);
    GdipStartPathFigure(frame);
    GdipAddPathLine(frame, middleX, b.Y, middleX, b.Y + b.Height);
    GdipStartPathFigure(frame);
    GdipAddPathPath(frame, curves.inner);
    GdipAddPathPath(frame, curves.outer);
    return frame;
}

}  // namespace

void OffsetEllipse(GraphicsPath& path, float distance) {
    GdipFlattenPath(path, kOffsetFlatness);
    const RectF before = boundsOf(path);
    const Matrix scale{offsetScale(before.Width, distance), 0, 0, offsetScale(before.Height, distance), 0, 0};
    GdipTransformPath(path, &scale);
    const RectF after = boundsOf(path);
    translate(path, -after.X, -after.Y);
    translate(path, before.X + (before.Width - after.Width) * 0.5f, before.Y + (before.Height - after.Height) * 0.5f);
}

EllipseLayout ellipseLayout(const LayoutInput& input, platform::FontService& fonts, LayoutFont& font) {
    const ExtendedPrecisionGuard extendedPrecision;
    const bool counterClockwise = input.direction == CounterClockwise;
    GraphicsPath ellipse;
    GdipAddPathArc(ellipse, input.box.X, input.box.Y, input.box.Width, input.box.Height, -input.startAngle,
                   counterClockwise ? -360.0f : 360.0f);

    font.SetLayoutFont(fonts, input.font, true);
    const float ascent = static_cast<float>(font.metrics().tmAscent);
    const float descent = static_cast<float>(font.metrics().tmDescent);
    const float half = static_cast<float>(std::fabs(input.font.lfHeight * 0.5));
    BandCurves curves = bandCurves(ellipse, counterClockwise, ascent, descent, half);

    GraphicsPath guide;
    GdipAddPathPath(guide, guideCurve(curves, input.pathType, counterClockwise));
    GraphicsPath frame = framePath(curves);
    TextOnPath run(std::move(curves.baseline), kBaselineFlatness, font);
    run.setSpacingStep(static_cast<float>(input.dotsPerPixel / 10.0 * input.spacing));
    return {std::move(frame), std::move(guide), std::move(run)};
}

LayoutPaths LayoutTextOnEllipse(const LayoutInput& input, platform::FontService& fonts, LayoutFont& font) {
    EllipseLayout layout = ellipseLayout(input, fonts, font);
    LayoutPaths paths{GraphicsPath(), std::move(layout.frame), std::move(layout.guide)};
    layout.run.LayoutString(paths.text, input.text, 0);
    if (input.flattenText) GdipFlattenPath(paths.text, kTextFlatness);
    return paths;
}

}  // namespace ovaline
