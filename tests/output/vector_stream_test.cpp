#include "output/vector_stream.h"

#include <gtest/gtest.h>

#include "../geometry/path_text.h"
#include "stream_text.h"

namespace ovaline {
namespace {

/// A job whose paths are given as strings.
class Job {
public:
    explicit Job(const std::string& text, const std::string& fill = "", const std::string& frame = "")
        : text_(pathFrom(text)), fill_(pathFrom(fill)), job{text_, fill_, boundsOf(pathFrom(frame))} {
        job.showAxes = PartialAxes;
    }
    std::string vectorData() { return stream(&writeVectorData); }
    std::string outlineData() { return stream(&writeOutlineData); }

private:
    std::string stream(bool (*write)(const VectorJob&, std::span<std::byte>)) {
        std::vector<std::byte> buffer(100000);
        EXPECT_TRUE(write(job, buffer));
        return describe(recordsOf(buffer));
    }
    GraphicsPath text_, fill_;

public:
    VectorJob job;
};

TEST(Outline, ThinsPointsWithinTheStepDistance) {
    Job job("M0,0 L10,0 L20,0 L30,0 L60,0");
    job.job.stepDistance = 40;
    EXPECT_EQ(vectorDataSize(job.job), 120u);
    EXPECT_EQ(job.vectorData(), "u 0,0 x 10,0 x 20,0 x 30,0 d 60,0 E -1,-1");
    job.job.stepDistance = 25;  // reached at the third segment, counted from there anew
    EXPECT_EQ(job.vectorData(), "u 0,0 x 10,0 x 20,0 d 30,0 d 60,0 E -1,-1");
    job.job.stepDistance = 20;  // reached exactly
    EXPECT_EQ(job.vectorData(), "u 0,0 x 10,0 d 20,0 x 30,0 d 60,0 E -1,-1");
    job.job.stepDistance = 0;
    EXPECT_EQ(job.vectorData(), "u 0,0 d 10,0 d 20,0 d 30,0 d 60,0 E -1,-1");
    job.job.stepDistance = -7;
    EXPECT_EQ(job.vectorData(), "u 0,0 d 10,0 d 20,0 d 30,0 d 60,0 E -1,-1");
}

TEST(Outline, TurnsStayWhereTheSlopesTellThem) {
    const auto code = [](const std::string& path) {
        Job job(path);
        job.job.stepDistance = 1000;
        return job.vectorData().substr(job.vectorData().find(' ', 2) + 1, 1);
    };
    EXPECT_EQ(code("M0,0 L10,0 L10,10 L0,10"), "x") << "an upright segment never counts as a turn";
    EXPECT_EQ(code("M0,0 L10,0 L20,3.9 L30,10"), "x") << "0.37 radians";
    EXPECT_EQ(code("M0,0 L10,0 L20,4.4 L30,10"), "d") << "0.41 radians";
    EXPECT_EQ(code("M0,0 L1,14.1 L0,28.2 L5,50"), "d") << "+1.5 and -1.5: almost straight, yet 3 apart";
    EXPECT_EQ(code("M0,0 L10,5 L0,0 L5,50"), "x") << "a turn back has the same slope";
}

// The counter runs on through the figures, and truncates each segment's length.
TEST(Outline, CountsWholeDotsThroughAllFigures) {
    Job job("M0,0 L10.9,0 L21.8,0 L32.7,0 M0,5 L9,5 L18,5 L27,5");
    job.job.stepDistance = 40;
    EXPECT_EQ(job.vectorData(), "u 0,0 x 10.9,0 x 21.8,0 d 32.7,0 u 0,5 x 9,5 d 18,5 d 27,5 E -1,-1");
}

TEST(Outline, ClosedFiguresEndWhereTheyBegan) {
    Job triangle("M0,0 L10,0 L10,10 Z");
    triangle.job.stepDistance = 1000;
    EXPECT_EQ(triangle.vectorData(), "u 0,0 x 10,0 d 10,10 d 0,0 E -1,-1");
    EXPECT_EQ(vectorDataSize(triangle.job), 20u * (1 + 4));
    Job returned("M0,0 L10,0 L10,10 L0,0 Z");
    EXPECT_EQ(returned.vectorData(), "u 0,0 d 10,0 d 10,10 d 0,0 E -1,-1") << "no second closing record";
    EXPECT_EQ(vectorDataSize(returned.job), 20u * (1 + 5)) << "an upper bound";
}

TEST(Stream, OriginIsTheCornerThatTheAxesSelect) {
    Job job("M100,50 L110,50 L110,60 Z", "M90,55 L120,55", "M20,30 L200,300");
    job.job.fillStyle = Line;
    EXPECT_EQ(job.vectorData(), "u 0,0 d 10,0 d 10,10 d 0,0 U 5,5 D 10,5 E -1,-1");
    for (const std::int32_t style : {FullAxes, NoAxesFull}) {
        job.job.showAxes = style;
        EXPECT_EQ(job.vectorData(), "u 80,20 d 90,20 d 90,30 d 80,20 U 85,25 D 90,25 E -1,-1");
    }
    job.job.showAxes = 99;
    EXPECT_TRUE(job.vectorData().starts_with("u 0,0"));
}

TEST(Stream, StylesSelectItsSections) {
    Job job("M0,0 L10,0 L10,10 Z", "M-5,5 L15,5");
    job.job.fillStyle = Solid;
    job.job.outlineType = NoOutline;
    EXPECT_EQ(job.vectorData(), "U 5,5 D 10,5 E -1,-1");
    EXPECT_EQ(vectorDataSize(job.job), 20u * (1 + 2));
    EXPECT_EQ(job.outlineData(), "u 0,0 d 10,0 d 10,10 d 0,0 E -1,-1") << "the outline whatever the style";
    job.job.fontStyle = SingleStroke;
    EXPECT_EQ(job.vectorData(), "E -1,-1");
    EXPECT_EQ(vectorDataSize(job.job), 20u);
    job.job.fontStyle = TrueType;
    job.job.fillStyle = NoFilling;
    EXPECT_EQ(job.vectorData(), "E -1,-1");
    EXPECT_EQ(Job("").vectorData(), "E -1,-1");
}

// The last point of an open figure is joined to the next figure's first, for the fill alone.
TEST(Stream, OpenFiguresAreJoinedForTheFill) {
    Job job("M0,0 L0,10 M20,10 L20,0", "M-5,5 L25,5 M-5,10 L25,10.5");
    job.job.fillStyle = Line;
    job.job.outlineType = NoOutline;
    EXPECT_EQ(job.vectorData(), "U 0,5 D 20,5 E -1,-1");
    Job closed("M0,0 L0,10 L5,5 Z M20,10 L20,0", "M10,-5 L10,15");
    closed.job.fillStyle = Line;
    closed.job.outlineType = NoOutline;
    EXPECT_EQ(closed.vectorData(), "E -1,-1") << "no edge leaves the point that closes a figure";
}

TEST(Stream, ABufferTooSmallHoldsTheEndAlone) {
    Job job("M0,0 L10,0 L10,10 Z", "M-5,5 L15,5");
    job.job.fillStyle = Line;
    constexpr std::size_t kNeeded = 7 * kVectorRecordSize;
    for (std::size_t size = 0; size <= kNeeded; ++size) {
        std::vector<std::byte> buffer(kNeeded + 9, std::byte{0xA5});
        const bool fits = writeVectorData(job.job, std::span(buffer).first(size));
        EXPECT_EQ(fits, size == kNeeded);
        for (std::size_t i = size; i < buffer.size(); ++i) ASSERT_EQ(buffer[i], std::byte{0xA5}) << size;
        if (size >= kVectorRecordSize && !fits) {
            EXPECT_EQ(describe(recordsOf(buffer)), "E -1,-1");
        }
    }
}

TEST(Stream, SizeSaturates) {
    GraphicsPath text, fill;
    for (int i = 0; i < 12000; ++i) {
        GdipAddPathRectangle(text, 0, 0, 1, 1);
        GdipStartPathFigure(fill);
        GdipAddPathLine(fill, 0, 0, 1, 1);
    }
    VectorJob job{text, fill, {}};
    job.fillStyle = Solid;
    // 1 + 12000·5 + 2·12000² records of 20 bytes are beyond 32 bits.
    EXPECT_EQ(vectorDataSize(job), 0xFFFFFFFFu);
    job.fillStyle = NoFilling;
    EXPECT_EQ(vectorDataSize(job), 20u * (1 + 12000 * 5));
}

TEST(Record, IsNineLittleEndianBytes) {
    std::byte bytes[kVectorRecordSize];
    encode({'E', -1.0f, 2.5f}, bytes);
    const unsigned char expected[] = {0x45, 0x00, 0x00, 0x80, 0xBF, 0x00, 0x00, 0x20, 0x40};
    EXPECT_TRUE(std::ranges::equal(std::as_bytes(std::span(expected)), bytes));
    EXPECT_EQ(decode(bytes), (VectorRecord{'E', -1.0f, 2.5f}));
}

}  // namespace
}  // namespace ovaline
