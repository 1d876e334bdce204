// The steps of a preview, in their order, on a canvas that writes them down.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "platform/memory/drawing.h"
#include "render/preview.h"
#include "tests/geometry/path_text.h"

namespace ovaline {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using Log = std::vector<std::string>;

/// A square letter of 10 dots with one hatch line, in a frame of 40 × 30, drawn at (100, 50) with 2 pixels a dot.
class PreviewTest : public ::testing::Test {
protected:
    PreviewTest() {
        job.style.frameColour = 0x00BEBEBE;
        job.style.guideColour = 0x007878FF;
        job.style.fillStyle = Line;
        job.style.outlineType = Dash;
        job.style.outlined = true;
        job.style.fillLineWidth = 1.5f;
        job.style.outlineWidth = 3;
        job.pixelsPerDot = 2;
        job.left = 100;
        job.top = 50;
    }
    void onlySolidText() {
        job.style.fillStyle = Solid;
        job.style.outlined = false;
    }

    Log draw() const {
        platform::RecordingCanvas canvas(96, {0, 0, 1000, 1000});
        drawPreview(job, canvas);
        return canvas.log;
    }

    GraphicsPath text = pathFrom("M10,10 L20,10 L20,20 L10,20 Z");
    GraphicsPath fill = pathFrom("M5,15 L25,15");
    GraphicsPath frame = pathFrom("M0,0 L40,0 L40,30");
    GraphicsPath guide = pathFrom("M2,2 L38,28");
    PreviewJob job{text, fill, frame, guide};
};

const std::string kText = "M120,70 L140,70 L140,90 L120,90 Z";       // aligned on the frame
const std::string kTextAlone = "M100,50 L120,50 L120,70 L100,70 Z";  // aligned on itself

TEST_F(PreviewTest, FullAxesAndHatch) {
    const auto steps =
        ElementsAre("smooth", "clip box 100,50 80x60", "stroke ffbebebe 1 dash M100,50 L180,50 L180,110",
                    "stroke ffff7878 2 dot M104,54 L176,106", "fill ffbebebe ellipse 173,103 6x6", "clip path " + kText,
                    "stroke ff000000 3 solid M110,80 L150,80", "unclip", "stroke ff000000 6 dash " + kText);
    EXPECT_THAT(draw(), steps);
    job.style.fillStyle = Solid;
    job.style.fontStyle = SingleStroke;
    EXPECT_THAT(draw(), steps) << "a single-stroke font is hatched, never filled";
}

TEST_F(PreviewTest, AxesDecideOnWhatIsDrawnAndAlignedOn) {
    onlySolidText();
    job.style.showAxes = PartialAxes;
    EXPECT_THAT(draw(), ElementsAre("smooth", "clip box 100,50 20x20", "stroke ffbebebe 1 dash M80,30 L160,30 L160,90",
                                    "stroke ffff7878 2 dot M84,34 L156,86", "fill ffbebebe ellipse 153,83 6x6",
                                    "fill ff000000 " + kTextAlone));
    job.style.showAxes = NoAxesFull;
    EXPECT_THAT(draw(), ElementsAre("smooth", "clip box 100,50 80x60", "fill ff000000 " + kText));
    for (const std::int32_t alone : {std::int32_t{NoAxesPartial}, 4, -1}) {
        job.style.showAxes = alone;
        EXPECT_THAT(draw(), ElementsAre("smooth", "clip box 100,50 20x20", "fill ff000000 " + kTextAlone)) << alone;
    }
}

TEST_F(PreviewTest, OutlineTypesAndInk) {
    const std::pair<std::int32_t, const char*> cases[] = {
        {NoOutline, "1 solid"}, {SolidLine, "6 solid"},       {Dash, "6 dash"}, {Dots, "6 dot"},
        {DashDot, "6 dashdot"}, {DashDotDot, "6 dashdotdot"}, {6, "6 solid"},   {-1, "6 solid"},
    };
    for (const auto& [type, pen] : cases) {
        job.style.outlineType = type;
        EXPECT_EQ(draw().back(), std::string("stroke ff000000 ") + pen + " " + kText) << type;
    }
    job.style.lightInk = true;
    EXPECT_THAT(draw(),
                IsSupersetOf(Log{"stroke ffffffff 3 solid M110,80 L150,80", "stroke ffffffff 6 solid " + kText}));
}

TEST_F(PreviewTest, Inverted) {
    job.style.invert = true;
    job.style.showAxes = NoAxesPartial;
    job.style.outlined = false;
    EXPECT_THAT(draw(), ElementsAre("smooth", "clip path " + kTextAlone, "clip box 100,50 20x20 outside " + kTextAlone,
                                    "stroke ff000000 3 solid M90,60 L130,60", "clip box 100,50 20x20",
                                    "stroke ffffffff 1 solid " + kTextAlone));
    job.style.fillStyle = Solid;
    job.style.showAxes = NoAxesFull;
    job.style.outlined = true;
    EXPECT_THAT(draw(), ElementsAre("smooth", "clip path M100,50 L180,50 L180,110 L100,110 Z",
                                    "fill ff000000 box 100,50 80x60 outside " + kText, "unclip",
                                    "stroke ff000000 6 dash " + kText, "clip box 100,50 80x60",
                                    "stroke ffffffff 1 solid " + kText));
}

TEST_F(PreviewTest, CopiesOfAStaticTextGoRowByRow) {
    onlySolidText();
    job.array = {2, 2, 50, -100};
    // The picture is as large as all copies, and the second row is above the first.
    EXPECT_THAT(
        draw(),
        ElementsAre("smooth", "clip box 100,50 180x260",
                    "stroke ffbebebe 1 dash M100,250 L180,250 L180,310 M200,250 L280,250 L280,310 "
                    "M100,50 L180,50 L180,110 M200,50 L280,50 L280,110",
                    "stroke ffff7878 2 dot M104,254 L176,306 M204,254 L276,306 M104,54 L176,106 M204,54 L276,106",
                    "fill ffbebebe ellipse 273,103 6x6",
                    "fill ff000000 M120,270 L140,270 L140,290 L120,290 Z M220,270 L240,270 L240,290 L220,290 Z "
                    "M120,70 L140,70 L140,90 L120,90 Z M220,70 L240,70 L240,90 L220,90 Z"));
}

TEST_F(PreviewTest, ComposedTextHoldsItsCopiesAndEachHasAFrame) {
    onlySolidText();
    text = pathFrom("M10,10 L20,10 L20,20 L10,20 Z M60,10 L70,10 L70,20 L60,20 Z");
    job.kept = job.array = {2, 1, 50, 0};
    job.composed = true;
    EXPECT_THAT(
        draw(),
        ElementsAre("smooth", "clip box 100,50 180x60",
                    "stroke ffbebebe 1 dash M100,50 L180,50 L180,110 M200,50 L280,50 L280,110",
                    "stroke ffff7878 2 dot M104,54 L176,106 M204,54 L276,106", "fill ffbebebe ellipse 273,103 6x6",
                    "fill ff000000 M120,70 L140,70 L140,90 L120,90 Z M220,70 L240,70 L240,90 L220,90 Z"));
    // The box around all copies is repeated all the same.
    job.style.invert = true;
    EXPECT_EQ(draw()[1], "clip path M100,50 L280,50 L280,110 L100,110 Z M200,50 L380,50 L380,110 L200,110 Z");
    job.boxesOverlap = true;
    EXPECT_EQ(draw()[1], "clip also M100,50 L280,50 L280,110 L100,110 Z M200,50 L380,50 L380,110 L200,110 Z");
}

TEST_F(PreviewTest, WhatIsKeptIsRepeatedWholeWhereTheSettingsTurnedStatic) {
    job.kept = {2, 2, 50, 40};
    job.array = {1, 2, 0, 100};
    EXPECT_THAT(draw(), IsSupersetOf(Log{"clip box 100,50 180x340", "fill ffbebebe ellipse 273,383 6x6"}));
}

// What lies beside the picture, which ends at 1000, by no more than the reach of its lines' corners is drawn.
TEST_F(PreviewTest, LinesReachIntoThePicture) {
    job.style.outlineWidth = 1;
    for (const auto& [x, seen] : {std::pair{1011.0f, true}, {1012.0f, false}}) {
        job.left = x - 20;
        EXPECT_EQ(draw().back().ends_with(" Z"), seen) << x;
    }
}

TEST_F(PreviewTest, NothingIsDrawnOfNothingNorAtScalesThatAreNone) {
    for (const float scale : {0.0f, std::numeric_limits<float>::quiet_NaN(), 1e38f, -2.0f}) {
        job.pixelsPerDot = scale;
        EXPECT_EQ(draw().size(), 9u) << scale;
    }
    job.pixelsPerDot = 2;
    text = fill = frame = guide = GraphicsPath();
    EXPECT_THAT(draw(),
                ElementsAre("smooth", "clip box 100,50 0x0", "stroke ffbebebe 1 dash ", "stroke ffff7878 2 dot ",
                            "clip path ", "stroke ff000000 3 solid ", "unclip", "stroke ff000000 6 dash "));
}

}  // namespace
}  // namespace ovaline
