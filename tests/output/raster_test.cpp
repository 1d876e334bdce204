#include "output/raster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace ovaline {
namespace {

using Polygon = std::vector<PointF>;

GraphicsPath pathOf(const std::vector<Polygon>& polygons) {
    GraphicsPath path;
    for (const Polygon& polygon : polygons) {
        for (std::size_t i = 1; i < polygon.size(); ++i)
            GdipAddPathLine(path, polygon[i - 1].X, polygon[i - 1].Y, polygon[i].X, polygon[i].Y);
        GdipClosePathFigure(path);
    }
    return path;
}

Polygon rectangle(float left, float top, float right, float bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

/// The picture as text, a line a row from the top, '#' where it is dark.
bool isDark(const Raster& raster, std::int32_t x, std::int32_t y) {
    const auto row = static_cast<std::size_t>(raster.rows - 1 - y) * raster.bytesPerRow();
    return (std::to_integer<int>(raster.bits[row + static_cast<std::size_t>(x) / 8]) & (0x80 >> x % 8)) != 0;
}
std::string picture(const Raster& raster) {
    std::string text;
    for (std::int32_t y = 0; y < raster.rows; ++y) {
        for (std::int32_t x = 0; x < raster.columns; ++x) text += isDark(raster, x, y) ? '#' : '.';
        text += '\n';
    }
    return text;
}

/// Even-odd rule, and the distance to the nearest edge, at a point.
struct Place {
    bool inside = false;
    double distance = std::numeric_limits<double>::infinity();
};
Place placeOf(const std::vector<Polygon>& polygons, double x, double y) {
    Place place;
    for (const Polygon& polygon : polygons) {
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const PointF a = polygon[i], b = polygon[(i + 1) % polygon.size()];
            const double ax = a.X, ay = a.Y, dx = b.X - ax, dy = b.Y - ay;
            if ((ay > y) != (b.Y > y) && x < ax + (y - ay) / dy * dx) place.inside = !place.inside;
            const double along = std::clamp(((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
            place.distance = std::min(place.distance, std::hypot(ax + along * dx - x, ay + along * dy - y));
        }
    }
    return place;
}

/// Farther than half a pixel's diagonal from its centre, no edge passes through a pixel.
constexpr double kThroughPixel = 0.75;

class RasterTest : public testing::Test {
protected:
    /// A job for solid text without outline, a pixel a dot.
    static RasterJob solid(const GraphicsPath& text) {
        static const GraphicsPath kNoFill;
        RasterJob job{text, kNoFill, {}};
        job.scale = 1;
        job.showAxes = NoAxesPartial;
        job.outlineType = NoOutline;
        job.fillStyle = Solid;
        return job;
    }
    static Raster render(const RasterJob& job) {
        Raster raster;
        EXPECT_EQ(renderRaster(job, raster), Ok);
        return raster;
    }
    /// Random triangles, with corners that the picture's bounds are made of.
    static std::vector<Polygon> randomPolygons(std::uint32_t seed, float width, float height) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> x(0, width), y(0, height);
        std::vector<Polygon> polygons = {rectangle(0, 0, width / 50, height / 50),
                                         rectangle(width * 0.98f, height * 0.98f, width, height)};
        for (int i = 0; i < 12; ++i)
            polygons.push_back({{x(random), y(random)}, {x(random), y(random)}, {x(random), y(random)}});
        return polygons;
    }
    /// Compares with the even-odd rule every pixel, in steps, that no edge passes through.
    static void compare(const Raster& raster, const std::vector<Polygon>& polygons, bool inverted, int step = 1) {
        std::size_t wrong = 0, compared = 0, dark = 0;
        for (std::int32_t y = 0; y < raster.rows; y += step) {
            for (std::int32_t x = 0; x < raster.columns; x += step) {
                const Place place = placeOf(polygons, x + 0.5, y + 0.5);
                if (place.distance < kThroughPixel) continue;
                ++compared;
                dark += isDark(raster, x, y);
                wrong += isDark(raster, x, y) != (place.inside != inverted);
            }
        }
        EXPECT_EQ(wrong, 0u) << "of " << compared;
        EXPECT_GT(compared,
                  static_cast<std::size_t>(raster.columns / step) * static_cast<std::size_t>(raster.rows / step) / 2);
        EXPECT_GT(dark, compared / 10);
        EXPECT_LT(dark, compared * 9 / 10);
    }
};

TEST_F(RasterTest, SizesAndBytes) {
    const GraphicsPath text = pathOf({rectangle(0, 0, 9, 2)});
    const Raster raster = render(solid(text));
    EXPECT_EQ(rasterDataSize(raster), 70);
    std::vector<std::byte> buffer(8);
    ASSERT_TRUE(writeRasterData(raster, buffer));
    std::string bytes;
    for (const std::byte byte : buffer) bytes += std::to_string(std::to_integer<int>(byte)) + ' ';
    EXPECT_EQ(bytes, "2 0 9 0 255 128 255 128 ");
}

TEST_F(RasterTest, SizesArePaddedToFourBytes) {
    for (const auto& [columns, bytes] : {std::pair{1, 4}, {31, 4}, {32, 4}, {33, 8}, {64, 8}, {65, 12}}) {
        const GraphicsPath text = pathOf({rectangle(0, 0, static_cast<float>(columns), 3)});
        EXPECT_EQ(rasterDataSize(render(solid(text))), 3 * bytes + 62) << columns;
    }
}

TEST_F(RasterTest, RowsFromTheBottomAndTheLeftmostPixelHighest) {
    // The top left pixel, and the bottom right one.
    const GraphicsPath text = pathOf({rectangle(0, 0, 1, 1), rectangle(16, 2, 17, 3)});
    const Raster raster = render(solid(text));
    EXPECT_EQ(picture(raster), "#................\n.................\n................#\n");
    std::vector<std::byte> buffer(4 + 3 * 3);
    ASSERT_TRUE(writeRasterData(raster, buffer));
    EXPECT_EQ(buffer[4 + 2 * 3], std::byte{0x80}) << "first byte of the last row";
    EXPECT_EQ(buffer[4 + 2], std::byte{0x80});
}

TEST_F(RasterTest, TheCornerOfTheBoundsComesToTheOrigin) {
    const GraphicsPath text = pathOf({rectangle(-30, 50, -28, 51)});
    RasterJob job = solid(text);
    EXPECT_EQ(picture(render(job)), "##\n");
    job.scale = 2;
    EXPECT_EQ(picture(render(job)), "####\n####\n");
    job.scale = 1;
    job.frame = {-31, 49, -26, 52};
    EXPECT_EQ(picture(render(job)), "##\n");
    for (const std::int32_t axes : {FullAxes, NoAxesFull}) {
        job.showAxes = axes;
        EXPECT_EQ(picture(render(job)), ".....\n.##..\n.....\n");
    }
}

TEST_F(RasterTest, SolidFillIsTheEvenOddRule) {
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        const std::vector<Polygon> polygons = randomPolygons(seed, 203.5f, 150);
        const GraphicsPath text = pathOf(polygons);
        RasterJob job = solid(text);
        const Raster raster = render(job);
        ASSERT_EQ(raster.columns, 203);
        compare(raster, polygons, false);
        job.invert = true;
        compare(render(job), polygons, true);
    }
}

// Larger than one bitmap: drawn in parts, which fit together.
TEST_F(RasterTest, LargePicturesAreTheSame) {
    const std::vector<Polygon> polygons = randomPolygons(5, 9001, 4000);
    const GraphicsPath text = pathOf(polygons);
    compare(render(solid(text)), polygons, false, 13);
    const std::vector<Polygon> wide = randomPolygons(3, 65535, 40);
    const GraphicsPath wideText = pathOf(wide);
    const Raster raster = render(solid(wideText));
    EXPECT_EQ(raster.columns, 65535);
    compare(raster, wide, false, 3);
}

TEST_F(RasterTest, PartsMeetWithoutASeam) {
    // Every line crosses all parts; a seam would break or double one.
    GraphicsPath text = pathOf({rectangle(0, 0, 9000, 4000)});
    GraphicsPath fill;
    for (float x = -3990.5f; x < 9000; x += 50) {
        GdipStartPathFigure(fill);
        GdipAddPathLine(fill, x, 0, x + 4000, 4000);
    }
    RasterJob job{text, fill, {}};
    job.scale = 1;
    job.showAxes = NoAxesPartial;
    job.outlineType = NoOutline;
    job.fillStyle = Line;
    const Raster raster = render(job);
    for (std::int32_t y = 1; y < raster.rows; ++y)
        for (std::int32_t x = 1; x < raster.columns; ++x)
            ASSERT_EQ(isDark(raster, x, y), isDark(raster, x - 1, y - 1)) << x << ' ' << y;
}

TEST_F(RasterTest, LightInkLeavesNoTrace) {
    const GraphicsPath text = pathOf({rectangle(0, 0, 20, 20)});
    RasterJob job = solid(text);
    job.outlineType = SolidLine;
    for (const bool invert : {false, true}) {
        job.invert = invert;
        job.lightInk = false;
        const std::string dark = picture(render(job));
        EXPECT_EQ(dark.find('#') == std::string::npos, invert);
        job.lightInk = true;
        const Raster raster = render(job);
        EXPECT_EQ(raster.rows, 20);
        EXPECT_EQ(picture(raster).find('#'), std::string::npos);
    }
}

TEST_F(RasterTest, OutlinesAreOnePixelWide) {
    const GraphicsPath text = pathOf({rectangle(0, 0, 12, 8), rectangle(3.5f, 2.5f, 8.5f, 5.5f)});
    RasterJob job = solid(text);
    job.fillStyle = NoFilling;
    job.outlineType = SolidLine;
    const std::string outlined = picture(render(job));
    EXPECT_NE(outlined.find("...######..#\n...#....#..#\n"), std::string::npos) << outlined;
    EXPECT_EQ(std::ranges::count(outlined.substr(13, 78), '#') % 2, 0);
    job.outlined = false;
    EXPECT_EQ(picture(render(job)).find('#'), std::string::npos);
    job.outlined = true;
    job.outlineType = NoOutline;
    EXPECT_EQ(picture(render(job)).find('#'), std::string::npos);
    const auto dots = [&](std::int32_t type) {
        job.outlineType = type;
        const std::string drawn = picture(render(job));
        return std::ranges::count(drawn, '#');
    };
    EXPECT_GT(dots(SolidLine), dots(Dash));
    EXPECT_GT(dots(Dash), dots(Dots));
    EXPECT_EQ(dots(99), dots(SolidLine)) << "a number outside the list is a solid line";
}

// A frame around the inverted text keeps its inner edge light, whatever the width of the outline.
TEST_F(RasterTest, InvertedTextHasALightOutline) {
    const GraphicsPath text = pathOf({rectangle(4.5f, 4.5f, 10.5f, 8.5f)});
    RasterJob job = solid(text);
    job.showAxes = FullAxes;
    job.frame = {0, 0, 15, 13};
    job.invert = true;
    const Raster plain = render(job);
    EXPECT_EQ(isDark(plain, 7, 3), true);
    EXPECT_EQ(isDark(plain, 7, 6), false);
    job.outlineType = SolidLine;
    for (const bool outlined : {false, true}) {
        job.outlined = outlined;
        const Raster raster = render(job);
        EXPECT_FALSE(isDark(raster, 7, 4) || isDark(raster, 4, 6) || isDark(raster, 10, 6) || isDark(raster, 7, 8));
        EXPECT_TRUE(isDark(raster, 7, 3) && isDark(raster, 3, 6) && isDark(raster, 12, 6) && isDark(raster, 7, 10));
    }
}

TEST_F(RasterTest, HatchLinesEndAtTheText) {
    const std::vector<Polygon> polygons = {rectangle(0, 0, 40, 30), rectangle(10, 10, 30, 20)};
    const GraphicsPath text = pathOf(polygons);
    GraphicsPath fill;
    for (int y = 0; y < 15; ++y) {
        GdipStartPathFigure(fill);
        GdipAddPathLine(fill, -10, static_cast<float>(2 * y) + 0.5f, 60, static_cast<float>(2 * y) + 0.5f);
    }
    RasterJob job{text, fill, {}};
    job.scale = 1;
    job.showAxes = NoAxesPartial;
    job.outlineType = NoOutline;
    for (const bool invert : {false, true}) {
        job.invert = invert;
        job.fillStyle = Line;
        const Raster raster = render(job);
        for (std::int32_t y = 0; y < 30; ++y) {
            for (std::int32_t x = 0; x < 40; ++x) {
                const bool inside = placeOf(polygons, x + 0.5, y + 0.5).inside != invert;
                EXPECT_EQ(isDark(raster, x, y), inside && y % 2 == 0) << x << ' ' << y;
            }
        }
        // Single strokes have no area to be filled solidly.
        job.fontStyle = SingleStroke;
        job.fillStyle = Solid;
        EXPECT_EQ(picture(render(job)), picture(raster));
        job.fontStyle = TrueType;
    }
}

// Between two rows a smooth line has half its ink in each, which is dark.
TEST_F(RasterTest, LinesAreSmoothUnlessTheTextIsInverted) {
    const GraphicsPath text = pathOf({rectangle(0, 0, 20, 1), rectangle(0, 1, 8, 10), rectangle(0, 10, 20, 11)});
    GraphicsPath fill;
    GdipAddPathLine(fill, 0, 5, 20, 5);
    RasterJob job{text, fill, {}};
    job.scale = 1;
    job.showAxes = NoAxesPartial;
    job.outlineType = NoOutline;
    job.fillStyle = Line;
    const Raster smooth = render(job);
    EXPECT_TRUE(isDark(smooth, 4, 4) && isDark(smooth, 4, 5));
    EXPECT_FALSE(isDark(smooth, 14, 4) || isDark(smooth, 14, 5));
    job.invert = true;
    const Raster inverted = render(job);
    EXPECT_FALSE(isDark(inverted, 4, 4) || isDark(inverted, 4, 5));
    EXPECT_NE(isDark(inverted, 14, 4), isDark(inverted, 14, 5));
}

TEST_F(RasterTest, EmptyPictures) {
    const GraphicsPath nothing;
    const GraphicsPath thin = pathOf({rectangle(0, 0, 100, 0.5f)});
    for (const GraphicsPath* text : {&nothing, &thin}) {
        const Raster raster = render(solid(*text));
        EXPECT_EQ(raster.rows + raster.columns, 0);
        EXPECT_EQ(rasterDataSize(raster), 62);
        std::vector<std::byte> buffer(5, std::byte{9});
        EXPECT_TRUE(writeRasterData(raster, buffer));
        EXPECT_EQ(buffer, (std::vector<std::byte>{{}, {}, {}, {}, std::byte{9}}));
    }
}

TEST_F(RasterTest, WhatCannotBeRendered) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const GraphicsPath text = pathOf({rectangle(0, 0, 100, 100)});
    Raster raster;
    for (const float scale : {0.0f, -1.0f, kNan, kInfinity, -kInfinity}) {
        RasterJob job = solid(text);
        job.scale = scale;
        raster.columns = raster.rows = 1;
        raster.bits.resize(1);
        EXPECT_EQ(renderRaster(job, raster), InvalidParameter);
        EXPECT_EQ(raster.columns + raster.rows, 0);
        EXPECT_TRUE(raster.bits.empty());
    }
    struct Size {
        float width, height;
        Status status;
    };
    for (const Size size : {Size{65536, 1, OutOfMemory},
                            {1, 65536, OutOfMemory},
                            {65535, 1, Ok},
                            {1, 65535, Ok},
                            {60000, 60000, OutOfMemory},
                            {3e38f, 2, OutOfMemory}}) {
        const GraphicsPath large = pathOf({rectangle(0, 0, size.width, size.height)});
        EXPECT_EQ(renderRaster(solid(large), raster), size.status) << size.width << " x " << size.height;
        EXPECT_EQ(raster.bits.empty(), size.status != Ok);
    }
    const GraphicsPath odd = pathOf({rectangle(0, 0, 10, 10), rectangle(1, kNan, 5, 5), rectangle(2, 2, kNan, 4)});
    EXPECT_LE(render(solid(odd)).columns, 10);
}

TEST_F(RasterTest, NothingIsWrittenBehindTheBuffer) {
    const GraphicsPath text = pathOf({rectangle(0, 0, 9, 2)});
    const Raster raster = render(solid(text));
    for (std::size_t size = 0; size < 8; ++size) {
        std::vector<std::byte> buffer(12, std::byte{0x77});
        EXPECT_FALSE(writeRasterData(raster, std::span(buffer).first(size)));
        for (std::size_t i = 0; i < buffer.size(); ++i)
            EXPECT_EQ(buffer[i], size >= 4 && i < 4 ? std::byte{} : std::byte{0x77}) << size << " bytes, at " << i;
    }
}

TEST_F(RasterTest, AWholeNumberOfPixelsSpansTheEllipse) {
    const Units millimetres{0, 625.3f};
    const Units inches{1, 15882.62f};
    EXPECT_FLOAT_EQ(rasterScale(40, 20000, millimetres) * millimetres.dots(20000), 500);
    EXPECT_FLOAT_EQ(rasterScale(40, 20000, inches) * inches.dots(20000), 500);
    EXPECT_FLOAT_EQ(rasterScale(40, 20039, millimetres) * millimetres.dots(20039), 500) << "what fits, whole";
    EXPECT_EQ(rasterScale(40, 39, millimetres), 0);
    for (const float odd : {0.0f, -20000.0f, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(rasterScale(odd, 20000, millimetres), 0);
        EXPECT_EQ(rasterScale(40, odd, millimetres), 0);
    }
    // Not finite: no picture either.
    EXPECT_EQ(rasterScale(std::numeric_limits<float>::infinity(), 20000, millimetres), 0);
    EXPECT_FALSE(std::isfinite(rasterScale(40, 0.5f, {0, 625.3f})) && rasterScale(40, 0.5f, millimetres) > 0);
}

}  // namespace
}  // namespace ovaline
