// Composed copies built plainly: each laid out in full, by itself. The fast way must give the same points.
#pragma once

#include "control/settings_slices.h"
#include "geometry/ellipse_layout.h"
#include "platform/clock.h"
#include "text/autodate.h"
#include "text/marking_text.h"
#include "text/serial_number.h"

namespace ovaline {

struct PlainCopies {
    GraphicsPath text;    ///< mirrored, not yet flattened
    GraphicsPath frame;   ///< of all copies
    GraphicsPath bounds;  ///< the text before mirroring, then the frames
};

inline PlainCopies plainCopies(const TextSettings& s, platform::FontService& fonts, const platform::Clock& clock,
                               LayoutFont& font) {
    PlainCopies result;
    const RectF box = layoutBoxOf(s);
    const Units units = unitsOf(s);
    const float ox = units.pitchDots(s.ArrayXOffset), oy = units.pitchDots(s.ArrayYOffset);
    const std::u16string pattern = ResolveAutoDatePattern(s.AutoDateFormat, s.CustomAutoText);
    std::u16string serial = s.SerNumStart;
    const bool down = s.SerialDirection == Down;
    const int outer = down ? s.ArrayXDimension : s.ArrayYDimension,
              inner = down ? s.ArrayYDimension : s.ArrayXDimension;
    for (int a = 0; a < outer; ++a) {
        for (int b = 0; b < inner; ++b) {
            const int i = down ? a : b, j = down ? b : a;
            const std::u16string text = ComposeMarkingText(
                s.SerialNumPrefix, serial, s.SerNumSuffix, s.SerNumDecimalPlaces, pattern, s.AutoDatePosition,
                s.SerialNumberType, s.SerialNumEnable != 0, s.AutoDateEnable != 0, s.AutoDateOffset, clock);
            LayoutInput input = layoutInputOf(s);
            input.text = text;
            LayoutPaths copy = LayoutTextOnEllipse(input, fonts, font);
            Matrix rotation;
            GdipTranslateMatrix(rotation, box.Width / 2, box.Height / 2);
            GdipRotateMatrix(rotation, -s.Angle);
            GdipTranslateMatrix(rotation, -(box.Width / 2), -(box.Height / 2));
            Matrix move;
            GdipTranslateMatrix(move, static_cast<float>(i) * ox, static_cast<float>(j) * oy);
            for (GraphicsPath* path : {&copy.text, &copy.frame}) {
                GdipTransformPath(*path, &rotation);
                GdipTransformPath(*path, &move);
            }
            if (s.FontStyle == TrueType)
                GdipAddPathPath(result.text, copy.text);
            else
                ConvertToSingleStroke(copy.text, result.text);
            GdipAddPathPath(result.frame, copy.frame);
            for (int step = 0; step < s.SerNumIncrement; ++step)
                serial = StepSerialNumber(serial, s.SerialNumberType, s.SerNumDecimalPlaces);
        }
    }
    GdipAddPathPath(result.bounds, result.text);
    GdipAddPathPath(result.bounds, result.frame);
    RectF f;
    GdipGetPathWorldBounds(result.frame, f);
    const float mh = static_cast<float>(s.MirrorHorizontal), mv = static_cast<float>(s.MirrorVertical);
    Matrix mirror;
    GdipScaleMatrix(mirror, mh != 0 ? -1.0f : 1.0f, mv != 0 ? -1.0f : 1.0f);
    GdipTranslateMatrix(mirror, mh * (2 * f.X + f.Width), mv * (2 * f.Y + f.Height));
    GdipTransformPath(result.text, &mirror);
    return result;
}

}  // namespace ovaline
