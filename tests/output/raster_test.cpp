#include "output/raster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "tests/geometry/path_text.h"
#include "tests/platform/drawing_engine.h"

namespace ovaline {
namespace {

constexpr const char* kCoarseEngine = "this engine draws lines up to a pixel off";
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

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

bool isDark(const Raster& raster, std::int32_t x, std::int32_t y) {
    const auto row = static_cast<std::size_t>(raster.rows - 1 - y) * raster.bytesPerRow();
    return (std::to_integer<int>(raster.bits[row + static_cast<std::size_t>(x) / 8]) & (0x80 >> x % 8)) != 0;
}

/// Even-odd rule, and the distance to the nearest edge, at a point.
struct Place {
    bool inside = false;
    double distance = kInfinity;
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

/// Solid text without outline, a pixel a dot, which each test varies.
class RasterTest : public testing::Test {
protected:
    RasterTest() {
        job.scale = 1;
        job.showAxes = NoAxesPartial;
        job.outlineType = NoOutline;
        job.fillStyle = Solid;
    }
    Raster render() const {
        Raster raster;
        EXPECT_EQ(renderRaster(job, raster), Ok);
        return raster;
    }
    /// The picture as text, a line a row from the top, '#' where it is dark.
    std::string picture() const {
        const Raster raster = render();
        std::string drawn;
        for (std::int32_t y = 0; y < raster.rows; ++y, drawn += '\n')
            for (std::int32_t x = 0; x < raster.columns; ++x) drawn += isDark(raster, x, y) ? '#' : '.';
        return drawn;
    }
    auto darkPixels() const { return std::ranges::count(picture(), '#'); }
    /// Renders random triangles, with corners that the picture's bounds are made of, and compares with the even-odd
    /// rule every pixel, in steps, that no edge passes through.
    void compareTriangles(std::uint32_t seed, float width, float height, int step = 1) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> x(0, width), y(0, height);
        std::vector<Polygon> polygons = {rectangle(0, 0, width / 50, height / 50),
                                         rectangle(width * 0.98f, height * 0.98f, width, height)};
        for (int i = 0; i < 12; ++i)
            polygons.push_back({{x(random), y(random)}, {x(random), y(random)}, {x(random), y(random)}});
        text = pathOf(polygons);
        const Raster raster = render();
        ASSERT_EQ(raster.columns, static_cast<std::int32_t>(width));
        std::int64_t wrong = 0, compared = 0, dark = 0, all = 0;
        for (std::int32_t row = 0; row < raster.rows; row += step) {
            for (std::int32_t column = 0; column < raster.columns; column += step, ++all) {
                const Place place = placeOf(polygons, column + 0.5, row + 0.5);
                if (place.distance < 0.75) continue;  // farther than half a pixel's diagonal no edge passes through it
                ++compared;
                dark += isDark(raster, column, row);
                wrong += isDark(raster, column, row) != (place.inside != job.invert);
            }
        }
        EXPECT_EQ(wrong, 0) << "of " << compared;
        EXPECT_GT(compared, all / 2);
        EXPECT_GT(dark, compared / 10);
        EXPECT_LT(dark, compared * 9 / 10);
    }

