// What the drawing service has where it does not stand on GDI+: edges within pixels, and pictures of lines and areas.
#include <gtest/gtest.h>

#include "tests/platform/drawing_engine.h"

namespace ovaline::platform {
namespace {

std::string drawn(PictureKind kind, float pixelsPerInch) {
    const auto picture = makePicture(kind, 30, 20, pixelsPerInch, kOpaqueWhite);
    const auto canvas = makeCanvas(picture->dc());
    EXPECT_EQ(canvas->pixelsPerInch(), pixelsPerInch);
    EXPECT_EQ(canvas->visible(), (DrawingBox{0, 0, 30, 20}));
    canvas->fillEllipse({5, 5, 10, 10}, 0xFF112233);
    return picture->finish();
}

TEST(DrawingEngine, PlacesEdgesWithinPixels) {
    EXPECT_TRUE(drawsWithinPixels());
}

TEST(DrawingVectorPicture, SvgCountsInPixels) {
    const std::string file = drawn(PictureKind::Svg, 300);
    EXPECT_NE(file.find("width=\"30px\" height=\"20px\" viewBox=\"0 0 30 20\""), std::string::npos) << file;
    EXPECT_NE(file.find("</svg>"), std::string::npos);
}

TEST(DrawingVectorPicture, PdfIsAsLargeAsItsResolutionSays) {
    const std::string file = drawn(PictureKind::Pdf, 144);
    EXPECT_EQ(file.substr(0, 5), "%PDF-");
    EXPECT_NE(file.find("/MediaBox [ 0 0 15 10 ]"), std::string::npos);
}

}  // namespace
}  // namespace ovaline::platform
