#include <gmock/gmock.h>

#include <limits>

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
        {kText, u"Round"},      {kWidth, u"20.000"},    {kHeight, u"12.000"},       {kAngle, u"-12.5"},
        {kCharSpace, u"0.000"}, {kLineWidth, u"0.030"}, {kDistance, u"0.040"},      {kLineAngle, u"45.0"},
        {kCrossAngle, u"90.0"}, {kFontSize, u"5"},      {kFontStyle, u"True Type"}, {kFillStyle, u"Cross"},
    };
    for (const auto& [id, text] : texts) EXPECT_EQ(textOf(id), text) << id;
    EXPECT_TRUE(isChecked(kBold));
    EXPECT_FALSE(isChecked(kItalic));
    EXPECT_THAT(items(kOutlineStyle), testing::SizeIs(6));
    EXPECT_EQ(state(kCharSpaceSpin).range, std::pair(-2, 3));
    page->Deactivate();
    activate();
    EXPECT_THAT(site.states, ElementsAre(kDirty)) << "once more";
}

TEST_F(TextPageTest, LengthsAreInTheDisplayUnitAndAsPreciseAsTheControlWants) {
    using Case = std::tuple<INT, INT, LONG, const char16_t*, const char16_t*, std::pair<int, int>>;
    for (const auto& [measurement, precision, points, size, lineWidth, range] :
         {Case{0, 1, 0, u"25.4", u"2.5", {0, 76}},
          {1, 4, 0, u"1", u"0.1000", {0, 3}},
          {1, 0, 1, u"72", u"0", {0, 200}},
          {0, 65535, 1, u"72", u"2.539999961853027", {0, 200}}}) {
        control->SetMeasurement(0);
        control->DisplayInPoint(0);
        control->put_FontHeight(25.4f);
        control->put_FillLineWidth(2.54f);
        control->SetMeasurement(measurement);
        control->SetUnitsPrecision(precision);
        control->DisplayInPoint(points);
        open();
        EXPECT_EQ(textOf(kFontSize), size);
        EXPECT_EQ(textOf(kLineWidth), lineWidth);
        EXPECT_EQ(textOf(kAngle), u"0.0") << precision;
        EXPECT_EQ(state(kFontSizeSpin).range, range);
    }
}

TEST_F(TextPageTest, WithoutAControlThePageIsEmptyAndWritesNothing) {
    open(&site);
    EXPECT_TRUE(site.states.empty());
    EXPECT_THAT(items(kFillStyle), testing::SizeIs(4));
    EXPECT_EQ(textOf(kText) + textOf(kWidth) + textOf(kFontSize), u"");
    enter(kWidth, u"5");
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
    using Case = std::tuple<int, std::vector<const char16_t*>, States>;
    // Each follows the one before.
    const Case cases[] = {
        {kWidth, {u"20.0000", u"21", u"22 mm", u"22.0", u"0", u"-1", u"61"}, {kDirty, kClean, kDirty}},
        {kHeight, {u"12.00", u"61", u"60"}, {kClean, kDirty}},
        {kDistance, {u"0", u".04"}, {kClean}},
        {kLineWidth, {u"-0.0304"}, {kDirty}},
        {kLineAngle, {u"45"}, {kClean}},
        {kCrossAngle, {u"1e3"}, {kDirty}},
        {kStartAngle, {u""}, {kClean}},
        {kCharSpace, {u"-3"}, {kDirty}},
        {kCharWidth, {u"0"}, {kClean}},
        {kOutlineWidth, {u"0"}, {kDirty}},
        {kAngle, {u"0"}, {kClean}},
        {kFontSize, {u"5", u"5"}, {kDirty}},
    };
    openClean();
    for (const auto& [id, texts, states] : cases) {
        site.states.clear();
        for (const char16_t* const text : texts) enter(id, text);
        EXPECT_EQ(site.states, states) << id;
    }
    EXPECT_THAT(messages, ElementsAre(u"Please enter a height of 60 or less."));
    apply();
    EXPECT_EQ(settings().Width, 61000);
    EXPECT_EQ(settings().Height, 60000);
    EXPECT_FLOAT_EQ(settings().FillLineWidth, -30.4f) << "not rounded";
    EXPECT_EQ(settings().FillCrossAngle, 1000);
    EXPECT_EQ(settings().CharSpace, -3000);
    EXPECT_EQ(settings().TextOutline, 0);
    EXPECT_EQ(settings().FontHeight, 5000);
}

TEST_F(TextPageTest, SizesOutsideTheLimitsAreIgnored) {
    using Texts = std::vector<const char16_t*>;
    using Case = std::tuple<INT, LONG, Texts, Texts>;
    for (const auto& [measurement, points, ignored, taken] : {Case{0, 0, {u"0.09", u"76.21"}, {u"0.1", u"76.2"}},
                                                              {1, 0, {u"3.01"}, {u"3"}},
                                                              {1, 1, {u"0.5"}, {u"0.6", u"200"}}}) {
        control->SetMeasurement(measurement);
        control->DisplayInPoint(points);
        openClean();
        for (const char16_t* const text : ignored) enter(kFontSize, text);
        EXPECT_FALSE(isDirty()) << measurement << points;
        for (const char16_t* const text : taken) {
            enter(kFontSize, text);
            EXPECT_TRUE(isDirty()) << measurement << points;
            apply();
        }
    }
}

