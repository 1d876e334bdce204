#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "../geometry/path_text.h"
#include "control/composed_copies.h"
#include "control/regenerate.h"
#include "plain_copies.h"
#include "platform/memory/clock.h"
#include "platform/memory/fonts.h"

namespace ovaline {
namespace {

using platform::NativeOutlineBuilder;

/// Distance of the cubic p[0..3] from a polyline, at its worst sample.
double distance(const PointF* p, std::span<const PointF> polyline) {
    double worst = 0;
    for (int k = 0; k <= 64; ++k) {
        const double t = k / 64.0, s = 1 - t;
        const double b[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
        double x = 0, y = 0;
        for (int i = 0; i < 4; ++i) {
            x += b[i] * p[i].X;
            y += b[i] * p[i].Y;
        }
        double nearest = std::numeric_limits<double>::infinity();
        for (std::size_t i = 1; i < polyline.size(); ++i) {
            const double ax = polyline[i - 1].X, ay = polyline[i - 1].Y;
            const double dx = polyline[i].X - ax, dy = polyline[i].Y - ay;
            const double length = dx * dx + dy * dy;
            const double u = length > 0 ? std::clamp(((x - ax) * dx + (y - ay) * dy) / length, 0.0, 1.0) : 0;
            nearest = std::min(nearest, std::hypot(x - ax - u * dx, y - ay - u * dy));
        }
        worst = std::max(worst, nearest);
    }
    return worst;
}

/// Every stored point of `plain` stands in `flat`, in order and with its type; between the ends of a curve there are
/// line points within `flatness` of it.
void expectSamePoints(const GraphicsPath& plain, const GraphicsPath& flat, double flatness, const std::string& what) {
    std::size_t at = 0;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const bool curve = (plain.types()[i] & PathPointTypePathTypeMask) == PathPointTypeBezier;
        const std::size_t end = curve ? i + 2 : i;
        const std::size_t first = at;
        while (curve && at < flat.size() && flat.points()[at] != plain.points()[end]) ++at;
        ASSERT_LT(at, flat.size()) << what << ", point " << i;
        ASSERT_EQ(flat.points()[at], plain.points()[end]) << what << ", point " << i;
        ASSERT_EQ(flat.types()[at] & PathPointTypeCloseSubpath, plain.types()[end] & PathPointTypeCloseSubpath);
        if (curve) {
            ASSERT_LE(distance(&plain.points()[i - 1], flat.points().subspan(first - 1, at - first + 2)), flatness)
                << what << ", curve at " << i;
        } else {
            ASSERT_EQ(flat.types()[at], plain.types()[i]) << what << ", point " << i;
        }
        i = end;
        ++at;
    }
    ASSERT_EQ(at, flat.size()) << what;
}

class ComposedCopies : public testing::Test {
protected:
    ComposedCopies() {
        // Digits and letters of different widths, with curves; a pair that is kerned.
        for (char16_t code = u'0'; code <= u'Z'; ++code) {
            const double w = 900 + 37 * (code % 13), h = 2100;
            fonts.setGlyph(code,
                           NativeOutlineBuilder()
                               .begin(50, 0)
                               .line({{50, h}, {w / 2, h + 11}})
                               .qspline({{w, h}, {w, 0}})
                               .begin(200, 300)
                               .qspline({{200.5, 900}, {500, 900.25}, {500, 300}}),
                           static_cast<std::int32_t>(w) + 120);
        }
        fonts.setKerningPairs({{u'1', u'2', -91}, {u'N', u'0', 40}});
        settings.SerialNumEnable = -1;
        settings.SerialNumPrefix = u"SN";
        settings.SerNumSuffix = u"";
        settings.SerNumStart = u"8";
        settings.Width = settings.Height = 20000;
        settings.StartAngle = 133;
        settings.ArrayXDimension = 4;
        settings.ArrayYDimension = 3;
        settings.ArrayXOffset = 31234;
        settings.ArrayYOffset = 29876;
        settings.FillStyle = NoFilling;
    }
    Regenerated build() { return regenerate(settings, fonts, clock, font); }
    PlainCopies plain() {
        LayoutFont own;
        return plainCopies(settings, fonts, clock, own);
    }
    void expectPlain(const std::string& what) {
        const Regenerated fast = build();
        const PlainCopies reference = plain();
        expectSamePoints(reference.text, fast.paths.TextPath, unitsOf(settings).dots(settings.Flatness), what);
        const RectF frame = frameExtent(fast.paths).rectangle();
        EXPECT_EQ(frame, boundsOf(reference.frame)) << what;
        const bool withFrame = settings.ShowAxes == FullAxes;
        const RectF bounds = boundsOf(withFrame ? reference.bounds : reference.text);
        // A curve's extremum is rounded where its copy stands; the result's micrometre is a dot and a half.
        EXPECT_NEAR(fast.resultRight, bounds.Width / 0.6253, 1.1) << what;
        EXPECT_NEAR(fast.resultBottom, bounds.Height / 0.6253, 1.1) << what;
    }

