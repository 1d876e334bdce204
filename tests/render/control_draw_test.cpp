// A control that its container asks to draw.
#include <gtest/gtest.h>

#include <limits>

#include "platform/drawing.h"
#include "tests/control/control_fixture.h"

namespace ovaline {
namespace {

using platform::PictureKind;

class ControlDrawTest : public ControlTest {
protected:
    HRESULT draw(HDC dc, const RECTL* bounds, DWORD aspect = DVASPECT_CONTENT) {
        IViewObject* const view = control.get();
        return view->Draw(aspect, -1, nullptr, nullptr, nullptr, dc, bounds, nullptr, nullptr, 0);
    }
    std::string drawn(const RECTL& bounds) {
        const auto picture = platform::makePicture(PictureKind::Png, 400, 300, 96, platform::kOpaqueWhite);
        EXPECT_EQ(draw(picture->dc(), &bounds), S_OK);
        return picture->finish();
    }
};

TEST_F(ControlDrawTest, TakesTheRectangleAsItsOwn) {
    drawn({10, 20, 210, 120});
    EXPECT_EQ(settings().ScreenLeft, 10);
    EXPECT_EQ(settings().ScreenTop, 20);
    EXPECT_EQ(settings().ScreenWidth, 200);
    EXPECT_EQ(settings().ScreenHeight, 100);
    EXPECT_EQ(draw(nullptr, nullptr), E_INVALIDARG);
    const RECTL refused = {0, 0, 10, 10};
    EXPECT_EQ(draw(nullptr, &refused, 2), DV_E_DVASPECT);
    EXPECT_EQ(settings().ScreenWidth, 200) << "what is no drawing changes nothing";
    // The widest rectangle that there is.
    const RECTL all = {-2147483647 - 1, -2147483647 - 1, 2147483647, 2147483647};
    EXPECT_EQ(draw(nullptr, &all), S_OK);
    EXPECT_EQ(settings().ScreenWidth, 4294967296.0f);
}

TEST_F(ControlDrawTest, DrawingChangesNothingElse) {
    control->SetDefaultSize(0);
    const GraphicsPath text = paths().TextPath;
    const std::string first = drawn({0, 0, 400, 300});
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(drawn({0, 0, 400, 300}), first);
    EXPECT_TRUE(std::ranges::equal(text.points(), paths().TextPath.points()));
    control->put_FillStyle(NoFilling);
    EXPECT_NE(drawn({0, 0, 400, 300}), first);
}

TEST_F(ControlDrawTest, SettingsBeyondAllMeasureDrawSomethingOrNothing) {
    control->SetDefaultSize(0);
    control->put_FillStyle(Cross);
    control->put_Invert(-1);
    control->put_TextOutline(1e30f);
    for (const float value : {0.0f, -1.0f, 1e-30f, 1e6f, 3e38f, std::numeric_limits<float>::quiet_NaN()}) {
        control->SetZoomFactor(value);
        EXPECT_FALSE(drawn({0, 0, 400, 300}).empty()) << value;
        control->SetZoomFactor(1);
        control->SetResolutionInDPI(value);
        EXPECT_FALSE(drawn({-2000000000, 0, 400, 300}).empty()) << value;
    }
}

}  // namespace
}  // namespace ovaline
