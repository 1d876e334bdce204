// What the serial number and AutoDate page shows of a control and what it writes.
#include "platform/resources.h"
#include "tests/pages/serial_fixture.h"

namespace ovaline {
namespace {

using States = std::vector<DWORD>;
const States kDirty = {PROPPAGESTATUS_DIRTY};
const States kDirtyThenClean = {PROPPAGESTATUS_DIRTY, PROPPAGESTATUS_CLEAN};

TEST_F(SerialPageTest, OpensWithWhatTheControlHolds) {
    put(with([](auto& s) { s.increment = -7, s.dateOffset = 30; }), u"%d");
    open();
    const std::pair<int, std::u16string> texts[] = {{244, u"SN-"},
                                                    {245, u"42"},
                                                    {246, u"/A"},
                                                    {247, u"-7"},
                                                    {265, u"30"},
                                                    {205, u"%d"},
                                                    {263, u"SN-0042/A17.12.2026"}};
    for (const auto& [id, text] : texts) EXPECT_EQ(textOf(id), text) << id;
    const std::pair<int, int> lists[] = {{243, 0}, {248, 4}, {257, 13}, {273, -1}};
    for (const auto& [id, item] : lists) EXPECT_EQ(selected(id), item) << id;
    for (const int id : {258, 259, 260, 261}) EXPECT_EQ(isChecked(id), id == 261) << id;
    EXPECT_EQ(state(245).limit, 4);
    EXPECT_EQ(state(245).digitsOnly, true);
    expectVisibility();
    EXPECT_EQ(regenerations(), 0);
}

TEST_F(SerialPageTest, WhatIsVisibleFollowsTheBoxesAndTheFormat) {
    put(with([](auto& s) { s.serialOn = s.dateOn = false; }), u"%d");
    open();
    expectVisibility();
    EXPECT_EQ(preview(), u"");
    EXPECT_FALSE(isDirty());
    EXPECT_EQ(site.states, States());
    for (const int box : {241, 255, 241, 241, 255, 255}) {
        click(box);
        expectVisibility();
    }
    for (const int format : {16, 3, 16}) {
        select(257, format);
        expectVisibility();
    }
    click(255);
    expectVisibility();
    EXPECT_EQ(preview(), u"SN-0042/A");
}

TEST_F(SerialPageTest, TheDatesBoxEmptiesThePreview) {
    put(with([](auto& s) { s.serialOn = false; }), u"");
    open();
    click(255);
    EXPECT_EQ(preview(), u"");
    click(241);
    click(241);
    EXPECT_EQ(preview(), u"SN-0042/A") << "hidden, and compared with the reference";
}

TEST_F(SerialPageTest, DigitCountsCutAndLimitTheStart) {
    struct Row {
        std::u16string start;
        std::int32_t opened;
        std::u16string shown;
        int chosen;
        std::u16string cut;
        std::optional<int> limit;
    };
    const Row rows[] = {
        {u"004711", 6, u"004711", 3, u"004", 3},
        {u"12345", 4, u"1234", 15, u"1234", 15},
        {u"12345", 0, u"12345", 1, u"1", 1},
        {u"12345", 5, u"12345", 0, u"12345", std::nullopt},
        {u"A\U0001F600", 3, u"A\U0001F600", 2, u"A\xD83D", 2},
    };
    for (const Row& row : rows) {
        put(with([&](auto& s) { s.start = row.start, s.digitCount = row.opened; }), u"");
        open();
        EXPECT_EQ(textOf(245), row.shown);
        select(248, row.chosen);
        EXPECT_EQ(textOf(245), row.cut);
        EXPECT_EQ(state(245).limit.value(), row.limit);
        page->Apply();
        EXPECT_EQ(settings().SerNumStart, row.cut);
        EXPECT_EQ(settings().SerNumDecimalPlaces, row.chosen);
    }
}

TEST_F(SerialPageTest, AStartThatIsCutAtOpeningIsWritten) {
    put(with([](auto& s) { s.start = u"12345"; }), u"");
    open();
    page->Apply();
    EXPECT_EQ(settings().SerNumStart, u"1234");
}

TEST_F(SerialPageTest, TheTypeSaysWhatTheStartTakes) {
    open();
    type(245, u"A1B2");
    EXPECT_EQ(textOf(245), u"12");
    select(243, 1);
    type(245, u"A1B2C3");
    EXPECT_EQ(preview(), u"SN-A1B2/A17.11.2026");
    select(243, 0);
    type(245, u"A7");
    EXPECT_EQ(preview(), u"SN-0007/A17.11.2026");
}

TEST_F(SerialPageTest, TheOffsetIsCutTowardZero) {
    const std::pair<std::u16string, std::u16string> rows[] = {
        {u"2.9", u"19.11.2026"},
        {u"-1.9", u"16.11.2026"},
        {u"abc", u"17.11.2026"},

        {u".9", u"17.11.2026"},
        {u"2.95e1", u"16.12.2026"},
        {u" +3x", u"20.11.2026"},
        {u"- 5", u"17.11.2026"},
        {u"99999999999", u"Invalid DateTime"},
        {u"-99999999999999999999", u"Invalid DateTime"},
    };
    open();
    click(241);
    for (const auto& [typed, date] : rows) {
        type(265, typed);
        EXPECT_EQ(preview(), date);
    }
}

TEST_F(SerialPageTest, EachRefreshReadsTheClock) {
    open();
    clock.set({{2027, 1, 1, 0, 0, 0}});
    type(246, u"-");
    EXPECT_EQ(preview(), u"SN-0042-01.01.2027");
}

TEST_F(SerialPageTest, TheHelperAppendsCodes) {
    open();
    select(257, 16);
    EXPECT_EQ(preview(), u"SN-0042/Adefault");
    doubleClick(273, 3);
    doubleClick(273, 2);
    EXPECT_EQ(textOf(205), u"%d%m");
    EXPECT_EQ(preview(), u"SN-0042/A1711");
    type(205, u"");
    for (int item = 0; item < 9; ++item) doubleClick(273, item);
    EXPECT_EQ(textOf(205), u"%y%b%m%d%H%M%S%j%Y");
    page->Apply();
    EXPECT_EQ(settings().CustomAutoText, u"%y%b%m%d%H%M%S%j%Y");
    EXPECT_EQ(settings().AutoDateFormat, Custom);
}

TEST_F(SerialPageTest, APatternIsCutWhereThePreviewTakesIt) {
    const std::u16string pattern(60, u'x'), cut(49, u'x');
    for (const bool isCustom : {false, true}) {
        put(with([&](auto& s) { s.dateFormat = isCustom ? Custom : Format13; }), pattern);
        open();
        EXPECT_EQ(textOf(205), pattern);
        page->Apply();
        EXPECT_EQ(settings().CustomAutoText, isCustom ? cut : pattern);
    }
    EXPECT_EQ(preview(), u"SN-0042/A" + cut);
}

TEST_F(SerialPageTest, ComparesThePreviewWithTheTextAtOpening) {
    open();
    EXPECT_TRUE(isDirty()) << "the first tests meet an empty reference";
    EXPECT_EQ(site.states, kDirty);
    type(244, u"SNx");
    EXPECT_EQ(site.states, kDirty);
    type(244, u"SN-");
    EXPECT_EQ(site.states, kDirtyThenClean);
    type(247, u"2");
    EXPECT_TRUE(isDirty());
    type(247, u"1");
    EXPECT_FALSE(isDirty());

    page->Deactivate();
    activate();
    EXPECT_FALSE(isDirty()) << "opened again, against the reference of before";
    EXPECT_EQ(preview(), u"SN-0042/A17.11.2026");
}

// The reference holds the date whatever the box says, and neither its offset nor an alphanumeric number.
TEST_F(SerialPageTest, SomeSettingsStayDirtyWhenTheyAreAsLoaded) {
    const SerialSettings rows[] = {
        with([](auto& s) { s.dateOn = false; }),
        with([](auto& s) { s.dateOffset = 1; }),
        with([](auto& s) { s.type = Alphanumeric; }),
    };
    for (const SerialSettings& row : rows) {
        put(row, u"");
        open();
        page->Apply();
        EXPECT_FALSE(isDirty());
        type(244, row.prefix);
        EXPECT_TRUE(isDirty());
    }
}

TEST_F(SerialPageTest, ApplyWritesTheDifferencesAtOnce) {
    open();
    type(245, u"77");
    click(255);
    // What the page has not changed is not written over what the control was given meanwhile.
    put(with([](auto& s) { s.prefix = u"other", s.increment = 9, s.type = 5, s.datePosition = 1; }), u"gone");
    EXPECT_EQ(regenerations(), 0);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(regenerations(), 1);
    EXPECT_EQ(settings().UpdateFlag, 1);
    EXPECT_EQ(settings().SerNumStart, u"77");
    EXPECT_EQ(settings().AutoDateEnable, 0);
    EXPECT_EQ(settings().CustomAutoText, u"");
    EXPECT_EQ(settings().SerialNumPrefix, u"other");
    EXPECT_EQ(settings().SerNumIncrement, 9);
    EXPECT_EQ(settings().SerialNumberType, 5);
    EXPECT_EQ(settings().AutoDatePosition, 1);
    EXPECT_EQ(site.states, kDirtyThenClean);

    put(kBoth, u"");
    click(255);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(settings().AutoDateEnable, 1) << "flags are written as 1";
    EXPECT_EQ(settings().SerNumStart, u"42") << "written before, and not changed since";
    EXPECT_EQ(regenerations(), 1);
}

TEST_F(SerialPageTest, EverySettingIsWritten) {
    open();
    select(243, 1);
    type(244, u"p");
    type(245, u"ABC");
    type(246, u"s");
    type(247, u"99999999999");
    type(265, u"2.9");
    select(248, 7);
    select(257, 2);
    click(259);
    page->Apply();
    EXPECT_EQ(settings().SerialNumberType, Alphanumeric);
    EXPECT_EQ(settings().SerialNumPrefix, u"p");
    EXPECT_EQ(settings().SerNumStart, u"ABC");
    EXPECT_EQ(settings().SerNumSuffix, u"s");
    EXPECT_EQ(settings().SerNumIncrement, 0) << "too large for a number";
    EXPECT_EQ(settings().AutoDateOffset, 2);
    EXPECT_EQ(settings().SerNumDecimalPlaces, Seven);
    EXPECT_EQ(settings().AutoDateFormat, Format02);
    EXPECT_EQ(settings().AutoDatePosition, After_Prefix);
    EXPECT_EQ(preview(), u"pNovember 19, 20260000ABCs");
    type(265, u"99999999999");
    page->Apply();
    EXPECT_EQ(settings().AutoDateOffset, 0);
}

TEST_F(SerialPageTest, ClosingWritesNothing) {
    open();
    type(245, u"77");
    click(241);
    close();
    EXPECT_EQ(settings().SerNumStart, u"42");
    EXPECT_EQ(settings().SerialNumEnable, VARIANT_TRUE);
    EXPECT_EQ(regenerations(), 0);
}

TEST_F(SerialPageTest, ValuesOutsideTheListsSelectNothing) {
    const auto nonsense = [](auto& s) {
        s.serialOn = s.dateOn = false;
        s.type = 2, s.digitCount = 16, s.dateFormat = std::numeric_limits<std::int32_t>::min(), s.datePosition = 262;
        s.start = u"1234567890123456789";
    };
    put(with(nonsense), u"");
    open();
    for (const int id : {243, 248, 257}) EXPECT_EQ(selected(id), -1) << id;
    for (const int id : {258, 259, 260, 261}) EXPECT_FALSE(isChecked(id)) << id;
    EXPECT_EQ(textOf(245), u"1234567890123456789");
    EXPECT_EQ(state(245).limit.value(), std::nullopt);
    EXPECT_EQ(state(245).digitsOnly, false);
    page->Apply();
    EXPECT_EQ(settings().SerialNumberType, -1);
    EXPECT_EQ(settings().SerNumDecimalPlaces, -1);
    EXPECT_EQ(settings().AutoDateFormat, 19999);
    EXPECT_EQ(settings().AutoDatePosition, -1);

    click(255);
    EXPECT_EQ(selected(257), 0);
    EXPECT_EQ(selected(243), -1);
    click(241);
    for (const int id : {243, 248}) EXPECT_EQ(selected(id), 0) << id;
    EXPECT_EQ(preview(), u"") << "no position, no text";
    EXPECT_EQ(textOf(245), u"1234567890123456789");

    put(with([](auto& s) { s.datePosition = 257; }), u"");
    open();
    EXPECT_EQ(site.states, States()) << "without a text as without a reference";
}

TEST_F(SerialPageTest, AnObjectThatIsNoControlIsLeftAlone) {
    open(&site);
    for (const int id : {244, 245, 246, 247, 265, 205, 263}) EXPECT_EQ(textOf(id), u"") << id;
    click(241);
    type(245, u"5");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_TRUE(isDirty());
    expectVisibility();

    IUnknown* late = static_cast<INorvel_OvalineCtrl*>(control.get());
    page->SetObjects(1, &late);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(regenerations(), 0);
    EXPECT_EQ(settings().SerNumStart, u"42");
}

TEST_F(SerialPageTest, ListsAreInTheLanguageAtOpening) {
    struct Row {
        int list;
        std::uint32_t first;
        std::uint32_t count;
    };
    const Row rows[] = {{273, 20500, 9}, {243, 10129, 2}, {257, 10132, 17}, {248, 10201, 16}};
    for (const std::uint16_t id : std::initializer_list<std::uint16_t>{1031, 1033, 1041, 1045, 1049, 2052}) {
        language = id;
        open();
        for (const Row& row : rows) {
            const auto items = state(row.list).items.value();
            ASSERT_EQ(items.size(), row.count);
            for (std::uint32_t i = 0; i < row.count; ++i)
                EXPECT_EQ(items[i], platform::loadString(row.first + i, id)) << id;
        }
        EXPECT_EQ(preview(), u"SN-0042/A17.11.2026");
    }
}

// A host may close or apply as soon as it hears of a change.
TEST_F(SerialPageTest, TheSiteMayActOnAReport) {
    open();
    page->Apply();
    site.onStatus = [&] { page->Apply(); };
    type(245, u"5");
    type(245, u"6");
    EXPECT_EQ(settings().SerNumStart, u"6");
    EXPECT_FALSE(isDirty());
    site.onStatus = [&] { page->Deactivate(); };
    frame->type(245, u"7");
    EXPECT_EQ(page->Apply(), E_UNEXPECTED);
    EXPECT_EQ(settings().SerNumStart, u"6");
}

}  // namespace
}  // namespace ovaline