    platform::MemoryFontService fonts;
    platform::MemoryClock clock{{{2026, 11, 17, 19, 33, 24}}};
    LayoutFont font;
    TextSettings settings = startUpSettings(96);
};

TEST_F(ComposedCopies, EqualThoseLaidOutOneByOne) {
    expectPlain("plain array");
    settings.Angle = 37;
    settings.SerialDirection = Down;
    settings.SerNumIncrement = 7;
    expectPlain("turned, downwards");
    settings.MirrorHorizontal = -1;
    settings.TextDirection = CounterClockwise;
    settings.MirrorVertical = -1;
    settings.ShowAxes = PartialAxes;
    settings.ArrayXOffset = -31234;
    expectPlain("mirrored both ways, towards the left, text bounds");
    settings.Flatness = 1;
    settings.SerialNumberType = Alphanumeric;
    settings.SerNumStart = u"AZ9";
    settings.FontStyle = SingleStroke;
    expectPlain("alphanumeric, fine, single strokes on whole dots");
    settings.MirrorHorizontal = settings.MirrorVertical = 0;
    settings.ArrayXDimension = 1;
    settings.ArrayYDimension = 1;
    settings.SerialNumPrefix = u"NNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNN";
    expectPlain("one copy, cut");
    settings.FontStyle = TrueType;
    settings.ArrayXDimension = 2;
    settings.ArrayYDimension = 2;
    settings.SerialDirection = 7;  // as across
    expectPlain("cut, areas");
}

TEST_F(ComposedCopies, EachCopyReadsTheClockAndTheTextsFollowTheirRules) {
    settings.AutoDateEnable = -1;
    settings.SerialNumEnable = 0;
    settings.AutoDateFormat = Custom;
    settings.CustomAutoText = u"%S";
    settings.ArrayXDimension = 2;
    settings.ArrayYDimension = 1;
    const auto glyphs = [&] {
        font = LayoutFont();
        fonts.resetCalls();
        build();
        return fonts.calls().glyphOutline;
    };
    clock.set({{2026, 11, 17, 19, 33, 24}, {2026, 11, 17, 19, 33, 56}});
    EXPECT_EQ(glyphs(), 4) << "24 and 56";
    settings.AutoDatePosition = 262;
    const Regenerated empty = build();
    EXPECT_TRUE(empty.paths.TextPath.empty());
    EXPECT_FALSE(empty.paths.FramePath.empty()) << "a copy without text has its frame";
    EXPECT_GT(empty.resultRight, 31234);
    settings.AutoDatePosition = BeforePrefix;
    settings.SerialNumEnable = -1;
    settings.SerNumIncrement = 0;
    settings.AutoDateEnable = 0;
    expectPlain("no increment");
}

// What has no room in memory is refused whole, and at once.
TEST_F(ComposedCopies, TooManyPointsLeaveThePathsEmpty) {
    if (sizeof(void*) == 4) GTEST_SKIP() << "a 32-bit process has no memory for as many points as are allowed";
    settings.ArrayXDimension = settings.ArrayYDimension = 255;
    settings.Flatness = 1;
    settings.Width = settings.Height = 2e6f;
    settings.SerialNumPrefix = std::u16string(120, u'N');
    const Regenerated refused = build();
    EXPECT_TRUE(refused.refused);
    EXPECT_TRUE(refused.paths.TextPath.empty() && refused.paths.FramePath.empty() && refused.paths.FillPath.empty());
    EXPECT_EQ(refused.paths.TextPath.status(), OutOfMemory);
    EXPECT_EQ(refused.resultRight, 0);
}

TEST_F(ComposedCopies, AnyOffsetEnds) {
    settings.Flatness = 1;
    settings.Width = settings.Height = 2e6f;
    settings.SerialNumPrefix = u"";
    settings.ArrayXOffset = std::numeric_limits<float>::max();
    settings.ArrayYOffset = -3e38f;
    settings.ArrayXDimension = settings.ArrayYDimension = 20;
    EXPECT_GT(build().paths.TextPath.size(), 400u);
}

}  // namespace
}  // namespace ovaline
