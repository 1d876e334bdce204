#include <bit>
#include <limits>

#include "control_fixture.h"

namespace ovaline {
namespace {

class RasterOperationsTest : public ControlTest {
protected:
    struct Answer {
        HRESULT hr;
        std::vector<std::uint8_t> bytes;  ///< 0xEE where nothing was written
        int rows() const { return bytes[0] | bytes[1] << 8; }
        int columns() const { return bytes[2] | bytes[3] << 8; }
    };
    Answer data(LONG size, std::size_t room) {
        Answer answer{0, std::vector<std::uint8_t>(room, 0xEE)};
        VARIANT inner{}, outer{};
        inner.byref = answer.bytes.data();
        outer.byref = &inner;
        answer.hr = control->GetRasterData(outer, size);
        return answer;
    }
    Answer data() {
        const LONG size = dataSize();
        return data(size, static_cast<std::size_t>(size));
    }
    LONG dataSize() {
        LONG size = -1;
        EXPECT_EQ(control->GetRasterDataSize(&size), S_OK);
        return size;
    }
    static std::size_t dark(const Answer& answer) {
        std::size_t count = 0;
        const auto bytesPerRow = static_cast<std::size_t>(answer.columns() + 7) / 8;
        for (std::size_t i = 4; i < 4 + static_cast<std::size_t>(answer.rows()) * bytesPerRow; ++i)
            count += static_cast<std::size_t>(std::popcount(answer.bytes[i]));
        return count;
    }
};

TEST_F(RasterOperationsTest, TheStepAndTheAskedSizeRender) {
    control->SetDefaultSize(0);
    const Answer none = data(100, 8);
    EXPECT_EQ(none.hr, E_UNEXPECTED) << "nothing was rendered yet";
    EXPECT_EQ(none.bytes, (std::vector<std::uint8_t>{0, 0, 0, 0, 0xEE, 0xEE, 0xEE, 0xEE}));
    EXPECT_EQ(control->SetStepSize(50), S_OK);
    const Answer coarse = data(1 << 20, 1 << 20);
    ASSERT_EQ(coarse.hr, S_OK);
    EXPECT_EQ(control->SetStepSize(25), S_OK);
    const Answer fine = data(1 << 20, 1 << 20);
    EXPECT_NEAR(fine.rows(), 2 * coarse.rows(), 1);
    EXPECT_NEAR(fine.columns(), 2 * coarse.columns(), 1);
    EXPECT_GT(dark(fine), 2 * dark(coarse));
    control->put_TextData(Text(u"A"));
    EXPECT_EQ(data(1 << 20, 1 << 20).bytes, fine.bytes) << "rendered when its size is asked for";
    EXPECT_NE(data().bytes, fine.bytes);
}

// 500 pixels of 40 µm span the ellipse of 20 mm; the picture is larger by the band of text around it.
TEST_F(RasterOperationsTest, TheFrameOrTheTextIsThePicture) {
    control->SetDefaultSize(0);
    const Answer frame = data();
    const LONG size = dataSize();
    EXPECT_EQ(size, (frame.columns() + 31) / 32 * 4 * frame.rows() + 62);
    const float scale = 500 / (20 * settings().DotsPerUnit);
    RectF bounds;
    GdipGetPathWorldBounds(paths().FramePath, bounds);
    EXPECT_NEAR(frame.columns(), bounds.Width * scale, 1);
    EXPECT_NEAR(frame.rows(), bounds.Height * scale, 1);
    control->put_ShowAxes(NoAxesPartial);
    const Answer text = data();
    GdipGetPathWorldBounds(paths().TextPath, bounds);
    EXPECT_NEAR(text.columns(), bounds.Width * scale, 1);
    EXPECT_NEAR(text.rows(), bounds.Height * scale, 1);
    control->SetBackGroundColor(1);
    const Answer light = data();
    EXPECT_EQ(light.rows(), text.rows());
    EXPECT_EQ(dark(light), 0u);
}

TEST_F(RasterOperationsTest, WithoutAPictureTheEmptyOneIsWritten) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    control->SetDefaultSize(0);
    for (const float step : {0.0f, -40.0f, kNan, kInfinity, 30000.0f}) {
        EXPECT_EQ(control->SetStepSize(40), S_OK);
        EXPECT_EQ(control->SetStepSize(step), S_OK);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(settings().StepSize), std::bit_cast<std::uint32_t>(step));
        EXPECT_EQ(dataSize(), 62);
        const Answer answer = data(62, 62);
        EXPECT_EQ(answer.hr, E_INVALIDARG) << step;
        EXPECT_EQ(answer.rows() + answer.columns(), 0);
        EXPECT_EQ(answer.bytes[4], 0xEE);
        EXPECT_EQ(data(3, 4).bytes, (std::vector<std::uint8_t>(4, 0xEE)));
    }
    EXPECT_EQ(control->SetStepSize(0.1f), S_OK);
    EXPECT_EQ(dataSize(), 62);
    EXPECT_EQ(data(62, 62).hr, E_OUTOFMEMORY) << "more pixels across than the header can tell";
    EXPECT_EQ(control->SetStepSize(40), S_OK);
    for (const float width : {0.0f, -20.0f}) {
        control->put_Width(width);
        EXPECT_EQ(dataSize(), 62);
        EXPECT_EQ(data(62, 62).hr, E_INVALIDARG);
    }
}

TEST_F(RasterOperationsTest, NothingIsWrittenBehindTheBuffer) {
    control->SetDefaultSize(0);
    const Answer whole = data();
    const auto written = 4 + static_cast<std::size_t>((whole.columns() + 7) / 8 * whole.rows());
    ASSERT_LT(written, whole.bytes.size());
    EXPECT_EQ(whole.bytes[written], 0xEE);
    const auto exact = data(static_cast<LONG>(written), written + 10);
    EXPECT_EQ(exact.hr, S_OK);
    EXPECT_EQ(exact.bytes[written], 0xEE);
    for (const LONG size : {static_cast<LONG>(written) - 1, LONG{4}}) {
        const Answer small = data(size, written);
        EXPECT_EQ(small.hr, DISP_E_BUFFERTOOSMALL);
        EXPECT_EQ(small.rows() + small.columns(), 0);
        EXPECT_EQ(small.bytes[4], 0xEE);
    }
    for (const LONG size : {LONG{3}, std::numeric_limits<LONG>::min()}) {
        const Answer small = data(size, 8);
        EXPECT_EQ(small.hr, DISP_E_BUFFERTOOSMALL);
        EXPECT_EQ(small.bytes, (std::vector<std::uint8_t>(8, 0xEE)));
    }
    EXPECT_EQ(control->GetRasterData({}, 100), E_POINTER);
}

}  // namespace
}  // namespace ovaline
