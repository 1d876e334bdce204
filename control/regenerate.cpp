#include "control/regenerate.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "control/settings_slices.h"
#include "geometry/cubic.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

RectF boundsOf(const GraphicsPath& path) {
    RectF bounds;
    GdipGetPathWorldBounds(path, bounds);
    return bounds;
}

/// Turns a point by `angle` degrees counter-clockwise on the screen about the centre of `box`.
Matrix rotationMatrix(const RectF& box, float angle) {
    Matrix matrix;
    GdipTranslateMatrix(matrix, box.Width / 2, box.Height / 2);
    GdipRotateMatrix(matrix, -angle);
    GdipTranslateMatrix(matrix, -(box.Width / 2), -(box.Height / 2));
    return matrix;
}

/// Mirrors `text` about the centre lines of `frame`. The flags are -1 when set.
void mirror(GraphicsPath& text, const RectF& frame, std::int32_t horizontal, std::int32_t vertical) {
    if (horizontal == 0 && vertical == 0) return;
    const float tx = static_cast<float>(horizontal) * (2 * frame.X + frame.Width);
    const float ty = static_cast<float>(vertical) * (2 * frame.Y + frame.Height);
    Matrix matrix;
    GdipScaleMatrix(matrix, horizontal != 0 ? -1.0f : 1.0f, vertical != 0 ? -1.0f : 1.0f);
    GdipTranslateMatrix(matrix, tx, ty);
    GdipTransformPath(text, &matrix);
}

void layStaticText(const TextSettings& settings, platform::FontService& fonts, LayoutFont& font, KeptPaths& paths) {
    LayoutPaths laid = LayoutTextOnEllipse(layoutInputOf(settings, settings.TextData), fonts, font);
    paths.FramePath = std::move(laid.frame);
    paths.GuidePath = std::move(laid.guide);
    if (settings.FontStyle == TrueType)
        GdipAddPathPath(paths.TextPath, laid.text);
    else
        ConvertToSingleStroke(laid.text, paths.TextPath);
    const Matrix rotation = rotationMatrix(layoutBoxOf(settings), settings.Angle);
    for (GraphicsPath* path : {&paths.TextPath, &paths.FramePath, &paths.GuidePath})
        GdipTransformPath(*path, &rotation);
}

/// Micrometres of a row of equal copies: its first `extent`, then one offset for each further copy.
float rowExtent(float extent, float offset, std::int32_t copies) {
    const float count = static_cast<float>(copies);
    return extent * count + (offset - extent) * (count - 1);
}

float screenExtent(const TextSettings& settings, float length) {
    double pixels = static_cast<double>(settings.ZoomFactor) * length * settings.ScreenDpi;
    if (settings.Measurement == 0) pixels /= 25.4;
    return static_cast<float>(truncateToInt32(pixels + 0.5)) + 1;
}

void measureResult(const TextSettings& settings, const RectF& bounds, Regenerated& result) {
    const auto micrometres = [&](float dots) {
        return static_cast<float>(toInternalUnits(dots / settings.DotsPerUnit, settings.Measurement));
    };
    const auto pixels = [&](float length) {
        return screenExtent(settings, toUserUnits(truncateToInt32(length), settings.Measurement));
    };
    result.resultRight = rowExtent(micrometres(bounds.Width), settings.ArrayXOffset, settings.ArrayXDimension);
    result.resultBottom = rowExtent(micrometres(bounds.Height), settings.ArrayYOffset, settings.ArrayYDimension);
    result.screenWidth = pixels(result.resultRight);
    result.screenHeight = pixels(result.resultBottom);
}

}  // namespace

Regenerated regenerate(const TextSettings& settings, platform::FontService& fonts, LayoutFont& font) {
    Regenerated result;
    KeptPaths& paths = result.paths;
    // Copies with a serial number or a date of their own are not composed yet, and static text in their place would be
    // marked wrongly.
    if (settings.composed()) return result;
    layStaticText(settings, fonts, font, paths);
    GdipAddPathPath(paths.BoundsPath, paths.TextPath);
    GdipAddPathPath(paths.BoundsPath, paths.FramePath);

    mirror(paths.TextPath, boundsOf(paths.FramePath), settings.MirrorHorizontal, settings.MirrorVertical);
    const bool withFrame = settings.ShowAxes == FullAxes || settings.ShowAxes == NoAxesFull;
    const RectF bounds = boundsOf(withFrame ? paths.BoundsPath : paths.TextPath);

    GdipFlattenPath(paths.TextPath, unitsOf(settings).dots(settings.Flatness));
    BuildFill(hatchInputOf(settings), paths.TextPath, paths.FillPath);
    measureResult(settings, bounds, result);
    return result;
}

}  // namespace ovaline
