#include "output/vector_stream.h"

#include <gtest/gtest.h>

#include <cstring>

#include "stream_text.h"
#include "tests/geometry/path_text.h"

namespace ovaline {
namespace {

/// A job whose paths are given as strings.
struct Job {
    explicit Job(const std::string& textPath, const std::string& fillPath = "", const std::string& frame = "")
        : text(pathFrom(textPath)), fill(pathFrom(fillPath)), job{text, fill, boundsOf(pathFrom(frame))} {
        job.showAxes = PartialAxes;
    }
    std::string vectorData(bool (*write)(const VectorJob&, std::span<std::byte>) = &writeVectorData) const {
        std::vector<std::byte> buffer(100000);
        EXPECT_TRUE(write(job, buffer));
        return describe(recordsOf(buffer));
    }

    GraphicsPath text, fill;
    VectorJob job;
};

TEST(Outline, ThinsPointsWithinTheStepDistance) {
    Job job("M0,0 L10,0 L20,0 L30,0 L60,0");
    EXPECT_EQ(vectorDataSize(job.job), 120u);
    const std::pair<std::int32_t, const char*> cases[] = {
        {40, "u 0,0 x 10,0 x 20,0 x 30,0 d 60,0 E -1,-1"},
        {25, "u 0,0 x 10,0 x 20,0 d 30,0 d 60,0 E -1,-1"},  // reached at the third segment, counted from there anew
        {20, "u 0,0 x 10,0 d 20,0 x 30,0 d 60,0 E -1,-1"},  // reached exactly
        {-7, "u 0,0 d 10,0 d 20,0 d 30,0 d 60,0 E -1,-1"},
    };
    for (const auto& [distance, stream] : cases) {
        job.job.stepDistance = distance;
        EXPECT_EQ(job.vectorData(), stream);
    }
    // The counter runs on through the figures, and truncates each segment's length.
    Job figures("M0,0 L10.9,0 L21.8,0 L32.7,0 M0,5 L9,5 L18,5 L27,5");
    figures.job.stepDistance = 40;
    EXPECT_EQ(figures.vectorData(), "u 0,0 x 10.9,0 x 21.8,0 d 32.7,0 u 0,5 x 9,5 d 18,5 d 27,5 E -1,-1");
    Job closed("M0,0 L30,0 Z M0,5 L10,5 L20,5");
    closed.job.stepDistance = 35;  // what closes a figure is not counted
    EXPECT_EQ(closed.vectorData(), "u 0,0 d 30,0 d 0,0 u 0,5 x 10,5 d 20,5 E -1,-1");
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
    EXPECT_EQ(job.vectorData(&writeOutlineData), "u 0,0 d 10,0 d 10,10 d 0,0 E -1,-1")
        << "the outline whatever the style";
    job.job.fontStyle = SingleStroke;
    EXPECT_EQ(job.vectorData(), "E -1,-1");
    EXPECT_EQ(vectorDataSize(job.job), 20u);
    EXPECT_EQ(Job("").vectorData(), "E -1,-1");
}

// The last point of an open figure is joined to the next figure's first, for the fill alone.
TEST(Stream, OpenFiguresAreJoinedForTheFill) {
    for (const auto& [text, stream] :
         {std::pair{"M0,0 L0,10 M20,10 L20,0", "U 10,10 E -1,-1"}, {"M0,0 L0,10 L5,5 Z M20,10 L20,0", "E -1,-1"}}) {
        Job job(text, "M10,-5 L10,15");
        job.job.fillStyle = Line;
        job.job.outlineType = NoOutline;
        EXPECT_EQ(job.vectorData(), stream);
    }
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
    std::string text, fill;
    for (int i = 0; i < 12000; ++i) {
        text += "M0,0 L1,0 L1,1 Z ";
        fill += "M0,0 L1,1 ";
    }
    Job job(text, fill);
    EXPECT_EQ(vectorDataSize(job.job), 20u * (1 + 12000 * 4));
    job.job.fillStyle = Solid;  // 2 · 12000² records more, of 20 bytes, are beyond 32 bits
    EXPECT_EQ(vectorDataSize(job.job), 0xFFFFFFFFu);
}

TEST(Record, IsNineLittleEndianBytes) {
    std::byte bytes[kVectorRecordSize];
    encode({'E', -1.0f, 2.5f}, bytes);
    EXPECT_EQ(std::memcmp(bytes, "\x45\x00\x00\x80\xBF\x00\x00\x20\x40", sizeof bytes), 0);
    EXPECT_EQ(decode(bytes), (VectorRecord{'E', -1.0f, 2.5f}));
}

}  // namespace
}  // namespace ovaline
