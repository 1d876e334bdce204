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
        EXPECT_TRUE(dialog_) << "nothing follows its end";
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
    for (const auto& [language, title] : {std::pair{1031, u"Seriennummer aktivieren"},
                                          {1041, u"シリアル番号を使用"},
                                          {1045, u"Włącz numer seryjny"},
                                          {1049, u"Включить нумерацию"},
                                          {2052, u"启用序列号"}}) {
        dialog_.reset();  // before the next one takes its place
        dialog_ = makeDialog(kSerialPage, static_cast<std::uint16_t>(language), frame_->window(), *this);
        ASSERT_TRUE(dialog_);
        EXPECT_EQ(dialog_->text(241), title);
        EXPECT_FALSE(read(241).visible) << "a new dialog is invisible";
    }
    EXPECT_FALSE(makeDialog(kTextPage, kEnglish, frame_->window(), *this)) << "the frame is taken";
    EXPECT_FALSE(makeDialog(kTextPage, kEnglish, dialog_->window(), *this)) << "no frame";
    EXPECT_EQ(frame_->controls().front(), 241);
    EXPECT_EQ(frame_->controls().back(), kReadOnly);
    EXPECT_EQ(dialogSize(kTextPage).cy, 452);
    EXPECT_EQ(dialogSize(106).cx, 0);
}

TEST_F(DialogTest, ControlsStartAsTheTemplateSays) {
    open(kTextPage);
    EXPECT_TRUE(read(kEdit).visible);
    EXPECT_FALSE(read(kHiddenEdit).visible);
    EXPECT_FALSE(read(kEdit).limit.value().has_value());
    EXPECT_EQ(read(kEdit).digitsOnly, false);
    EXPECT_EQ(read(kSorted).selected, -1);
    EXPECT_FALSE(read(kSpin).text || read(kPicture).text || read(kLabel).limit || read(kEdit).items);
    EXPECT_FALSE(frame_->read(65535) || frame_->read(1));
    EXPECT_EQ(std::ranges::count(frame_->controls(), 65535), 0);
    dialog_.reset();
    EXPECT_TRUE(frame_->controls().empty());
    open(kSerialPage);
    EXPECT_EQ(read(kIncrement).digitsOnly, true);
}

