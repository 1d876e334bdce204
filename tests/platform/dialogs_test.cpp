// What every backend of the dialog service does, seen from both sides: by a dialog's owner and by a person.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "platform/dialog_driver.h"
#include "platform/dialogs.h"
#include "platform/drawing.h"

namespace ovaline::platform {
namespace {

constexpr std::uint16_t kEnglish = 1033;
constexpr std::uint32_t kTextPage = 105;
constexpr std::uint32_t kSerialPage = 110;

// Controls of the text page, then of the serial page.
constexpr int kEdit = 201, kHiddenEdit = 1239, kSorted = 1004, kUnsorted = 266, kCheck = 205, kSpin = 208,
              kPicture = 1201, kLabel = 202;
constexpr int kPrefix = 244, kIncrement = 247, kReadOnly = 263, kListBox = 273;
constexpr std::array kRadios = {258, 259, 260, 261};

class DialogTest : public ::testing::Test, protected DialogEvents {
protected:
    void open(std::uint32_t templateId) {
        dialog_ = makeDialog(templateId, kEnglish, frame_->window(), *this);
        ASSERT_TRUE(dialog_);
        dialog_->setVisible(true);
    }
    /// What was reported since the last time.
    std::string reports() { return std::exchange(reports_, {}); }
    ControlState read(int id) { return frame_->read(id).value(); }

    void note(const std::string& what, int id) {
        reports_ += what + std::to_string(id) + " ";
        if (onReport_) onReport_();
    }
    void textChanged(int id) override { note("text", id); }
    void selectionChanged(int id) override { note("selection", id); }
    void clicked(int id) override { note("click", id); }
    void doubleClicked(int id) override { note("double", id); }
    void spun(int id, int delta) override { note(delta > 0 ? "up" : "down", id); }
    void paint(int id, HDC dc, const RECT& area) override {
        painted_ = area;
        makeCanvas(dc)->fillOutside({0, 0, 1, 1}, {}, kOpaqueBlack);
        note("paint", id);
    }

