#include "render/preview.h"

#include <cmath>

#include "output/outline_dash.h"

namespace ovaline {

namespace {

using platform::Argb;
using platform::DashStyle;
using platform::DrawingBox;
using platform::DrawingPath;
using platform::Pen;

constexpr float kThinLine = 1;
constexpr float kFrameLine = 1;
constexpr float kGuideLine = 2;
constexpr float kEndMarker = 6;  // diameter

/// One drawing of a preview, step by step in the order in which things lie over each other.
class Preview {
public:
    Preview(const PreviewJob& job, platform::Canvas& canvas)
        : job_(job),
          style_(job.style),
          canvas_(canvas),
          ink_(style_.lightInk ? platform::kOpaqueWhite : platform::kOpaqueBlack),
          textCopies_(job.composed ? CopyGrid() : job.array),
          frameCopies_(job.composed ? job.kept : job.array) {
        // What the picture is aligned on comes to lie on the rectangle's corner.
        const RectF bounds = toPixels_.mapExtent(aligned(textCopies_, frameCopies_)).rectangle();
        box_ = {job.left, job.top, bounds.Width, bounds.Height};
        toPixels_.move = {job.left - bounds.X, job.top - bounds.Y};
        const DrawingBox visible = canvas.visible();
        seen_.include({visible.X, visible.Y});
        seen_.include({visible.X + visible.Width, visible.Y + visible.Height});
    }

    void draw() {
        canvas_.setSmoothing(true);
        setFirstClip();
        if (style_.showAxes == FullAxes || style_.showAxes == PartialAxes) drawAxes();
        const DrawnPath text(job_.text, textCopies_, toPixels_, around(outlinePen().width));
        drawFill(text);
        if (style_.outlined) {
            canvas_.resetClip();
            canvas_.stroke(text, outlinePen());
        }
        if (style_.invert) {
            canvas_.setClip(box_);
            canvas_.stroke(text, {platform::kOpaqueWhite, kThinLine, DashStyle::Solid});
        }
    }

private:
    bool alignsOnFrame() const { return includesFrame(style_.showAxes); }

    /// Extent of what the picture is aligned on, in dots.
    Extent aligned(const CopyGrid& texts, const CopyGrid& frames) const {
        return alignsOnFrame() ? extentOf(extentOf(job_.frame), frames) : extentOf(extentOf(job_.text), texts);
    }

    /// What is seen of lines of that width, their mitred corners included.
    Extent around(float width) const {
        constexpr float kReach = 5;  // of a corner, in widths
        const float reach = std::isfinite(width) ? std::abs(width) * kReach + kThinLine : kThinLine;
        return {seen_.left - reach, seen_.top - reach, seen_.right + reach, seen_.bottom + reach};
    }

    Pen outlinePen() const {
        const float width = style_.outlineType == NoOutline ? kThinLine : style_.outlineWidth * job_.pixelsPerDot;
        return {ink_, width, dashOf(style_.outlineType)};
    }

    /// The boxes of an inverted text, or the whole picture.
    void setFirstClip() {
        if (!style_.invert) return canvas_.setClip(box_);
        GraphicsPath box;
        const RectF one = aligned(CopyGrid(), job_.kept).rectangle();
        GdipAddPathRectangle(box, one.X, one.Y, one.Width, one.Height);
        const DrawnPath boxes(box, job_.array, toPixels_, seen_);
        if (job_.boxesOverlap)
            canvas_.addToClip(boxes);
        else
            canvas_.setClip(boxes);
    }

    void drawAxes() {
        const Argb frameColour = platform::argbOf(style_.frameColour);
        const Argb guideColour = platform::argbOf(style_.guideColour);
        canvas_.stroke(DrawnPath(job_.frame, frameCopies_, toPixels_, around(kFrameLine)),
                       {frameColour, kFrameLine, DashStyle::Dash});
        canvas_.stroke(DrawnPath(job_.guide, frameCopies_, toPixels_, around(kGuideLine)),
                       {guideColour, kGuideLine, DashStyle::Dot});
        PointF end;
        if (GdipGetPathLastPoint(job_.guide, end) != Ok) return;
        const PointF last = frameCopies_.last();
        const PointF at = toPixels_.map({end.X + last.X, end.Y + last.Y});
        canvas_.fillEllipse({at.X - kEndMarker / 2, at.Y - kEndMarker / 2, kEndMarker, kEndMarker}, frameColour);
    }

    void drawFill(const DrawingPath& text) {
        if (style_.fontStyle == TrueType && style_.fillStyle == Solid) {
            if (style_.invert)
                canvas_.fillOutside(box_, text, ink_);
            else
                canvas_.fill(text, ink_);
            return;
        }
        if (style_.invert)
            canvas_.setClipOutside(box_, text);
        else
            canvas_.setClip(text);
        const Pen pen = {ink_, style_.fillLineWidth * job_.pixelsPerDot, DashStyle::Solid};
        canvas_.stroke(DrawnPath(job_.fill, textCopies_, toPixels_, around(pen.width)), pen);
    }

    const PreviewJob& job_;
    const PreviewStyle& style_;
    platform::Canvas& canvas_;
    Argb ink_;
    CopyGrid textCopies_;   ///< of text and fill
    CopyGrid frameCopies_;  ///< of frame and guide
    ToPixels toPixels_{job_.pixelsPerDot, {}};
    DrawingBox box_;  ///< what the picture is aligned on, in pixels
    Extent seen_;     ///< of the canvas, in pixels
};

/// The copies of a path as figures of one path.
GraphicsPath copiesOf(const GraphicsPath& path, const CopyGrid& grid) {
    GraphicsPath all;
    for (std::int32_t row = 0; row < grid.rows; ++row) {
        for (std::int32_t column = 0; column < grid.columns; ++column) {
            const PointF offset = grid.offset(column, row);
            Matrix move;
            GdipTranslateMatrix(move, offset.X, offset.Y);
            GraphicsPath copy = path;
            GdipTransformPath(copy, &move);
            GdipAddPathPath(all, copy);
        }
    }
    return all;
}

}  // namespace

void drawPreview(const PreviewJob& job, platform::Canvas& canvas) {
    const bool severalFrames = job.kept.columns > 1 || job.kept.rows > 1;
    if (job.composed || !severalFrames) return Preview(job, canvas).draw();
    // The settings became those of a static text after the copies had been composed, and nothing was built since: the
    // array repeats what is kept, all copies of it.
    const GraphicsPath frame = copiesOf(job.frame, job.kept);
    const GraphicsPath guide = copiesOf(job.guide, job.kept);
    const PreviewJob repeated{job.text,   job.fill,         frame,        guide,
                              CopyGrid(), job.array,        job.composed, job.boxesOverlap,
                              job.style,  job.pixelsPerDot, job.left,     job.top};
    Preview(repeated, canvas).draw();
}

}  // namespace ovaline