    GraphicsPath text, fill;
    RasterJob job{text, fill, {}};
};

TEST_F(RasterTest, BytesAreRowsFromTheBottomWithTheLeftmostPixelHighest) {
    text = pathOf({rectangle(0, 0, 1, 1), rectangle(9, 2, 10, 3)});  // the top left pixel, and the bottom right one
    EXPECT_EQ(picture(), "#.........\n..........\n.........#\n");
    const Raster raster = render();
    for (std::size_t size = 0; size <= 10; ++size) {
        std::vector<std::byte> buffer(12, std::byte{7});
        EXPECT_EQ(writeRasterData(raster, std::span(buffer).first(size)), size == 10);
        std::string bytes;
        for (const std::byte byte : buffer) bytes += std::to_string(std::to_integer<int>(byte)) + ' ';
        const char* const refused = size < 4 ? "7 7 7 7 7 7 7 7 7 7 7 7 " : "0 0 0 0 7 7 7 7 7 7 7 7 ";
        EXPECT_EQ(bytes, size < 10 ? refused : "3 0 10 0 0 64 0 0 128 0 7 7 ") << size;
    }
    for (const auto& [columns, bytes] : {std::pair{1, 4}, {32, 4}, {33, 8}, {64, 8}, {65, 12}}) {
        text = pathOf({rectangle(0, 0, static_cast<float>(columns), 3)});
        EXPECT_EQ(rasterDataSize(render()), 3 * bytes + 62) << columns;
    }
}

TEST_F(RasterTest, TheCornerOfTheBoundsComesToTheOrigin) {
    text = pathOf({rectangle(-30, 50, -28, 51)});
    job.scale = 2;
    EXPECT_EQ(picture(), "####\n####\n");
    job.scale = 1;
    job.frame = {-31, 49, -26, 52};
    EXPECT_EQ(picture(), "##\n");
    for (const std::int32_t axes : {FullAxes, NoAxesFull}) {
        job.showAxes = axes;
        EXPECT_EQ(picture(), ".....\n.##..\n.....\n");
    }
}

TEST_F(RasterTest, SolidFillIsTheEvenOddRule) {
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        job.invert = seed % 2 == 0;
        compareTriangles(seed, 203.5f, 150);
    }
    job.invert = false;
    compareTriangles(5, 9001, 4000, 13);
    compareTriangles(3, 65535, 40, 3);
}

// A picture larger than one bitmap is drawn in parts; a seam would break or double the lines, which cross all of them.
TEST_F(RasterTest, PartsMeetWithoutASeam) {
    if (!platform::drawsWithinPixels()) GTEST_SKIP() << kCoarseEngine;
    text = pathOf({rectangle(0, 0, 9000, 4000)});
    for (float x = -3990.5f; x < 9000; x += 50) {
        GdipStartPathFigure(fill);
        GdipAddPathLine(fill, x, 0, x + 4000, 4000);
    }
    job.fillStyle = Line;
    const auto expectUnbrokenLines = [this](std::int32_t sides) {
        const Raster raster = render();
        for (std::int32_t y = 1; y < raster.rows; ++y)
            for (std::int32_t x = 1 + sides; x < raster.columns - sides; ++x)
                ASSERT_EQ(isDark(raster, x, y), isDark(raster, x - 1, y - 1)) << x << ' ' << y;
    };
    expectUnbrokenLines(0);
    // Around an inverted text, where most parts hold no text, the clip at the picture's own sides may add a pixel.
    job.showAxes = FullAxes;
    job.frame = {0, 0, 9000, 4000};
    job.invert = true;
    text = pathOf({rectangle(0, 0, 1, 1)});
    expectUnbrokenLines(1);
    fill = pathFrom("M0,3000.5 L9000,3000.5");
    EXPECT_EQ(darkPixels(), 9000);
}

TEST_F(RasterTest, OutlinesAreOnePixelWide) {
    if (!platform::drawsWithinPixels()) GTEST_SKIP() << kCoarseEngine;
    text = pathOf({rectangle(0, 0, 12, 8), rectangle(3.5f, 2.5f, 8.5f, 5.5f)});
    job.fillStyle = NoFilling;
    EXPECT_EQ(darkPixels(), 0);
    job.outlineType = SolidLine;
    EXPECT_NE(picture().find("...######..#\n...#....#..#\n"), std::string::npos) << picture();
    const auto dots = [&](std::int32_t type) {
        job.outlineType = type;
        return darkPixels();
    };
    EXPECT_GT(dots(SolidLine), dots(Dash));
    EXPECT_GT(dots(Dash), dots(Dots));
    EXPECT_EQ(dots(99), dots(SolidLine)) << "a number outside the list is a solid line";
    job.outlined = false;
    EXPECT_EQ(darkPixels(), 0);
    job.fillStyle = Solid;
    job.lightInk = true;
    EXPECT_EQ(picture().size(), 8u * 13);
    EXPECT_EQ(darkPixels(), 0) << "light ink leaves no trace";
}

// A frame around the inverted text keeps its inner edge light, whatever the width of the outline.
TEST_F(RasterTest, InvertedTextHasALightOutline) {
    if (!platform::drawsWithinPixels()) GTEST_SKIP() << kCoarseEngine;
    text = pathOf({rectangle(4.5f, 4.5f, 10.5f, 8.5f)});
    job.showAxes = FullAxes;
    job.frame = {0, 0, 15, 13};
    job.invert = true;
    const std::int64_t ground = 15 * 13 - 6 * 4;
    EXPECT_EQ(darkPixels(), ground);
    job.outlineType = SolidLine;
    for (const bool outlined : {false, true}) {
        job.outlined = outlined;
        const Raster raster = render();
        EXPECT_FALSE(isDark(raster, 7, 4) || isDark(raster, 4, 6) || isDark(raster, 10, 6) || isDark(raster, 7, 8));
        EXPECT_TRUE(isDark(raster, 7, 3) && isDark(raster, 3, 6) && isDark(raster, 12, 6) && isDark(raster, 7, 10));
    }
}

TEST_F(RasterTest, HatchLinesEndAtTheText) {
    if (!platform::drawsWithinPixels()) GTEST_SKIP() << kCoarseEngine;
    const std::vector<Polygon> polygons = {rectangle(0, 0, 40, 30), rectangle(10, 10, 30, 20)};
    text = pathOf(polygons);
    for (float y = 0.5f; y < 30; y += 2) {
        GdipStartPathFigure(fill);
        GdipAddPathLine(fill, -10, y, 60, y);
    }
    for (const bool invert : {false, true}) {
        job.invert = invert;
        job.fillStyle = Line;
        const std::string hatched = picture();
        for (std::int32_t y = 0; y < 30; ++y) {
            for (std::int32_t x = 0; x < 40; ++x) {
                const bool inside = placeOf(polygons, x + 0.5, y + 0.5).inside != invert;
                EXPECT_EQ(hatched[static_cast<std::size_t>(y * 41 + x)] == '#', inside && y % 2 == 0) << x << ' ' << y;
            }
        }
        // Single strokes have no area to be filled solidly.
        job.fontStyle = SingleStroke;
        job.fillStyle = Solid;
        EXPECT_EQ(picture(), hatched);
        job.fontStyle = TrueType;
    }
}

// Between two rows a smooth line has half its ink in each, which is dark.
TEST_F(RasterTest, LinesAreSmoothUnlessTheTextIsInverted) {
    if (!platform::drawsWithinPixels()) GTEST_SKIP() << kCoarseEngine;
    text = pathFrom("M0,0 L20,0 L20,1 L8,1 L8,10 L20,10 L20,11 L0,11 Z");
    fill = pathFrom("M0,5 L20,5");
    job.fillStyle = Line;
    const auto rowsDarkAt = [&](std::int32_t x) {
        const Raster raster = render();
        return isDark(raster, x, 4) + isDark(raster, x, 5);
    };
    EXPECT_EQ(rowsDarkAt(4), 2);
    EXPECT_EQ(rowsDarkAt(14), 0);
    job.invert = true;
    EXPECT_EQ(rowsDarkAt(4), 0);
    EXPECT_EQ(rowsDarkAt(14), 1);
}

TEST_F(RasterTest, EmptyPicturesAndWhatCannotBeRendered) {
    Raster raster;
    const auto status = [&](float width, float height, float scale = 1) {
        text = pathOf({rectangle(0, 0, width, height)});
        job.scale = scale;
        raster = Raster{1, 1, std::vector<std::byte>(1)};
        const Status result = renderRaster(job, raster);
        if (result != Ok || height < 1) {
            EXPECT_TRUE(raster.bits.empty() && raster.columns + raster.rows == 0) << "what was there is gone";
        }
        return result;
    };
    for (const float scale : {0.0f, -1.0f, kNan, kInfinity}) EXPECT_EQ(status(9, 9, scale), InvalidParameter) << scale;
    const std::tuple<float, float, Status> sizes[] = {{65535, 1, Ok},  {65536, 1, OutOfMemory},
                                                      {1, 65535, Ok},  {1, 65536, OutOfMemory},
                                                      {100, 0.5f, Ok}, {60000, 60000, OutOfMemory}};
    for (const auto& [width, height, wanted] : sizes)
        EXPECT_EQ(status(width, height), wanted) << width << ' ' << height;
    text = pathOf({rectangle(0, 0, 10, 10), rectangle(1, kNan, 5, 5), rectangle(2, 2, kNan, 4)});
    EXPECT_EQ(darkPixels(), 100) << "a figure that is not finite is left out";
}

TEST_F(RasterTest, AWholeNumberOfPixelsSpansTheEllipse) {
    for (const Units& units : {Units{0, 625.3f}, Units{1, 15882.62f}})
        for (const float width : {20000.0f, 20039.0f})  // as many as fit, whole
            EXPECT_FLOAT_EQ(rasterScale(40, width, units) * units.dots(width), 500);
    const Units millimetres{0, 625.3f};
    EXPECT_EQ(rasterScale(40, 39, millimetres), 0);
    EXPECT_EQ(rasterScale(kInfinity, 20000, millimetres), 0);
    for (const float odd : {0.0f, -20000.0f, kNan}) {
        EXPECT_EQ(rasterScale(odd, 20000, millimetres), 0);
        EXPECT_EQ(rasterScale(40, odd, millimetres), 0);
    }
}

}  // namespace
}  // namespace ovaline
