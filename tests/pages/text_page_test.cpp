#include <gmock/gmock.h>

#include <limits>

#include "platform/little_endian.h"
#include "tests/pages/text_fixture.h"

namespace ovaline {
namespace {

using namespace text_controls;
using ::testing::ElementsAre;

constexpr auto kDirty = DWORD{PROPPAGESTATUS_DIRTY};
constexpr auto kClean = DWORD{PROPPAGESTATUS_CLEAN};

TEST_F(TextPageTest, OpensFilledAndDirty) {
    control->put_TextData(Text(u"Round"));
    control->put_Angle(-12.5f);
    control->put_FontBold(VARIANT_TRUE);
    control->put_FillStyle(Cross);
    open();
    EXPECT_THAT(site.states, ElementsAre(kDirty));
    EXPECT_TRUE(isDirty());
    const std::pair<int, const char16_t*> texts[] = {
        {kText, u"Round"},          {kWidth, u"20.000"},       {kHeight, u"12.000"},   {kAngle, u"-12.5"},
        {kStartAngle, u"0.0"},      {kCharSpace, u"0.000"},    {kLineWidth, u"0.030"}, {kDistance, u"0.040"},
        {kLineAngle, u"45.0"},      {kCrossAngle, u"90.0"},    {kFontSize, u"5"},      {kFont, u"Beta"},
        {kFontStyle, u"True Type"}, {kOutlineWidth, u"0.030"}, {kFillStyle, u"Cross"}, {kOutlineStyle, u"Solid"},
    };
    for (const auto& [id, text] : texts) EXPECT_EQ(textOf(id), text) << id;
    EXPECT_TRUE(isChecked(kBold));
    EXPECT_FALSE(isChecked(kItalic));
    EXPECT_THAT(items(kFillStyle), ElementsAre(u"No Filling", u"Solid", u"Line", u"Cross"));
    EXPECT_THAT(items(kOutlineStyle),
                ElementsAre(u"No Outline", u"Solid", u"Dash", u"Dot", u"Dash Dot", u"Dash Dot Dot"));
    EXPECT_THAT(items(kFontStyle), ElementsAre(u"True Type", u"Single Stroke"));
    const std::pair<int, std::pair<int, int>> ranges[] = {
        {kLineWidthSpin, {1, 50}},     {kOutlineWidthSpin, {1, 50}},   {kDistanceSpin, {1, 50}},
        {kAngleSpin, {-360, 360}},     {kWidthSpin, {1, 65535}},       {kHeightSpin, {1, 65535}},
        {kCharWidthSpin, {0, 50}},     {kCharSpaceSpin, {-2, 3}},      {kStartAngleSpin, {-360, 360}},
        {kLineAngleSpin, {-360, 360}}, {kCrossAngleSpin, {-360, 360}}, {kFontSizeSpin, {0, 76}},
    };
    for (const auto& [id, range] : ranges) EXPECT_EQ(state(id).range, range) << id;
    // Until a style is chosen, what is visible follows the template alone.
    EXPECT_FALSE(state(kOutlineWidth).visible);
    EXPECT_TRUE(state(kCrossAngle).visible);
}

TEST_F(TextPageTest, LengthsAreInTheDisplayUnitAndAsPreciseAsTheControlWants) {
    struct Case {
        INT measurement, precision;
        LONG points;
        const char16_t *size, *lineWidth, *angle;
        std::pair<int, int> range;
    };
    for (const Case& c : {Case{0, 1, 0, u"25.4", u"2.5", u"0.0", {0, 76}},
                          Case{1, 4, 0, u"1", u"0.1000", u"0.0", {0, 3}}, Case{1, 0, 1, u"72", u"0", u"0.0", {0, 200}},
                          Case{0, 65535, 1, u"72", u"2.539999961853027", u"0.0", {0, 200}}}) {
        control->SetMeasurement(0);
        control->DisplayInPoint(0);
        control->put_FontHeight(25.4f);
        control->put_FillLineWidth(2.54f);
        control->SetMeasurement(c.measurement);
        control->SetUnitsPrecision(c.precision);
        control->DisplayInPoint(c.points);
        open();
        EXPECT_EQ(textOf(kFontSize), c.size) << c.precision;
        EXPECT_EQ(textOf(kLineWidth), c.lineWidth) << c.precision;
        EXPECT_EQ(textOf(kAngle), c.angle) << c.precision;
        EXPECT_EQ(state(kFontSizeSpin).range, c.range) << c.precision;
    }
}

TEST_F(TextPageTest, WithoutAControlThePageIsEmptyAndWritesNothing) {
    open(&site);
    EXPECT_TRUE(site.states.empty());
    EXPECT_THAT(items(kFillStyle), testing::SizeIs(4));
    for (const int id : {kText, kWidth, kHeight, kFontSize, kLineWidth}) EXPECT_EQ(textOf(id), u"") << id;
    EXPECT_EQ(selected(kFillStyle), -1);
    enter(kWidth, u"5");
    EXPECT_THAT(site.states, ElementsAre(kDirty));
    apply();
    EXPECT_FALSE(isDirty());
    EXPECT_THAT(site.states, ElementsAre(kDirty));
    // A control that comes later gets nothing of an empty page.
    IUnknown* late = static_cast<INorvel_OvalineCtrl*>(control.get());
    page->SetObjects(1, &late);
    apply();
    EXPECT_EQ(settings().FontName, u"Beta");
}

TEST_F(TextPageTest, NumbersAreCheckedAndMakeThePageDirtyOrClean) {
    struct Case {
        int id;
        const char16_t* text;
        States states;
    };
    // Each follows the one before.
    const Case cases[] = {
        {kWidth, u"20.0000", {}},
        {kWidth, u"21", {kDirty}},
        {kWidth, u"22 mm", {}},
        {kWidth, u"22.0", {kClean}},
        {kWidth, u"0", {}},
        {kWidth, u"-1", {}},
        {kWidth, u"none", {}},
        {kWidth, u"61", {kDirty}},
        {kHeight, u"12.00", {kClean}},
        {kHeight, u"61", {}},
        {kHeight, u"0", {}},
        {kHeight, u"60", {kDirty}},
        {kDistance, u"0", {}},
        {kDistance, u".04", {kClean}},
        {kLineWidth, u"-2", {kDirty}},
        {kLineAngle, u"45", {kClean}},
        {kCrossAngle, u"1e3", {kDirty}},
        {kStartAngle, u"", {kClean}},
        {kCharSpace, u"-3", {kDirty}},
        {kCharWidth, u"0", {kClean}},
        {kOutlineWidth, u"0", {kDirty}},
        {kAngle, u"0", {kClean}},
        {kFontSize, u"5", {kDirty}},
        {kFontSize, u"5", {}},
    };
    openClean();
    for (const auto& [id, text, states] : cases) {
        site.states.clear();
        enter(id, text);
        EXPECT_EQ(site.states, states) << id << ' ' << testing::PrintToString(std::u16string(text));
    }
    EXPECT_THAT(messages, ElementsAre(u"Please enter a height of 60 or less."));
    apply();
    EXPECT_EQ(settings().Width, 61000);
    EXPECT_EQ(settings().Height, 60000);
    EXPECT_EQ(settings().FillDistance, 40);
    EXPECT_EQ(settings().FillLineWidth, -2000);
    EXPECT_EQ(settings().FillCrossAngle, 1000);
    EXPECT_EQ(settings().CharSpace, -3000);
    EXPECT_EQ(settings().TextOutline, 0);
    EXPECT_EQ(settings().FontHeight, 5000);
}

TEST_F(TextPageTest, SizesOutsideTheLimitsAreIgnored) {
    struct Case {
        INT measurement;
        LONG points;
        const char16_t* text;
        bool taken;
    };
    for (const Case& c : {Case{0, 0, u"0.1", true}, Case{0, 0, u"0.09", false}, Case{0, 0, u"76.2", true},
                          Case{0, 0, u"76.21", false}, Case{1, 0, u"0.01", true}, Case{1, 0, u"3.01", false},
                          Case{0, 1, u"200", true}, Case{1, 1, u"0.5", false}, Case{1, 1, u"0.6", true}}) {
        control->SetMeasurement(c.measurement);
        control->DisplayInPoint(c.points);
        openClean();
        enter(kFontSize, c.text);
        EXPECT_EQ(isDirty(), c.taken) << testing::PrintToString(std::u16string(c.text));
    }
}

TEST_F(TextPageTest, SpinButtonsStepAndClamp) {
    struct Case {
        INT measurement;
        int edit, spin;
        const char16_t* from;
        int clicks;
        const char16_t* to;
    };
    const Case cases[] = {
        {0, kWidth, kWidthSpin, u"20", 1, u"20.100"},
        {1, kWidth, kWidthSpin, u"20", -3, u"19.970"},
        {0, kWidth, kWidthSpin, u"0.1", -1, u"0.040"},
        {0, kHeight, kHeightSpin, u"59.95", 2, u"60.000"},
        {0, kAngle, kAngleSpin, u"1", -5, u"0.5"},
        {1, kAngle, kAngleSpin, u"1", 4, u"1.0"},  // each hundredth is rounded away
        {0, kStartAngle, kStartAngleSpin, u"-359.95", -1, u"-360.0"},
        {0, kDistance, kDistanceSpin, u"0.1", -1, u"0.030"},
        {0, kCharSpace, kCharSpaceSpin, u"-14.95", -1, u"-15.000"},
        {0, kLineWidth, kLineWidthSpin, u"500", 1, u"50.000"},
        {0, kFontSize, kFontSizeSpin, u"5", 1, u"5.100"},
        {1, kFontSize, kFontSizeSpin, u"2.995", 1, u"3.000"},
        {1, kFontSize, kFontSizeSpin, u"", -1, u"0.010"},
    };
    for (const Case& c : cases) {
        control->SetMeasurement(c.measurement);
        open();
        enter(c.edit, c.from);
        spin(c.spin, c.clicks);
        EXPECT_EQ(textOf(c.edit), c.to) << c.edit;
    }
    EXPECT_TRUE(isDirty());
}

TEST_F(TextPageTest, StylesShowWhatTheyNeed) {
    const auto visible = [&](std::initializer_list<int> ids) {
        return std::ranges::all_of(ids, [&](int id) { return state(id).visible; });
    };
    const auto hidden = [&](std::initializer_list<int> ids) {
        return std::ranges::none_of(ids, [&](int id) { return state(id).visible; });
    };
    const auto hatch = {1208, 1209, 1210, 1217, 1218, 1219, 1231, 1232, 1233};
    const auto cross = {1211, 1220, 1234};
    const auto outline = {1206, 1215, 1229};
    openClean();
    select(kFillStyle, Line);
    EXPECT_TRUE(visible(hatch) && hidden(cross));
    select(kFillStyle, Cross);
    EXPECT_TRUE(visible(hatch) && visible(cross));
    for (const int style : {NoFilling, Solid}) {
        select(kFillStyle, style);
        EXPECT_TRUE(hidden(hatch) && hidden(cross)) << style;
    }
    EXPECT_THAT(site.states, ElementsAre(kDirty));
    select(kFillStyle, Solid);
    EXPECT_THAT(site.states, ElementsAre(kDirty, kClean));
    select(kOutlineStyle, DashDotDot);
    EXPECT_TRUE(visible(outline));
    select(kOutlineStyle, NoOutline);
    EXPECT_TRUE(hidden(outline));
    EXPECT_THAT(site.states, ElementsAre(kDirty, kClean, kDirty));
    apply();
    EXPECT_EQ(settings().OutlineType, NoOutline);
}

TEST_F(TextPageTest, FontsAreListedByStyleAndEachStyleRemembersItsOwn) {
    control->put_FontName(Text(u"BETA C"));
    open();
    EXPECT_THAT(items(kFont), ElementsAre(u"Beta", u"beta Condensed", u"Gamma"));
    EXPECT_EQ(textOf(kFont), u"beta Condensed");
    select(kFont, 2);
    select(kFontStyle, SingleStroke);
    EXPECT_THAT(items(kFont), ElementsAre(u"Filament SanSerif", u"Filament Script"));
    EXPECT_EQ(textOf(kFont), u"Filament SanSerif");
    select(kFont, 1);
    select(kFontStyle, TrueType);
    EXPECT_EQ(textOf(kFont), u"Gamma");
    select(kFontStyle, SingleStroke);
    EXPECT_EQ(textOf(kFont), u"Filament Script");
    apply();
    EXPECT_EQ(settings().FontName, u"Filament Script");
    EXPECT_EQ(settings().FontStyle, SingleStroke);
}

TEST_F(TextPageTest, ASingleStrokeFontBringsItsStyle) {
    control->put_FontStyle(static_cast<_txtfontstyle>(7));
    open();
    EXPECT_THAT(items(kFont), testing::SizeIs(5));
    select(kFont, 3);
    apply();
    EXPECT_EQ(settings().FontStyle, SingleStroke);
}

TEST_F(TextPageTest, AFontThatIsNotListedStays) {
    control->put_FontName(Text(u"Zeta"));
    open();
    EXPECT_EQ(selected(kFont), -1);
    EXPECT_TRUE(isDirty());
    apply();
    EXPECT_EQ(settings().FontName, u"Zeta");
    select(kFontStyle, SingleStroke);
    select(kFontStyle, TrueType);
    EXPECT_EQ(textOf(kFont), u"Beta");
}

TEST_F(TextPageTest, TextAndBoxesOnlyEverMakeThePageDirty) {
    openClean();
    enter(kText, textOf(kText));
    EXPECT_FALSE(isDirty());
    enter(kText, u"new");
    enter(kText, u"Ovaline");
    EXPECT_THAT(site.states, ElementsAre(kDirty));
    click(kItalic);
    EXPECT_TRUE(isDirty());
    apply();
    EXPECT_FALSE(isDirty());
    EXPECT_THAT(site.states, ElementsAre(kDirty));
    EXPECT_EQ(settings().FontItalic, VARIANT_TRUE);
    click(kItalic);
    EXPECT_THAT(site.states, ElementsAre(kDirty, kDirty));
}

TEST_F(TextPageTest, ApplyWritesInOrder) {
    openClean();
    enter(kText, u"Other");
    enter(kHeight, u"10");
    enter(kLineWidth, u"0.0304");
    EXPECT_EQ(settings().TextData, u"Ovaline");
    EXPECT_EQ(regenerations(), 0);
    apply();
    // With the update flag, with the record, and with each setting of the font.
    EXPECT_EQ(regenerations(), 6);
    EXPECT_EQ(settings().TextData, u"Other");
    EXPECT_EQ(settings().Height, 10000);
    EXPECT_FLOAT_EQ(settings().FillLineWidth, 30.4f);  // not rounded
    EXPECT_EQ(settings().UpdateFlag, 1);
}

TEST_F(TextPageTest, AClosedPageWritesNothingAndAnUntouchedOneTheSame) {
    for (const auto& [measurement, points] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        control->SetMeasurement(0);
        control->DisplayInPoint(0);
        control->put_CharSpace(-0.1f);
        control->put_FontHeight(12.7f);
        control->put_MirrorVertical(VARIANT_TRUE);
        control->SetMeasurement(measurement);
        control->DisplayInPoint(points);
        const TextSettings before = settings();
        const auto expectUnchanged = [&] {
            EXPECT_EQ(settings().TextData, before.TextData);
            EXPECT_EQ(settings().FontName, before.FontName);
            EXPECT_NEAR(settings().FontHeight, before.FontHeight, 4);  // two decimals of a point
            EXPECT_NEAR(settings().Width, before.Width, 2);            // four decimals of an inch
            EXPECT_NEAR(settings().Height, before.Height, 2);
            EXPECT_EQ(settings().MirrorVertical, before.MirrorVertical);
            for (const auto length : {&TextSettings::FillLineWidth, &TextSettings::FillDistance,
                                      &TextSettings::TextOutline, &TextSettings::Flatness, &TextSettings::CharSpace})
                EXPECT_FLOAT_EQ(settings().*length, before.*length);
        };
        open();
        enter(kText, u"Other");
        enter(kWidth, u"1");
        select(kFontStyle, SingleStroke);
        close();
        expectUnchanged();
        open();
        apply();
        expectUnchanged();
    }
}

TEST_F(TextPageTest, ASiteMayCloseThePageWhileItIsTold) {
    openClean();
    site.onStatus = [this] { page->Deactivate(); };
    enter(kHeight, u"1");
    EXPECT_EQ(page->Apply(), E_UNEXPECTED);
    site.onStatus = [] {};
}

TEST_F(TextPageTest, FieldsThatAreNoNumbersAreShownAndKept) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const std::pair<float, const char16_t*> cases[] = {{std::numeric_limits<float>::quiet_NaN(), u"nan"},
                                                       {-kInfinity, u"-inf"},
                                                       {1e30f, u"1000000015047466219876688855040.0"}};
    for (const auto& [value, text] : cases) {
        control->put_Angle(value);
        open();
        EXPECT_EQ(textOf(kAngle), text);
        spin(kAngleSpin, 1);
        EXPECT_TRUE(isDirty());
    }
    enter(kAngle, u"1e99");
    apply();
    EXPECT_EQ(settings().Angle, std::numeric_limits<float>::max());
}

}  // namespace
}  // namespace ovaline
