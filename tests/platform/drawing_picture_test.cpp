// Pictures: what their files say of themselves.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "platform/drawing.h"

namespace ovaline::platform {
namespace {

std::string drawn(PictureKind kind, float pixelsPerInch, std::optional<Argb> ground) {
    const auto picture = makePicture(kind, 30, 20, pixelsPerInch, ground);
    const auto canvas = makeCanvas(picture->dc());
    EXPECT_EQ(canvas->pixelsPerInch(), pixelsPerInch);
    EXPECT_EQ(canvas->visible(), (DrawingBox{0, 0, 30, 20}));
    canvas->fillEllipse({5, 5, 10, 10}, 0xFF112233);
    return picture->finish();
}

TEST(DrawingPicture, Png) {
    const std::string file = drawn(PictureKind::Png, 96, kOpaqueWhite);
    EXPECT_EQ(file.substr(0, 8), "\x89PNG\r\n\x1A\n");
    EXPECT_EQ(file.substr(16, 8), std::string("\0\0\0\x1E\0\0\0\x14", 8));
    EXPECT_NE(file, drawn(PictureKind::Png, 96, std::nullopt));
    EXPECT_NE(file, drawn(PictureKind::Png, 96, kOpaqueBlack));
    EXPECT_EQ(file, drawn(PictureKind::Png, 300, kOpaqueWhite));
}

TEST(DrawingPicture, LinesAndAreasWhereTheyAreOffered) {
    if (!offersPictures(PictureKind::Svg)) GTEST_SKIP() << "this engine makes none";
    const std::string svg = drawn(PictureKind::Svg, 300, kOpaqueWhite);
    EXPECT_NE(svg.find("width=\"30px\" height=\"20px\" viewBox=\"0 0 30 20\""), std::string::npos) << svg;
    EXPECT_NE(svg.find("</svg>"), std::string::npos);
    const std::string pdf = drawn(PictureKind::Pdf, 144, kOpaqueWhite);
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 15 10 ]"), std::string::npos) << "as large as its resolution says";
}

TEST(DrawingPicture, WhatIsNoPicture) {
    for (const PictureKind kind : {PictureKind::Png, PictureKind::Svg, PictureKind::Pdf}) {
        EXPECT_EQ(makePicture(kind, 0, 10, 96, {}), nullptr);
        EXPECT_EQ(makePicture(kind, 10, -1, 96, {}), nullptr);
        EXPECT_EQ(makePicture(kind, 10, kMostPixelsAcross + 1, 96, {}), nullptr);
        for (const float wrong : {0.0f, -96.0f, NAN}) EXPECT_EQ(makePicture(kind, 10, 10, wrong, {}), nullptr);
    }
}

}  // namespace
}  // namespace ovaline::platform