    std::string reports_;
    std::function<void()> onReport_;
    RECT painted_{};
    std::u16string messages_;
    std::unique_ptr<DialogFrame> frame_ = makeDialogFrame([this](const std::u16string& text) { messages_ += text; });
    std::unique_ptr<Dialog> dialog_;
};

TEST_F(DialogTest, TemplatesComeInSixLanguagesAndFitOneInAFrame) {
    EXPECT_FALSE(makeDialog(kTextPage, kEnglish, nullptr, *this));
    EXPECT_FALSE(makeDialog(106, kEnglish, frame_->window(), *this));
    EXPECT_FALSE(makeDialog(kTextPage, 1036, frame_->window(), *this));
    const std::pair<std::uint16_t, const char16_t*> titles[] = {
        {1031, u"Seriennummer aktivieren"}, {1033, u"Enable Serialization"}, {1041, u"シリアル番号を使用"},
        {1045, u"Włącz numer seryjny"},     {1049, u"Включить нумерацию"},   {2052, u"启用序列号"}};
    for (const auto& [language, title] : titles) {
        dialog_.reset();  // before the next one takes its place
        dialog_ = makeDialog(kSerialPage, language, frame_->window(), *this);
        ASSERT_TRUE(dialog_);
        EXPECT_EQ(dialog_->text(241), title);
        EXPECT_FALSE(read(241).visible) << "a new dialog is invisible";
    }
    EXPECT_FALSE(makeDialog(kTextPage, kEnglish, frame_->window(), *this)) << "the frame is taken";
    EXPECT_FALSE(makeDialog(kTextPage, kEnglish, dialog_->window(), *this)) << "no frame";
    const auto ids = frame_->controls();
    EXPECT_EQ(std::vector(ids.begin(), ids.begin() + 4), (std::vector{241, 242, 243, 255}));
    EXPECT_EQ(ids.back(), kReadOnly);
    EXPECT_EQ(dialogSize(kTextPage).cx, 495);
    EXPECT_EQ(dialogSize(kTextPage).cy, 452);
    EXPECT_EQ(dialogSize(106).cx, 0);
}

TEST_F(DialogTest, ControlsStartAsTheTemplateSays) {
    open(kTextPage);
    EXPECT_TRUE(read(kEdit).visible);
    EXPECT_FALSE(read(kHiddenEdit).visible);
    ASSERT_TRUE(read(kEdit).limit.has_value());
    EXPECT_FALSE(read(kEdit).limit->has_value());
    EXPECT_EQ(read(kEdit).digitsOnly, false);
    EXPECT_EQ(read(kCheck).checked, false);
    EXPECT_EQ(read(kSorted).selected, -1);
    EXPECT_EQ(read(kSorted).items, std::vector<std::u16string>());
    EXPECT_FALSE(read(kSpin).text || read(kPicture).text || read(kLabel).limit || read(kEdit).items);
    EXPECT_FALSE(frame_->read(65535) || frame_->read(1));
    const auto ids = frame_->controls();
    EXPECT_EQ(std::ranges::count(ids, 65535), 0);
    dialog_.reset();
    EXPECT_TRUE(frame_->controls().empty());
    open(kSerialPage);
    EXPECT_EQ(read(kIncrement).digitsOnly, true);
}

struct Typing {
    std::u16string_view typed;
    bool digitsOnly;
    int limit;
    std::u16string_view text;
    int reports;
};

TEST_F(DialogTest, KeystrokesAreTakenOrLeftOut) {
    open(kTextPage);
    const Typing cases[] = {
        {u"61", false, 0, u"61", 2},         {u"", false, 0, u"", 0},         {u"a\tb\r\n\x1b\x7f", false, 0, u"ab", 2},
        {u"-4x2.5", true, 0, u"425", 3},     {u"12345", false, 3, u"123", 3}, {u"\u0663\uff11", true, 0, u"", 0},
        {u"1😀2", false, 0, u"1😀2", 3},       {u"1😀2", false, 2, u"12", 2},    {u"1😀2", false, 3, u"1😀", 2},
        {u"\xD800", false, 0, u"\xD800", 1}, {u"a😀\b\b\b", false, 0, u"", 4}, {u"12\b3", true, 2, u"13", 4},
    };
    for (const Typing& c : cases) {
        dialog_->setTextLimit(kEdit, 0);
        dialog_->setText(kEdit, u"held before");
        dialog_->setDigitsOnly(kEdit, c.digitsOnly);
        dialog_->setTextLimit(kEdit, c.limit);
        EXPECT_EQ(dialog_->text(kEdit), u"held before");
        reports();
        EXPECT_EQ(frame_->type(kEdit, c.typed), std::nullopt);
        const std::string row = "case " + std::to_string(&c - cases);
        EXPECT_EQ(dialog_->text(kEdit), c.text) << row;
        EXPECT_EQ(std::ranges::count(reports(), ' '), c.reports) << row;
    }
    dialog_->setTextLimit(kEdit, 0);
    onReport_ = [&] {
        onReport_ = nullptr;
        dialog_->setText(kEdit, std::u16string(32'766, u'1'));
    };
    frame_->type(kEdit, u"1111");
    EXPECT_EQ(dialog_->text(kEdit).size(), 32767u);
    dialog_->setTextLimit(kEdit, 2);
    std::u16string seen;
    onReport_ = [&] { seen += dialog_->text(kEdit) + u"|"; };
    frame_->type(kEdit, u"12");
    EXPECT_EQ(seen, u"1|12|") << "the text has the character when it is reported";
    onReport_ = [&] {
        onReport_ = nullptr;
        dialog_->setText(kEdit, u"99");
    };
    frame_->type(kEdit, u"12");
    EXPECT_EQ(dialog_->text(kEdit), u"99") << "the second character is behind the limit";
}

TEST_F(DialogTest, SetTextsAreReportedWhateverTheyAre) {
    open(kTextPage);
    dialog_->setDigitsOnly(kEdit, true);
    dialog_->setTextLimit(kEdit, 2);
    for (const std::u16string_view text : {u"letters", u"letters", u""}) {
        dialog_->setText(kEdit, text);
        EXPECT_EQ(dialog_->text(kEdit), text);
        EXPECT_EQ(reports(), "text201 ");
    }
    dialog_->setText(kHiddenEdit, u"1");
    EXPECT_EQ(reports(), "text1239 ");
    for (const int id : {kLabel, kCheck, kSorted, kSpin, kPicture, 1, 65535}) dialog_->setText(id, u"x");
    EXPECT_EQ(reports(), "");
    EXPECT_EQ(dialog_->text(kLabel), u"x");
    EXPECT_EQ(dialog_->text(1), u"");

    const std::pair<const char16_t*, std::int32_t> numbers[] = {
        {u"12", 12},         {u" \t-12x", -12},
        {u"+7", 7},          {u"", 0},
        {u"abc", 0},         {u"- 5", 0},
        {u"2.9", 2},         {u"2147483647", 2147483647},
        {u"2147483648", 0},  {u"-2147483648", std::numeric_limits<std::int32_t>::min()},
        {u"-2147483649", 0}, {u"99999999999999999999999", 0}};
    for (const auto& [text, number] : numbers) {
        dialog_->setText(kEdit, text);
        EXPECT_EQ(dialog_->number(kEdit), number) << std::string(text, text + std::u16string_view(text).size());
    }
}

TEST_F(DialogTest, ListsKeepTheirOrderAndTheirSelection) {
    open(kTextPage);
    const std::u16string_view names[] = {u"beta", u"Alpha", u"Яблоко", u"gamma", u"ALPHABET", u"Äther"};
    const int places[] = {0, 0, 2, 2, 1};
    for (std::size_t i = 0; i < std::size(names); ++i)
        EXPECT_EQ(dialog_->addItem(kUnsorted, names[i]), static_cast<int>(i));
    for (std::size_t i = 0; i < std::size(places); ++i) EXPECT_EQ(dialog_->addItem(kSorted, names[i]), places[i]) << i;
    EXPECT_EQ(read(kSorted).items, (std::vector<std::u16string>{u"Alpha", u"ALPHABET", u"beta", u"gamma", u"Яблоко"}));
    const std::pair<const char16_t*, int> searches[] = {{u"ALPH", 1},    {u"alphaB", 4}, {u"ЯБЛ", 2},  {u"äTHER", 5},
                                                        {u"äthers", -1}, {u"", 0},       {u"GAMMA", 3}};
    for (const auto& [prefix, item] : searches) EXPECT_EQ(dialog_->selectByPrefix(kUnsorted, prefix), item) << item;
    EXPECT_EQ(dialog_->selectByPrefix(kUnsorted, u"nothing"), -1);
    EXPECT_EQ(dialog_->selection(kUnsorted), 3) << "stays where nothing is found";
    EXPECT_EQ(dialog_->selectByPrefix(kSorted, u"gam"), 3);
    EXPECT_EQ(dialog_->text(kSorted), u"gamma");
    EXPECT_EQ(dialog_->addItem(kSorted, u"delta"), 3);
    EXPECT_EQ(dialog_->selection(kSorted), 4) << "stays with its item";
    dialog_->select(kSorted, 6);
    EXPECT_EQ(dialog_->selection(kSorted), -1);
    dialog_->select(kUnsorted, 2);
    EXPECT_EQ(dialog_->itemText(kUnsorted, 3), u"gamma");
    EXPECT_EQ(dialog_->itemText(kUnsorted, -1) + dialog_->itemText(kUnsorted, 6), u"");
    EXPECT_EQ(reports(), "");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(frame_->select(kUnsorted, 5), std::nullopt);
        EXPECT_EQ(dialog_->selection(kUnsorted), 5);
        EXPECT_EQ(reports(), "selection266 ");
    }
    dialog_->clearItems(kUnsorted);
    EXPECT_EQ(dialog_->selection(kUnsorted), -1);
    EXPECT_EQ(dialog_->addItem(kEdit, u"x"), -1);
    EXPECT_EQ(reports(), "");
}

TEST_F(DialogTest, ListBoxesSelectBeforeTheyReport) {
    open(kSerialPage);
    dialog_->addItem(kListBox, u"zero");
    dialog_->addItem(kListBox, u"one");
    int selected = -1;
    onReport_ = [&] { selected = dialog_->selection(kListBox); };
    EXPECT_EQ(frame_->doubleClick(kListBox, 1), std::nullopt);
    EXPECT_EQ(selected, 1);
    EXPECT_EQ(reports(), "double273 ");
    EXPECT_EQ(frame_->select(kListBox, 0), std::nullopt);
    EXPECT_EQ(dialog_->selection(kListBox), 0);
    EXPECT_EQ(reports(), "");
}

TEST_F(DialogTest, BoxesToggleAndRadioButtonsExcludeEachOther) {
    open(kTextPage);
    bool seen = false;
    onReport_ = [&] { seen = dialog_->isChecked(kCheck); };
    frame_->click(kCheck);
    EXPECT_TRUE(seen && *read(kCheck).checked);
    frame_->click(kCheck);
    EXPECT_FALSE(seen || *read(kCheck).checked);
    EXPECT_EQ(reports(), "click205 click205 ");
    onReport_ = nullptr;
    dialog_.reset();
    open(kSerialPage);
    for (const int chosen : kRadios) {
        for (int i = 0; i < 2; ++i) frame_->click(chosen);
        for (const int id : kRadios) EXPECT_EQ(dialog_->isChecked(id), id == chosen) << id;
    }
    reports();
    dialog_->setChecked(258, true);
    EXPECT_FALSE(dialog_->isChecked(261));
    dialog_->setChecked(258, false);
    EXPECT_FALSE(dialog_->isChecked(258));
    EXPECT_EQ(reports(), "");
}

TEST_F(DialogTest, SpinButtonsReportEveryClick) {
    open(kTextPage);
    dialog_->setSpinRange(kSpin, 1, 2);
    EXPECT_EQ(read(kSpin).range, (std::pair{1, 2}));
    frame_->spin(kSpin, 3);
    EXPECT_EQ(reports(), "up208 up208 up208 ");
    frame_->spin(kSpin, -1);
    frame_->spin(kSpin, 0);
    EXPECT_EQ(reports(), "down208 ");
    onReport_ = [&] { dialog_->show(kSpin, false); };
    frame_->spin(kSpin, 5);
    EXPECT_EQ(reports(), "up208 ") << "nobody clicks what is hidden";
}

TEST_F(DialogTest, WhatAPersonCannotDoIsRefusedAndChangesNothing) {
    open(kSerialPage);
    dialog_->addItem(kListBox, u"zero");
    dialog_->setText(kReadOnly, u"kept");
    dialog_->setText(kPrefix, u"kept");
    dialog_->show(245, false);
    reports();
    const std::pair<DialogFrame::Refusal, const char*> refusals[] = {
        {frame_->type(kReadOnly, u"x"), "read-only"},  {frame_->type(245, u"x"), "hidden"},
        {frame_->type(kListBox, u"x"), "a list box"},  {frame_->type(9, u"x"), "no control 9"},
        {frame_->select(kPrefix, 0), "an edit box"},   {frame_->select(kListBox, 1), "no item 1"},
        {frame_->select(kListBox, -1), "no item -1"},  {frame_->select(243, 0), "empty"},
        {frame_->click(kPrefix), "check box or"},      {frame_->click(65535), "no control"},
        {frame_->doubleClick(kListBox, 1), "no item"}, {frame_->doubleClick(243, 0), "not a list box"},
        {frame_->spin(kPrefix, 1), "a spin button"},   {frame_->paint(kPrefix, nullptr), "a picture"},
    };
    for (const auto& [refusal, reason] : refusals)
        EXPECT_NE(refusal.value_or("").find(reason), std::string::npos) << refusal.value_or("") << " / " << reason;
    EXPECT_EQ(reports(), "");
    EXPECT_EQ(dialog_->text(kReadOnly) + dialog_->text(kPrefix), u"keptkept");
    EXPECT_EQ(dialog_->selection(kListBox), -1);
    dialog_->setVisible(false);
    EXPECT_FALSE(read(kPrefix).visible);
    EXPECT_TRUE(frame_->click(241).has_value());
    dialog_.reset();
    EXPECT_TRUE(frame_->click(241).has_value());
    open(kTextPage);
    EXPECT_TRUE(frame_->spin(kSpin, 10'001).has_value() && frame_->spin(kSpin, -10'001).has_value());
    EXPECT_EQ(reports(), "");
}

TEST_F(DialogTest, PicturesArePaintedOnRequest) {
    open(kTextPage);
    const SIZE size = frame_->pictureSize(kPicture).value();
    EXPECT_EQ(size.cx, 234);
    EXPECT_EQ(size.cy, 156);
    EXPECT_FALSE(frame_->pictureSize(kEdit) || frame_->pictureSize(1));
    const auto picture = makePicture(PictureKind::Png, 234, 156, 96, kOpaqueWhite);
    EXPECT_EQ(frame_->paint(kPicture, picture->dc()), std::nullopt);
    EXPECT_EQ(reports(), "paint1201 ");
    EXPECT_EQ(painted_.right, 234);
    EXPECT_EQ(painted_.bottom, 156);
}

TEST_F(DialogTest, FrameAndDialogOutliveEachOther) {
    open(kTextPage);
    dialog_->showMessage(u"one.");
    dialog_.reset();
    open(kTextPage);
    dialog_->showMessage(u"two.");
    EXPECT_EQ(messages_, u"one.two.");
    frame_.reset();
    dialog_->showMessage(u"three.");
    dialog_->setText(kEdit, u"x");
    dialog_.reset();
    EXPECT_EQ(messages_, u"one.two.");
}

TEST_F(DialogTest, OwnersMayEndTheDialogWithinAnyReport) {
    const std::function<void()> actions[] = {
        [&] { frame_->type(kEdit, u"abc"); },     [&] { frame_->select(kUnsorted, 0); },
        [&] { frame_->click(kCheck); },           [&] { frame_->spin(kSpin, 3); },
        [&] { dialog_->setText(kEdit, u"abc"); }, [&] { dialog_->showMessage(u"text"); },
    };
    for (const auto& action : actions) {
        open(kTextPage);
        dialog_->addItem(kUnsorted, u"zero");
        onReport_ = [&] { dialog_.reset(); };
        action();
        EXPECT_LE(std::ranges::count(reports(), ' '), 1) << "nothing follows the end";
        dialog_.reset();
        onReport_ = nullptr;
    }
}

TEST_F(DialogTest, RandomActionsWithAnOwnerThatLeaves) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t count) { return static_cast<int>(random() % count); };
    const std::u16string texts[] = {u"", u"1", u"12a\b\b", u"😀\b\xD83D", u"ALPHA beta"};
    int id = 1;
    std::u16string text;
    const std::function<void()> actions[] = {
        [&] { dialog_.reset(); },
        [&] { below(20) ? void() : frame_.reset(); },
        [&] { dialog_->setText(id, text); },
        [&] { dialog_->show(id, below(8) != 0); },
        [&] { dialog_->addItem(id, text); },
        [&] { below(8) ? void() : dialog_->clearItems(id); },
        [&] { dialog_->select(id, below(9) - 1); },
        [&] { dialog_->setTextLimit(id, below(8) - 1); },
        [&] { dialog_->setChecked(id, below(2) == 0); },
        [&] { dialog_->selectByPrefix(id, text); },
        [&] { frame_->select(id, below(9) - 1); },
        [&] { frame_->click(id); },
        [&] { frame_->doubleClick(id, below(9) - 1); },
        [&] { frame_->spin(id, below(9) - 4); },
        [&] { frame_->type(id, std::u16string(text)); },
    };
    const auto act = [&] {
        if (!frame_) frame_ = makeDialogFrame({});
        if (!dialog_) dialog_ = makeDialog(below(2) ? kTextPage : kSerialPage, kEnglish, frame_->window(), *this);
        if (below(50) != 0) dialog_->setVisible(true);
        const auto ids = frame_->controls();
        id = ids.empty() ? 1 : ids[static_cast<std::size_t>(below(ids.size()))];
        text = texts[below(std::size(texts))];
        actions[below(std::size(actions))]();
    };
    int depth = 0;
    onReport_ = [&] {
        if (++depth < 4 && below(3) == 0) act();
        --depth;
    };
    for (int i = 0; i < 10'000; ++i) {
        act();
        if (!frame_) continue;
        int checked = 0;
        for (const int each : frame_->controls()) {
            const ControlState state = read(each);
            ASSERT_LT(state.selected.value_or(-1), static_cast<int>(state.items ? state.items->size() : 1));
            if (each >= kRadios.front() && each <= kRadios.back()) checked += *state.checked;
        }
        ASSERT_LE(checked, 1);
    }
    EXPECT_GT(std::ranges::count(reports(), ' '), 500) << "the actions reach the controls";
}

}  // namespace
}  // namespace ovaline::platform
