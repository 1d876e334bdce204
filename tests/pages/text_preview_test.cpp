#include "pages/text_preview.h"

#include <gmock/gmock.h>

#include <limits>
#include <sstream>

#include "platform/memory/drawing.h"
#include "tests/control/control_fixture.h"

namespace ovaline {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

constexpr RECT kArea{10, 20, 210, 140};
constexpr const char* kWhite = "fill ffffffff M10,20 L210,20 L210,140 L10,140 Z";

/// Extent of a path in the letters of SVG, which follow the other words of a line.
Extent extentOfLine(const std::string& line) {
    Extent extent;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        PointF p;
        char kind = 0, comma = 0;
        if (std::istringstream(word) >> kind >> p.X >> comma >> p.Y && comma == ',') extent.include(p);
    }
    return extent;
}

class TextPreviewTest : public ControlTest {
protected:
    TextPreviewTest() {
        control->SetUpdateFlag(0);
        control->put_Width(20);
        control->put_Height(12);
        control->put_TextData(Text(u"AB"));
    }

    TextPageSettings read() { return readTextPageSettings(*control.get()).value(); }
    std::vector<std::string> draw(const TextPageSettings& from) {
        platform::RecordingCanvas canvas(96, {0, 0, 400, 300});
        preview.draw(from, fonts, canvas, kArea);
        return canvas.log;
    }

    TextPreview preview;
};

TEST_F(TextPreviewTest, ShowsWhatTheControlKeepsAtItsRealSizeInTheMiddle) {
    const auto expectNear = [](const Extent& is, const Extent& wanted, float x, float y) {
        constexpr float kPixels = 0.02f;  // the third decimal of a font height in points
        EXPECT_NEAR(is.left, wanted.left + x, kPixels);
        EXPECT_NEAR(is.top, wanted.top + y, kPixels);
        EXPECT_NEAR(is.right, wanted.right + x, kPixels);
        EXPECT_NEAR(is.bottom, wanted.bottom + y, kPixels);
    };
    for (const auto& [measurement, points] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        control->SetMeasurement(measurement);
        control->DisplayInPoint(points);
        control->SetDotsPerUnit(measurement != 0 ? 15882.62f : 625.3f);
        control->put_Angle(20);
        control->put_StartAngle(100);
        control->put_CharSpace(measurement != 0 ? 0.02f : 0.5f);
        control->put_TextDirection(CounterClockwise);
        for (const auto axes : {FullAxes, PartialAxes}) {
            control->put_ShowAxes(axes);
            control->SetUpdateFlag(1);
            const auto inPixels = [&](const GraphicsPath& path) {
                const float scale = settings().UnitFactor / settings().DotsPerUnit;
                const Extent dots = extentOf(path);
                return Extent{dots.left * scale, dots.top * scale, dots.right * scale, dots.bottom * scale};
            };
            const auto log = draw(read());
            ASSERT_EQ(log.size(), 8u);
            const Extent frame = inPixels(paths().FramePath), text = inPixels(paths().TextPath);
            const Extent& aligned = axes == FullAxes ? frame : text;
            const float x = 110 - (aligned.left + aligned.right) / 2, y = 80 - (aligned.top + aligned.bottom) / 2;
            expectNear(extentOfLine(log[3]), frame, x, y);
            expectNear(extentOfLine(log[4]), inPixels(paths().GuidePath), x, y);
            expectNear(extentOfLine(log[7]), text, x, y);
            control->SetUpdateFlag(0);
        }
    }
}

TEST_F(TextPreviewTest, DrawsInOrderByAxesAndFill) {
    auto from = read();
    for (int i = 0; i < 4 * 5 * 2; ++i) {
        const std::int32_t axes = i % 4, fill = i / 4 % 5, style = i / 20;
        from.setField(record_offset::ShowAxes, axes);
        from.setField(record_offset::FillStyle, fill);
        from.fontStyle = style;
        std::vector<std::string> starts = {kWhite, "smooth", "clip box "};
        if (axes == FullAxes || axes == PartialAxes)
            starts.insert(starts.end(),
                          {"stroke ffbebebe 1 dash ", "stroke ffff7878 2 dot ", "fill ffbebebe ellipse "});
        if (style == TrueType && fill >= Solid && fill <= Cross) starts.push_back("fill ff000000 M");
        starts.push_back("stroke ff000000 1 solid M");
        const auto log = draw(from);
        ASSERT_EQ(log.size(), starts.size()) << axes << ' ' << fill << ' ' << style;
        for (std::size_t k = 0; k < log.size(); ++k) EXPECT_THAT(log[k], StartsWith(starts[k]));
        EXPECT_EQ(log.back().find('Z') != std::string::npos, style == TrueType) << "single strokes are open";
    }
}

TEST_F(TextPreviewTest, StaysInItsAreaAndKeepsItsFont) {
    auto from = read();
    from.setField(record_offset::Width, 500.0f);
    EXPECT_THAT(draw(from)[2], StartsWith("clip box 10,"));
    fonts.resetCalls();
    from.text = u"BA";
    draw(from);
    EXPECT_EQ(fonts.calls().createFont + fonts.calls().glyphOutline, 0);
}

TEST_F(TextPreviewTest, NothingButWhiteOfWhatHasNoSize) {
    using namespace record_offset;
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinity = std::numeric_limits<float>::infinity();
    const auto drawWith = [&](std::size_t field, float value) {
        auto from = read();
        from.setField(field, value);
        return draw(from);
    };
    for (const std::size_t field : {UnitFactor, DotsPerUnit, Width, Height})
        for (const float value : {0.0f, -1.0f, kNan, kInfinity})
            EXPECT_THAT(drawWith(field, value), ElementsAre(kWhite)) << field << ' ' << value;
    EXPECT_THAT(draw({}), ElementsAre(kWhite));
    // These end, whatever they show.
    for (const std::size_t field : {Width, DotsPerUnit, UnitFactor, Angle, StartAngle, CharSpace})
        for (const float value : {kNan, kInfinity, 1e38f, 1e-38f, -1e38f})
            EXPECT_EQ(drawWith(field, value).front(), kWhite);
}

}  // namespace
}  // namespace ovaline