TEST_F(DialogTest, KeystrokesAreTakenOrLeftOut) {
    open(kTextPage);
    int number = 0;
    const std::tuple<std::u16string_view, bool, int, std::u16string_view, int> cases[] = {
        {u"61", false, 0, u"61", 2},     {u"a\tb\r\n\x1b\x7f", false, 0, u"ab", 2}, {u"-4x2.5", true, 0, u"425", 3},
        {u"12345", false, 3, u"123", 3}, {u"\u0663\uff11", true, 0, u"", 0},        {u"1😀2", false, 2, u"12", 2},
        {u"1😀2", false, 3, u"1😀", 2},    {u"\xD800", false, 0, u"\xD800", 1},       {u"a😀\b\b\b", false, 0, u"", 4},
        {u"12\b3", true, 2, u"13", 4},
    };
    for (const auto& [typed, digitsOnly, limit, text, count] : cases) {
        dialog_->setTextLimit(kEdit, 0);
        dialog_->setText(kEdit, u"held before");
        dialog_->setDigitsOnly(kEdit, digitsOnly);
        dialog_->setTextLimit(kEdit, limit);
        EXPECT_EQ(dialog_->text(kEdit), u"held before");
        reports();
        EXPECT_EQ(frame_->type(kEdit, typed), std::nullopt);
        EXPECT_EQ(dialog_->text(kEdit), text) << "case " << number;
        EXPECT_EQ(std::ranges::count(reports(), ' '), count) << "case " << number++;
    }
    const auto typeWhereTheFirstReportPuts = [&](std::u16string_view typed, const std::u16string& text) {
        onReport_ = [&, first = true]() mutable {
            if (std::exchange(first, false)) dialog_->setText(kEdit, text);
        };
        frame_->type(kEdit, typed);
    };
    dialog_->setTextLimit(kEdit, 0);
    typeWhereTheFirstReportPuts(u"1111", std::u16string(32'766, u'1'));
    EXPECT_EQ(dialog_->text(kEdit).size(), 32767u);
    dialog_->setTextLimit(kEdit, 2);
    typeWhereTheFirstReportPuts(u"12", u"99");
    EXPECT_EQ(dialog_->text(kEdit), u"99") << "the second character is behind the limit";
    std::u16string seen;
    onReport_ = [&] { seen += dialog_->text(kEdit) + u"|"; };
    frame_->type(kEdit, u"12");
    EXPECT_EQ(seen, u"1|12|") << "the text has the character when it is reported";
}

TEST_F(DialogTest, SetTextsAreReportedWhateverTheyAre) {
    open(kTextPage);
    dialog_->setDigitsOnly(kEdit, true);
    dialog_->setTextLimit(kEdit, 2);
    for (int i = 0; i < 2; ++i) dialog_->setText(kEdit, u"letters");
    EXPECT_EQ(dialog_->text(kEdit), u"letters");
    dialog_->setText(kHiddenEdit, u"1");
    EXPECT_EQ(reports(), "text201 text201 text1239 ");
    for (const int id : {kLabel, kCheck, kSorted, kSpin, kPicture, 1, 65535}) dialog_->setText(id, u"x");
    EXPECT_EQ(reports(), "");
    EXPECT_EQ(dialog_->text(kLabel), u"x");
    EXPECT_EQ(dialog_->text(1), u"");

    const std::pair<const char16_t*, std::int32_t> numbers[] = {
        {u" \t-12x", -12},   {u"+7", 7},
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
    for (int i = 0; i < 6; ++i) EXPECT_EQ(dialog_->addItem(kUnsorted, names[i]), i);
    for (int i = 0; i < 5; ++i) dialog_->addItem(kSorted, names[i]);
    EXPECT_EQ(read(kSorted).items, (std::vector<std::u16string>{u"Alpha", u"ALPHABET", u"beta", u"gamma", u"Яблоко"}));
    const std::pair<const char16_t*, int> searches[] = {{u"ALPH", 1}, {u"alphaB", 4}, {u"ЯБЛ", 2},    {u"äTHER", 5},
                                                        {u"", 0},     {u"GAMMA", 3},  {u"äthers", -1}};
    for (const auto& [prefix, item] : searches) EXPECT_EQ(dialog_->selectByPrefix(kUnsorted, prefix), item) << item;
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
    for (int i = 0; i < 2; ++i) EXPECT_EQ(frame_->select(kUnsorted, 5), std::nullopt);
    EXPECT_EQ(dialog_->selection(kUnsorted), 5);
    EXPECT_EQ(reports(), "selection266 selection266 ");
    dialog_->clearItems(kUnsorted);
    EXPECT_EQ(dialog_->selection(kUnsorted), -1);
    EXPECT_EQ(dialog_->addItem(kEdit, u"x"), -1);
}

TEST_F(DialogTest, ChoicesAreReportedWhenTheyHaveHappened) {
    open(kSerialPage);
    dialog_->addItem(kListBox, u"zero");
    dialog_->addItem(kListBox, u"one");
    int seen = -1;
    onReport_ = [&] { seen = dialog_->selection(kListBox); };
    EXPECT_EQ(frame_->doubleClick(kListBox, 1), std::nullopt);
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(frame_->select(kListBox, 0), std::nullopt);
    EXPECT_EQ(dialog_->selection(kListBox), 0);
    EXPECT_EQ(reports(), "double273 ");
    onReport_ = [&] { seen = dialog_->isChecked(241); };
    for (const int checked : {1, 0}) {
        frame_->click(241);
        EXPECT_EQ(seen, checked);
    }
    onReport_ = nullptr;
    for (const int id : kRadios) {
        for (int i = 0; i < 2; ++i) frame_->click(id);
        EXPECT_TRUE(dialog_->isChecked(id)) << id << " stays checked";
    }
    reports();
    for (const bool checked : {true, false}) {
        dialog_->setChecked(258, checked);
        EXPECT_EQ(dialog_->isChecked(258), checked);
    }
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
    EXPECT_EQ(frame_->pictureSize(kPicture).value().cx, 234);
    EXPECT_FALSE(frame_->pictureSize(kEdit) || frame_->pictureSize(1));
    const auto picture = makePicture(PictureKind::Png, 234, 156, 96, kOpaqueWhite);
    EXPECT_EQ(frame_->paint(kPicture, picture->dc()), std::nullopt);
    EXPECT_EQ(reports(), "paint1201 ");
    EXPECT_EQ(painted_.right, 234);
    EXPECT_EQ(painted_.bottom, 156);
}

TEST_F(DialogTest, FrameAndDialogOutliveEachOther) {
    for (const char16_t* const text : {u"one.", u"two."}) {
        dialog_.reset();
        open(kTextPage);
        dialog_->showMessage(text);
    }
    frame_.reset();
    dialog_->showMessage(u"three.");
    dialog_->setText(kEdit, u"x");
    dialog_.reset();
    EXPECT_EQ(messages_, u"one.two.");
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
    for (int i = 0; i < OVALINE_RANDOM_ACTIONS; ++i) {
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
    EXPECT_GT(std::ranges::count(reports(), ' '), OVALINE_RANDOM_ACTIONS / 20) << "the actions reach the controls";
}

}  // namespace
}  // namespace ovaline::platform
