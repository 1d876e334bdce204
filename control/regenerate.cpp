#include "control/regenerate.h"

#include <cmath>
#include <optional>
#include <utility>

#include "control/composed_copies.h"
#include "control/settings_slices.h"
#include "geometry/cubic.h"
#include "geometry/path_writer.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

/// Mirrors about the centre lines of `frame`. The flags are -1 when set; nothing where neither is.
std::optional<Matrix> mirrorMatrix(const RectF& frame, std::int32_t horizontal, std::int32_t vertical) {
    if (horizontal == 0 && vertical == 0) return std::nullopt;
    const float tx = static_cast<float>(horizontal) * (2 * frame.X + frame.Width);
    const float ty = static_cast<float>(vertical) * (2 * frame.Y + frame.Height);
    Matrix matrix;
    GdipScaleMatrix(matrix, horizontal != 0 ? -1.0f : 1.0f, vertical != 0 ? -1.0f : 1.0f);
    GdipTranslateMatrix(matrix, tx, ty);
    return matrix;
}

/// One pass over the settings.
class Pass {
public:
    Pass(const TextSettings& settings, platform::FontService& fonts, LayoutFont& font, KeptPaths reused)
        : paths(std::move(reused)),
          settings_(settings),
          layout_(ellipseLayout(layoutInputOf(settings), fonts, font)),
          rotation_(rotationInBox(layoutBoxOf(settings), settings.Angle)) {}

    /// Builds all paths but the fill. False where the copies are too many.
    bool build(const platform::Clock& clock) {
        reset(paths);
        if (settings_.composed()) paths.grid = copyGridOf(settings_);
        paths.FramePath = std::move(layout_.frame);
        paths.GuidePath = std::move(layout_.guide);
        GdipTransformPath(paths.FramePath, &rotation_);
        GdipTransformPath(paths.GuidePath, &rotation_);
        frame_ = frameExtent(paths);
        mirror_ = mirrorMatrix(frame_.rectangle(), settings_.MirrorHorizontal, settings_.MirrorVertical);
        if (settings_.composed()) return buildCopies(clock);
        buildStaticText();
        return true;
    }

    KeptPaths paths;
    RectF bounds;  ///< of the result

private:
    float flatness() const { return unitsOf(settings_).dots(settings_.Flatness); }

    void buildStaticText() {
        GraphicsPath text;
        layout_.run.LayoutString(text, settings_.TextData, 0);
        if (settings_.FontStyle == TrueType)
            GdipAddPathPath(paths.TextPath, text);
        else
            ConvertToSingleStroke(text, paths.TextPath);
        GdipTransformPath(paths.TextPath, &rotation_);
        const Extent before = extentOf(paths.TextPath);
        if (mirror_) GdipTransformPath(paths.TextPath, &*mirror_);
        measure(before, mirror_ ? extentOf(paths.TextPath) : before);
        GdipFlattenPath(paths.TextPath, flatness());
    }

    bool buildCopies(const platform::Clock& clock) {
        CopyTransform transform{rotation_, mirror_, settings_.FontStyle != TrueType, flatness(), 0};
        const PointF last = paths.grid.offset(paths.grid.columns - 1, paths.grid.rows - 1);
        transform.farthest = std::max(std::abs(last.X), std::abs(last.Y));
        CopiedText copies(layout_.run, transform);
        if (!BuildComposedCopies(copyTextsOf(settings_), clock, paths.grid, copies, paths.TextPath)) return false;
        measure(copies.extent(), copies.mirroredExtent());
        return true;
    }

    /// From the text's extents before and after mirroring.
    void measure(const Extent& before, const Extent& after) {
        Extent all = frame_;
        all.include(before, {});
        // Only the bounds path's bounds are ever asked for; the line from corner to corner has them.
        if (!all.empty()) GdipAddPathLine(paths.BoundsPath, all.left, all.top, all.right, all.bottom);
        bounds = includesFrame(settings_.ShowAxes) ? all.rectangle() : after.rectangle();
    }

    const TextSettings& settings_;
    EllipseLayout layout_;
    Matrix rotation_;
    Extent frame_;
    std::optional<Matrix> mirror_;
};

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

/// Static text: the array's extent follows from one copy's, and the preview's from that.
void measureStaticResult(const TextSettings& settings, const RectF& bounds, Regenerated& result) {
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

/// Composed text: the bounds hold every copy, and the preview's extent is not rounded in between.
void measureComposedResult(const TextSettings& settings, const RectF& bounds, Regenerated& result) {
    const float width = bounds.Width / settings.DotsPerUnit;
    const float height = bounds.Height / settings.DotsPerUnit;
    result.resultRight = static_cast<float>(toInternalUnits(width, settings.Measurement));
    result.resultBottom = static_cast<float>(toInternalUnits(height, settings.Measurement));
    result.screenWidth = screenExtent(settings, width);
    result.screenHeight = screenExtent(settings, height);
}

}  // namespace

Regenerated regenerate(const TextSettings& settings, platform::FontService& fonts, const platform::Clock& clock,
                       LayoutFont& font, KeptPaths reused) {
    Regenerated result;
    Pass pass(settings, fonts, font, std::move(reused));
    if (!pass.build(clock)) {
        PathWriter(result.paths.TextPath).fail(OutOfMemory);
        result.refused = true;
        return result;
    }
    BuildFill(hatchInputOf(settings), pass.paths.TextPath, pass.paths.FillPath);
    (settings.composed() ? measureComposedResult : measureStaticResult)(settings, pass.bounds, result);
    for (GraphicsPath* path : {&pass.paths.TextPath, &pass.paths.FillPath}) PathWriter(*path).releaseSpare();
    result.paths = std::move(pass.paths);
    return result;
}

}  // namespace ovaline