TEST_F(TextPageTest, SpinButtonsStepAndClamp) {
    using Case = std::tuple<INT, int, int, const char16_t*, int, const char16_t*>;
    for (const auto& [measurement, edit, button, from, clicks, to] :
         {Case{0, kWidth, kWidthSpin, u"20", 1, u"20.100"},
          {1, kWidth, kWidthSpin, u"20", -3, u"19.970"},
          {0, kWidth, kWidthSpin, u"0.1", -1, u"0.040"},
          {0, kHeight, kHeightSpin, u"59.95", 2, u"60.000"},
          {1, kAngle, kAngleSpin, u"1", 4, u"1.0"},  // each hundredth is rounded away
          {0, kFontSize, kFontSizeSpin, u"5", 1, u"5.100"},
          {1, kFontSize, kFontSizeSpin, u"2.995", 1, u"3.000"},
          {1, kFontSize, kFontSizeSpin, u"", -1, u"0.010"}}) {
        control->SetMeasurement(measurement);
        open();
        enter(edit, from);
        spin(button, clicks);
        EXPECT_EQ(textOf(edit), to) << edit;
    }
}

TEST_F(TextPageTest, StylesMakeThePageDirtyOrClean) {
    openClean();
    for (const int style : {Line, Cross, Solid, Solid}) select(kFillStyle, style);
    EXPECT_THAT(site.states, ElementsAre(kDirty, kClean));
    select(kOutlineStyle, NoOutline);
    EXPECT_THAT(site.states, ElementsAre(kDirty, kClean, kDirty));
    apply();
    EXPECT_EQ(settings().OutlineType, NoOutline);
    EXPECT_EQ(settings().FillStyle, Solid);
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
    apply();
    EXPECT_EQ(settings().FontName, u"Filament Script");
    EXPECT_EQ(settings().FontStyle, SingleStroke);
}

TEST_F(TextPageTest, WhatIsNotListedStays) {
    control->put_FontName(Text(u"Zeta"));
    control->put_FontStyle(static_cast<_txtfontstyle>(7));
    open();
    EXPECT_THAT(items(kFont), testing::SizeIs(5));
    apply();
    EXPECT_EQ(settings().FontName, u"Zeta");
    for (const int style : {SingleStroke, TrueType}) select(kFontStyle, style);
    EXPECT_EQ(textOf(kFont), u"Beta");
}

TEST_F(TextPageTest, TextAndBoxesOnlyEverMakeThePageDirty) {
    openClean();
    enter(kText, textOf(kText));
    EXPECT_FALSE(isDirty());
    for (const char16_t* const text : {u"new", u"Ovaline", u"other"}) enter(kText, text);
    click(kItalic);
    apply();
    EXPECT_FALSE(isDirty());
    EXPECT_THAT(site.states, ElementsAre(kDirty));
    EXPECT_EQ(settings().TextData, u"other");
    EXPECT_EQ(settings().FontItalic, VARIANT_TRUE);
    click(kItalic);
    EXPECT_THAT(site.states, ElementsAre(kDirty, kDirty));
}

TEST_F(TextPageTest, AnUntouchedPageWritesTheSame) {
    for (const auto& [measurement, points] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        control->SetMeasurement(0);
        control->DisplayInPoint(0);
        control->put_CharSpace(-0.1f);
        control->put_FontHeight(12.7f);
        control->put_MirrorVertical(VARIANT_TRUE);
        control->SetMeasurement(measurement);
        control->DisplayInPoint(points);
        const TextSettings before = settings();
        open();
        apply();
        EXPECT_EQ(settings().TextData, before.TextData);
        EXPECT_EQ(settings().FontName, before.FontName);
        EXPECT_NEAR(settings().FontHeight, before.FontHeight, 4);  // two decimals of a point
        EXPECT_NEAR(settings().Width, before.Width, 2);            // four decimals of an inch
        EXPECT_NEAR(settings().Height, before.Height, 2);
        EXPECT_EQ(settings().MirrorVertical, before.MirrorVertical);
        for (const auto length : {&TextSettings::FillLineWidth, &TextSettings::FillDistance, &TextSettings::TextOutline,
                                  &TextSettings::Flatness, &TextSettings::CharSpace})
            EXPECT_FLOAT_EQ(settings().*length, before.*length);
    }
}

TEST_F(TextPageTest, ASiteMayLetGoOfThePageWhileItIsTold) {
    openClean();
    site.onStatus = [this] { close(); };
    enter(kHeight, u"1");
}

TEST_F(TextPageTest, FieldsThatAreNoNumbersAreShownAndKept) {
    using Limits = std::numeric_limits<float>;
    for (const auto& [value, text] : {std::pair{Limits::quiet_NaN(), u"nan"},
                                      {-Limits::infinity(), u"-inf"},
                                      {1e30f, u"1000000015047466219876688855040.0"}}) {
        control->put_Angle(value);
        open();
        EXPECT_EQ(textOf(kAngle), text);
        spin(kAngleSpin, 1);
        EXPECT_TRUE(isDirty());
    }
    enter(kAngle, u"1e99");
    apply();
    EXPECT_EQ(settings().Angle, Limits::max());
}

}  // namespace
}  // namespace ovaline
