#include <limits>

#include "control_fixture.h"

namespace ovaline {
namespace {

using Control = CNorvel_OvalineCtrl;

TEST_F(ControlTest, StartsWithItsDefaultsAndEmptyPaths) {
    EXPECT_EQ(text(&Control::get_DatabaseField), u"Имя поля");
    EXPECT_EQ(text(&Control::get_SerialNumPrefix), u"Префикс");
    EXPECT_EQ(text(&Control::get_SerNumSuffix), u"Суфикс");
    EXPECT_EQ(get(&Control::get_FontHeight), 5.0f);
    EXPECT_EQ(get(&Control::get_Width), 0.0f);
    EXPECT_EQ(settings().ResolutionInDPI, 15882.6201171875f);
    EXPECT_EQ(settings().DotsPerUnit, 625.2999877929688f);
    EXPECT_TRUE(paths().TextPath.empty() && paths().FramePath.empty() && paths().GuidePath.empty());
}

TEST_F(ControlTest, LengthsFollowTheMeasurementAndAreClamped) {
    control->put_Width(12.3456f);
    EXPECT_EQ(settings().Width, 12346);
    control->SetMeasurement(1);
    control->put_Width(1);
    EXPECT_EQ(get(&Control::get_Width), 1.0f);
    control->SetMeasurement(0);
    EXPECT_EQ(get(&Control::get_Width), 25.4f) << "nothing that is stored is converted";
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    for (const auto& [height, stored] : {std::pair{12.0f, 12000}, {0.05f, 100}, {60.0f, 50800}, {kNan, 100}}) {
        EXPECT_EQ(control->put_FontHeight(height), S_OK);
        EXPECT_EQ(settings().FontHeight, stored);
    }
    control->DisplayInPoint(1);
    control->put_FontHeight(12);
    EXPECT_EQ(settings().FontHeight, 4233);
    EXPECT_EQ(get(&Control::get_FontHeight), 12.0f);
    for (const auto& [flatness, stored] : {std::pair{0.0f, 1.0f}, {3.0f, 2540.0f}}) {
        control->put_Flatness(flatness);
        EXPECT_EQ(settings().Flatness, stored);
    }
}

TEST_F(ControlTest, ArrayDimensionsOutsideTheirRangeAreRefused) {
    RecordingContainer container;
    control->SetAdvise(DVASPECT_CONTENT, 0, &container);
    for (const LONG value : {1, 255}) EXPECT_EQ(control->put_ArrayXDimension(value), S_OK);
    container.events.clear();
    for (const LONG value : {LONG{0}, LONG{256}, std::numeric_limits<LONG>::min()}) {
        EXPECT_EQ(control->put_ArrayXDimension(value), S_FALSE);
        EXPECT_EQ(control->put_ArrayYDimension(value), S_FALSE);
    }
    EXPECT_EQ(settings().ArrayXDimension, 255);
    EXPECT_EQ(settings().ArrayYDimension, 1);
    EXPECT_TRUE(container.events.empty());
    control->SetAdvise(0, 0, nullptr);
}

TEST_F(ControlTest, FontNameAndStyleFollowEachOther) {
    control->put_FontName(Text(u"My Filament Script"));
    EXPECT_EQ(get(&Control::get_FontStyle), SingleStroke);
    control->put_FontStyle(TrueType);
    EXPECT_EQ(text(&Control::get_FontName), u"Arial");
    control->put_FontName(Text(u"filament"));  // told apart by case
    EXPECT_EQ(get(&Control::get_FontStyle), TrueType);
    control->put_FontStyle(SingleStroke);
    EXPECT_EQ(text(&Control::get_FontName), u"Filament SanSerif");
    control->put_FontStyle(static_cast<_txtfontstyle>(7));
    EXPECT_EQ(text(&Control::get_FontName), u"Arial");
    EXPECT_EQ(settings().FontStyle, 7) << "enumerations are stored unchecked";
}

TEST_F(ControlTest, FlagsFlipAndAnglesTurn) {
    control->FlipH();
    EXPECT_EQ(get(&Control::get_MirrorHorizontal), -1);
    control->InvertColor();
    EXPECT_EQ(settings().Invert, -1);
    control->put_MirrorVertical(5);
    control->FlipV();
    EXPECT_EQ(settings().MirrorVertical, ~5);
    control->put_Angle(300);
    control->RotateByQuadrant();
    EXPECT_EQ(get(&Control::get_Angle), 30.0f);
    control->put_Angle(720);
    control->RotateByQuadrant();
    EXPECT_EQ(get(&Control::get_Angle), 450.0f);
}

TEST_F(ControlTest, UnitsAndSizes) {
    INT precision = 0;
    control->SetUnitsPrecision(65539);
    control->GetUnitsPrecision(&precision);
    EXPECT_EQ(precision, 3);
    control->SetLeftTopinDACUnits(1, 65535);
    EXPECT_EQ(settings().TopInDACUnits, 65535);
    control->SetDotsPerUnit(1000);
    EXPECT_FLOAT_EQ(settings().UnitFactor, 1000 / settings().DotsPerPixel);
    control->SetResolutionInDPI(25400);
    EXPECT_FLOAT_EQ(settings().DotsPerPixel, 25400 / 96.0f);
    EXPECT_FLOAT_EQ(settings().UnitFactor, 96 / 25.4f);
    control->SetMeasurement(1);
    control->SetDefaultSize(99);
    EXPECT_EQ(get(&Control::get_Width), 1.0f);
    EXPECT_EQ(settings().Height, 25400);
}

// The four getters write through a VARIANT that refers to a second one, whatever the tags say.
TEST_F(ControlTest, SizesAreWrittenThroughNestedVariants) {
    control->SetUpdateFlag(0);
    control->SetActualSize(-5, 6, 20000, 30000);
    std::int32_t values[4] = {};
    VARIANT inner[4] = {}, outer[4] = {};
    for (int i = 0; i < 4; ++i) {
        inner[i].byref = &values[i];
        outer[i].byref = &inner[i];
    }
    EXPECT_EQ(control->GetActualSize(outer[0], outer[1], outer[2], outer[3]), S_OK);
    EXPECT_EQ(std::vector<std::int32_t>(values, values + 4), (std::vector<std::int32_t>{-5, 6, 20000, 30000}));
    EXPECT_EQ(control->GetActualSize({}, {}, {}, {}), S_OK) << "an address that is missing is not written to";
}

TEST_F(ControlTest, ResultSizeScalesTheEllipse) {
    control->SetUpdateFlag(0);
    control->SetResultSize(1, 2, 3000, 4000);  // nothing was built: the actual rectangle
    EXPECT_EQ(settings().ActualLeft, 1);
    EXPECT_EQ(settings().Height, 4000);
    control->SetUpdateFlag(1);
    control->SetDefaultSize(0);
    const float width = settings().Width, right = settings().ResultRight, bottom = settings().ResultBottom;
    ASSERT_GT(right, 0);
    control->SetUpdateFlag(0);
    control->SetResultSize(0, 0, static_cast<LONG>(2 * right), static_cast<LONG>(bottom));
    EXPECT_EQ(settings().Width, 2 * width);
    EXPECT_EQ(settings().Height, 20000);
}

TEST_F(ControlTest, APutRebuildsThenAsksForItsPlaceThenRepaints) {
    RecordingContainer container;
    control->SetClientSite(&container);
    control->SetAdvise(DVASPECT_CONTENT, 0, &container);
    control->SetScreenXY(7, -9);
    container.events.clear();
    control->SetDefaultSize(0);
    const std::string width = std::to_string(7 + static_cast<int>(settings().ScreenWidth));
    const std::string height = std::to_string(-9 + static_cast<int>(settings().ScreenHeight));
    EXPECT_EQ(container.events, (std::vector<std::string>{"posRect 7 -9 " + width + ' ' + height, "viewChange 1 -1"}));

    container.events.clear();
    control->put_SerNumIncrement(5);
    control->put_DatabaseField(Text(u"x"));
    control->SetMeasurement(0);
    control->SetStepSize(40);
    EXPECT_TRUE(container.events.empty()) << "these only store";
    const std::size_t points = paths().TextPath.size();
    control->SetUpdateFlag(0);
    control->put_TextData(Text(u"A"));
    EXPECT_TRUE(container.events.empty());
    EXPECT_EQ(paths().TextPath.size(), points) << "without updates the paths stay";
    control->SetUpdateFlag(2);
    EXPECT_EQ(container.events.size(), 2u);
    EXPECT_EQ(paths().TextPath.size(), 4u);
    control = {};
    EXPECT_EQ(container.references, 1u);
}

TEST_F(ControlTest, SetIncrementMovesTheStartOn) {
    control->put_SerNumStart(Text(u"7"));
    EXPECT_EQ(control->SetIncrement(), S_OK);
    EXPECT_EQ(settings().SerNumStart, u"7") << "serial numbers are off";
    control->put_SerialNumEnable(VARIANT_TRUE);
    control->put_ArrayXDimension(3);
    control->put_ArrayYDimension(2);
    control->put_SerNumDecimalPlaces(Two);
    control->put_SerNumIncrement(2);
    control->SetDefaultSize(0);
    const std::size_t points = paths().TextPath.size();
    EXPECT_EQ(settings().SerNumStart, u"7") << "a regeneration does not change it";
    RecordingContainer container;
    control->SetAdvise(DVASPECT_CONTENT, 0, &container);
    EXPECT_EQ(control->SetIncrement(), S_OK);
    EXPECT_EQ(settings().SerNumStart, u"19");
    EXPECT_EQ(container.events.size(), 1u) << "it rebuilds and repaints";
    EXPECT_EQ(paths().TextPath.size(), points);
    control->put_SerNumIncrement(-4);
    control->SetIncrement();
    EXPECT_EQ(settings().SerNumStart, u"19");
    control->put_ArrayXDimension(1);
    control->put_ArrayYDimension(1);
    control->put_SerNumIncrement(std::numeric_limits<LONG>::max());
    control->put_SerNumDecimalPlaces(None);
    control->SetIncrement();
    EXPECT_EQ(settings().SerNumStart, u"2147483666");
    control->SetAdvise(0, 0, nullptr);
}

// What memory cannot hold leaves the paths empty; the sizes stay, so that a later scaling still has what it scales by.
TEST_F(ControlTest, ARefusedPassKeepsTheSizes) {
    control->SetDefaultSize(0);
    const float right = settings().ResultRight, width = settings().ScreenWidth;
    control->SetUpdateFlag(0);
    control->put_SerialNumEnable(VARIANT_TRUE);
    control->put_SerialNumPrefix(Text(std::u16string(400, u'A')));
    control->put_ArrayXDimension(255);
    control->put_ArrayYDimension(255);
    control->SetActualSize(0, 0, 2000000, 2000000);
    control->SetUpdateFlag(1);
    EXPECT_TRUE(paths().TextPath.empty());
    EXPECT_EQ(settings().ResultRight, right);
    EXPECT_EQ(settings().ScreenWidth, width);
}

TEST_F(ControlTest, VectorDataGoesThroughTheBufferAddress) {
    control->SetDefaultSize(0);
    ULONG size = 0;
    control->GetVectorDataSize(&size);
    std::vector<std::byte> buffer(size + 16, std::byte{0xA5});
    VARIANT inner{}, outer{};
    inner.vt = VT_EMPTY;
    inner.byref = buffer.data();
    outer.byref = &inner;
    EXPECT_EQ(control->GetVectorData(outer, size), S_OK);
    EXPECT_EQ(buffer[0], std::byte{'u'});
    EXPECT_EQ(control->GetVectorData(outer, 12), DISP_E_BUFFERTOOSMALL);
    EXPECT_EQ(buffer[0], std::byte{'E'});
    EXPECT_EQ(buffer[size], std::byte{0xA5});
    EXPECT_EQ(control->GetOutlineData(VARIANT{}, 12), E_POINTER);
}

// Whatever a host puts, the put ends and the control lives on.
TEST_F(ControlTest, OddNumbersAndTextsAreSurvived) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinity = std::numeric_limits<float>::infinity();
    for (const float value : {0.0f, -1.0f, kNan, kInfinity, -kInfinity, 1e30f, 1e-30f, 3e6f, 1e9f}) {
        control = platform::ComPtr<Control>::adopt(Control::create(fonts, clock, 96));
        control->SetDefaultSize(0);
        control->put_FillStyle(Cross);
        for (const auto put :
             {&Control::put_Width, &Control::put_Height, &Control::put_FillDistance, &Control::put_FillLineAngle,
              &Control::put_CharSpace, &Control::put_StartAngle, &Control::put_Angle, &Control::put_ArrayXOffset,
              &Control::SetZoomFactor, &Control::SetStepSize, &Control::SetResolutionInDPI, &Control::SetDotsPerUnit})
            EXPECT_EQ((control.get()->*put)(value), S_OK);
        EXPECT_EQ(control->SetUpdateFlag(1), S_OK);
        std::vector<std::byte> buffer(1 << 20);
        VARIANT inner{}, outer{};
        inner.byref = buffer.data();
        outer.byref = &inner;
        control->GetVectorData(outer, static_cast<ULONG>(buffer.size()));
    }
    control = platform::ComPtr<Control>::adopt(Control::create(fonts, clock, 96));
    control->SetDefaultSize(0);
    for (const std::u16string& value :
         {std::u16string(), std::u16string(100000, u'A'), std::u16string(1, char16_t{0xD800}) + u"\xDC00x",
          std::u16string(u"😀é\u0301שלום"), std::u16string(u"A\0B", 3)}) {
        EXPECT_EQ(control->put_TextData(Text(value)), S_OK);
        EXPECT_EQ(text(&Control::get_TextData), value);
    }
    EXPECT_EQ(control->put_TextData(nullptr), S_OK) << "a null BSTR is the empty string";
    EXPECT_EQ(text(&Control::get_TextData), u"");
    control->put_TextData(Text(u"AB"));
    EXPECT_EQ(paths().TextPath.size(), 8u);
}

}  // namespace
}  // namespace ovaline
