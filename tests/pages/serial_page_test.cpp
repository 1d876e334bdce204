// What the serial number and AutoDate page shows of a control and what it writes, besides what holds after every
// action.
#include "tests/pages/serial_fixture.h"

namespace ovaline {
namespace {

using States = std::vector<DWORD>;
const States kDirty = {PROPPAGESTATUS_DIRTY};
const States kDirtyThenClean = {PROPPAGESTATUS_DIRTY, PROPPAGESTATUS_CLEAN};

TEST_F(SerialPageTest, OpensWithWhatTheControlHolds) {
    put(with([](auto& s) { s.increment = -7, s.dateOffset = 30; }), u"%d");
    open();
    const std::u16string texts[] = {u"SN-", u"42", u"/A", u"-7", u"30", u"%d", u"SN-0042/A17.12.2026"};
    const std::u16string* text = texts;
    for (const int id : {244, 245, 246, 247, 265, 205, 263}) EXPECT_EQ(textOf(id), *text++) << id;
    for (const auto& [id, item] : {std::pair{243, 0}, {248, 4}, {257, 13}, {273, -1}}) EXPECT_EQ(selected(id), item);
    EXPECT_TRUE(isChecked(261));
    EXPECT_EQ(regenerations(), 0);
}

TEST_F(SerialPageTest, TheDatesBoxEmptiesThePreview) {
    put(with([](auto& s) { s.serialOn = s.dateOn = false; }), u"");
    open();
    EXPECT_EQ(site.states, States());
    for (const int box : {255, 255}) click(box);
    EXPECT_EQ(preview(), u"");
    for (const int box : {241, 241}) click(box);
    EXPECT_EQ(preview(), u"SN-0042/A") << "hidden, and compared with the reference";
}

TEST_F(SerialPageTest, DigitCountsCutTheStart) {
    using Row = std::tuple<std::u16string, int, std::u16string, int, std::u16string>;
    for (const auto& [start, loaded, shown, chosen, cut] : {Row{u"004711", 6, u"004711", 3, u"004"},
                                                            {u"12345", 4, u"1234", 15, u"1234"},
                                                            {u"12345", 0, u"12345", 1, u"1"},
                                                            {u"A\U0001F600", 3, u"A\U0001F600", 2, u"A\xD83D"}}) {
        put(with([&, &text = start, count = loaded](auto& s) { s.start = text, s.digitCount = count; }), u"");
        open();
        EXPECT_EQ(textOf(245), shown);
        select(248, chosen);
        EXPECT_EQ(textOf(245), cut);
        page->Apply();
        EXPECT_EQ(settings().SerNumStart, cut);
    }
}

TEST_F(SerialPageTest, TheHelperAppendsCodes) {
    open();
    select(257, 16);
    EXPECT_EQ(preview(), u"SN-0042/Adefault");
    type(205, u"");
    for (int item = 0; item < 9; ++item) doubleClick(273, item);
    page->Apply();
    EXPECT_EQ(settings().CustomAutoText, u"%y%b%m%d%H%M%S%j%Y");
}

TEST_F(SerialPageTest, APatternIsCutWhereThePreviewTakesIt) {
    const std::u16string pattern(60, u'x');
    for (const auto& [format, taken] : {std::pair{Format13, 60u}, {Custom, 49u}}) {
        put(with([wanted = format](auto& s) { s.dateFormat = wanted; }), pattern);
        open();
        EXPECT_EQ(textOf(205), pattern);
        page->Apply();
        EXPECT_EQ(settings().CustomAutoText, pattern.substr(0, taken));
    }
}

TEST_F(SerialPageTest, ComparesThePreviewWithTheTextAtOpening) {
    open();
    EXPECT_EQ(site.states, kDirty) << "the first tests meet an empty reference";
    type(244, u"SN-");
    EXPECT_EQ(site.states, kDirtyThenClean);
    type(247, u"2");
    EXPECT_TRUE(isDirty()) << "an increment that the preview doesn't show";
    type(247, u"1");
    page->Deactivate();
    activate();
    EXPECT_FALSE(isDirty()) << "opened again, against the reference of before";
    clock.set({{2027, 1, 1, 0, 0, 0}});
    type(246, u"-");
    EXPECT_EQ(preview(), u"SN-0042-01.01.2027");

    put(with([](auto& s) { s.type = Alphanumeric; }), u"");
    open();
    page->Apply();
    type(244, u"SN-");
    EXPECT_TRUE(isDirty()) << "the reference has no alphanumeric number";
}

TEST_F(SerialPageTest, ApplyWritesTheDifferencesAtOnce) {
    open();
    type(245, u"77");
    click(255);
    // What the page has not changed is not written over what the control was given meanwhile.
    put(with([](auto& s) { s.prefix = u"other", s.increment = 9; }), u"gone");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(regenerations(), 1);
    EXPECT_EQ(settings().SerNumStart, u"77");
    EXPECT_EQ(settings().AutoDateEnable, 0);
    EXPECT_EQ(settings().CustomAutoText, u"");
    EXPECT_EQ(settings().SerialNumPrefix, u"other");
    EXPECT_EQ(settings().SerNumIncrement, 9);
    EXPECT_EQ(site.states, kDirtyThenClean);

    put(kBoth, u"");
    click(255);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(settings().AutoDateEnable, 1) << "flags are written as 1";
    EXPECT_EQ(settings().SerNumStart, u"42") << "written before, and not changed since";
}

TEST_F(SerialPageTest, ValuesOutsideTheListsSelectNothing) {
    put(with([](auto& s) {
            s.serialOn = s.dateOn = false;
            s.type = 2, s.digitCount = 16, s.dateFormat = 20017, s.datePosition = 262;
        }),
        u"");
    open();
    for (const int id : {243, 248, 257}) EXPECT_EQ(selected(id), -1) << id;
    click(255);
    EXPECT_EQ(selected(257), 0);
    EXPECT_EQ(selected(243), -1);
    click(241);
    for (const int id : {243, 248}) EXPECT_EQ(selected(id), 0) << id;
    EXPECT_EQ(preview(), u"") << "no position, no text";

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
    IUnknown* late = static_cast<INorvel_OvalineCtrl*>(control.get());
    page->SetObjects(1, &late);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(regenerations(), 0) << "gets nothing of an empty page";
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
    site.onStatus = [&] {
        page->Deactivate();
        EXPECT_EQ(page->Apply(), E_UNEXPECTED);
    };
    frame->type(245, u"7");
    EXPECT_EQ(page->Apply(), E_UNEXPECTED);
    EXPECT_EQ(settings().SerNumStart, u"6");
}

}  // namespace
}  // namespace ovaline
