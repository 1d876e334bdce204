// Ten thousand random actions on both pages, of a person and of a host, on controls that hold anything. What a page
// promises must hold after each.
#include <array>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <set>
#include <utility>

#include "pages/norvel_ovaline_prop_page.h"
#include "pages/text_controls.h"
#include "platform/drawing.h"
#include "platform/resources.h"
#include "tests/pages/serial_fixture.h"
#include "text/marking_text.h"

namespace ovaline {
namespace {

constexpr int kActions = OVALINE_RANDOM_ACTIONS;
constexpr int kRegenerationsOfTextPage = 6;  // the update flag, the record and the four settings of the font

class RandomActionsTest : public SerialPageTest {
protected:
    enum class Kind { Text, Serial };
    static constexpr auto kTexts = std::to_array<std::u16string_view>(
        {u"", u"0", u"7", u"-3.9", u"2.9", u"61", u"0.04", u"1234567890123456789", u"99999999999", u"abc", u"AZ9",
         u" 5x", u"%", u"%+", u"%d.%m.%Y", u"\U0001F600\U0001F600"});
    static constexpr std::int32_t kNonsense[] = {std::numeric_limits<std::int32_t>::min(), -1, 99, 262,
                                                 std::numeric_limits<std::int32_t>::max()};

    int below(int count) { return std::uniform_int_distribution(0, count - 1)(random); }
    bool isOneIn(int count) { return below(count) == 0; }
    /// A number, a pattern or neither; now and then longer than the preview takes a pattern.
    std::u16string anyText() {
        return isOneIn(9) ? std::u16string(60, u'%')
                          : std::u16string(kTexts.at(static_cast<std::size_t>(below(std::ssize(kTexts)))));
    }
    /// One of `count` values from `first` on; now and then none of them.
    std::int32_t anyValue(std::int32_t first, int count) {
        return isOneIn(5) ? kNonsense[below(std::ssize(kNonsense))] : first + below(count);
    }

    void putAnything() {
        put({.serialOn = !isOneIn(3),
             .type = anyValue(Numerical, 2),
             .prefix = anyText(),
             .start = anyText(),
             .suffix = anyText(),
             .increment = anyValue(0, 100),
             .dateOffset = anyValue(-10, 20),
             .digitCount = anyValue(None, 16),
             .dateOn = !isOneIn(3),
             .dateFormat = anyValue(Format00, 17),
             .datePosition = anyValue(BeforePrefix, 4)},
            anyText());
        control->SetUpdateFlag(0);
        control->SetMeasurement(below(2));
        control->DisplayInPoint(below(2));
        control->SetUnitsPrecision(below(8));
        control->put_TextData(Text(anyText()));
        control->put_FontStyle(static_cast<_txtfontstyle>(anyValue(TrueType, 2)));
        control->put_FontHeight(static_cast<float>(below(20)));
        control->put_FillStyle(static_cast<_fillstyle>(anyValue(NoFilling, 4)));
        control->put_OutlineType(static_cast<_outlinestyle>(anyValue(NoOutline, 6)));
        control->put_Width(static_cast<float>(below(30)));
        control->put_Height(static_cast<float>(below(30) - 2));
        control->put_CharSpace(isOneIn(5) ? std::numeric_limits<float>::quiet_NaN() : 0);
        control->SetUpdateFlag(1);
        language =
            std::to_array<std::uint16_t>({1031, 1033, 1041, 1045, 1049, 2052})[static_cast<std::size_t>(below(6))];
        clock.set({{2026 + below(3), 1 + below(12), 1 + below(28), below(24), 0, 0}});
    }

    /// Opens a page of either kind, or the one that there is once more.
    void openAny() {
        const bool again = page && isOneIn(3);
        if (again) {
            page->Deactivate();
        } else {
            close();
            reference.clear();
            wasDirty = false;
        }
        EXPECT_TRUE(container.events.empty()) << "written without Apply";
        putAnything();
        if (again) {
            activate();
        } else {
            kind = isOneIn(2) ? Kind::Serial : Kind::Text;
            kind == Kind::Serial ? open() : openPage<CNorvel_OvalinePropPage>();
        }
        fillChosen = outlineChosen = std::nullopt;
        written = readSerialSettings(*control.get());
        typeChosen = written.type;
        digitsChosen = written.digitCount;
        if (kind == Kind::Text || !positionChecked()) return;
        const bool isNumerical = written.type == Numerical;
        const std::u16string pattern =
            written.dateFormat == Custom ? text(&Control::get_CustomAutoText) : patternOf(written.dateFormat);
        reference = ComposeMarkingText(written.prefix, textOf(245), written.suffix, written.digitCount, pattern,
                                       written.datePosition, isNumerical ? Numerical : 2, true, true, 0, clock);
    }

    void apply() {
        EXPECT_EQ(page->Apply(), S_OK);
        EXPECT_FALSE(isDirty());
        EXPECT_EQ(regenerations(), kind == Kind::Serial ? 1 : kRegenerationsOfTextPage);
        EXPECT_EQ(settings().UpdateFlag, 1);
        if (kind == Kind::Serial) expectWritten();
        written = readSerialSettings(*control.get());
        if (kind == Kind::Text) wasDirty = false;  // it says so to nobody
        container.events.clear();
    }

    /// An action on any control, which is refused where a person could not do it. Whether the page was told of it.
    bool actOnDialog() {
        const auto ids = frame->controls();
        const int id = ids[static_cast<std::size_t>(below(static_cast<int>(ids.size())))];
        const auto before = state(id);
        if (before.items) {
            const int item = below(1 + static_cast<int>(before.items->size())) - isOneIn(9);
            if (id == 273) return !frame->doubleClick(id, item);
            if (frame->select(id, item)) return false;
            if (id == text_controls::kFillStyle) fillChosen = item;
            if (id == text_controls::kOutlineStyle) outlineChosen = item;
            if (id == 243) typeChosen = item;
            if (id == 248) digitsChosen = item;
            return true;
        }
        if (before.checked) return !frame->click(id);
        if (before.range) return !frame->spin(id, below(41) - 20);
        if (before.limit) return !frame->type(id, anyText()) && !textOf(id).empty();
        if (frame->pictureSize(id)) frame->paint(id, canvas->dc());
        return false;
    }

    void expectInvariants(bool told) {
        for (const DWORD status : site.states) {
            EXPECT_TRUE(status == PROPPAGESTATUS_DIRTY || status == PROPPAGESTATUS_CLEAN);
            if (kind == Kind::Serial) {
                EXPECT_NE(status == PROPPAGESTATUS_DIRTY, wasDirty) << "told twice";
            }
            wasDirty = status == PROPPAGESTATUS_DIRTY;
        }
        site.states.clear();
        EXPECT_EQ(isDirty(), wasDirty);
        EXPECT_TRUE(container.events.empty()) << "written without Apply";
        EXPECT_EQ(settings().SerNumIncrement, written.increment);
        if (kind == Kind::Serial) {
            expectVisibility();
            expectStartRules();
            if (told) expectFreshPreview();
        } else {
            expectVisibilityOfText();
        }
        for (const auto& message : messages) EXPECT_EQ(message, platform::loadString(103, language));
        messages.clear();
    }

    /// The start box follows the type and the digit count that were loaded or chosen last.
    void expectStartRules() const {
        const bool isLimited = digitsChosen >= One && digitsChosen <= Fifteen;
        EXPECT_EQ(state(245).digitsOnly, typeChosen == Numerical);
        EXPECT_EQ(state(245).limit.value(), isLimited ? std::optional<int>(digitsChosen) : std::nullopt);
        if (isLimited) {
            EXPECT_LE(textOf(245).size(), static_cast<std::size_t>(digitsChosen));
        }
    }

    /// The preview and the dirty state, when the page has just looked at its controls.
    void expectFreshPreview() {
        const bool serial = isChecked(241), date = isChecked(255);
        const int format = selected(257);
        if (serial || date) {
            const std::u16string pattern = format == 16 ? textOf(205).substr(0, 49) : patternOf(Format00 + format);
            EXPECT_EQ(preview(), ComposeMarkingText(textOf(244), textOf(245), textOf(246), selected(248), pattern,
                                                    positionChecked().value_or(-1), selected(243), serial, date,
                                                    wholeOf(textOf(265)), clock));
        }
        EXPECT_EQ(isDirty(), preview() != reference || dialogNumber(247) != written.increment ||
                                 serial != written.serialOn || date != written.dateOn || selected(243) != written.type);
    }

    void expectWritten() {
        const SerialSettings now = readSerialSettings(*control.get());
        EXPECT_EQ(now.serialOn, isChecked(241));
        EXPECT_EQ(now.type, selected(243));
        EXPECT_EQ(now.prefix, textOf(244));
        EXPECT_EQ(now.start, textOf(245));
        EXPECT_EQ(now.suffix, textOf(246));
        EXPECT_EQ(now.increment, dialogNumber(247));
        EXPECT_EQ(now.dateOffset, dialogNumber(265));
        EXPECT_EQ(now.digitCount, selected(248));
        EXPECT_EQ(now.dateOn, isChecked(255));
        EXPECT_EQ(now.dateFormat, Format00 + selected(257));
        EXPECT_EQ(now.datePosition, positionChecked().value_or(-1));
    }

    void expectVisibilityOfText() const {
        using namespace text_controls;
        std::set<int> hidden = {kStrikeout, kUnderline, kCharWidth, kCharWidthSpin};
        if (outlineChosen.value_or(NoOutline) == NoOutline)
            hidden.insert({kOutlineWidthLabel, kOutlineWidth, kOutlineWidthSpin});
        const int fill = fillChosen.value_or(Cross);
        if (fill != Line && fill != Cross)
            hidden.insert({kLineWidthLabel, kLineWidth, kLineWidthSpin, kDistanceLabel, kDistance, kDistanceSpin,
                           kLineAngleLabel, kLineAngle, kLineAngleSpin});
        if (fill != Cross) hidden.insert({kCrossAngleLabel, kCrossAngle, kCrossAngleSpin});
        for (const int id : frame->controls()) EXPECT_NE(state(id).visible, hidden.contains(id)) << id;
    }

    std::optional<int> positionChecked() const {
        for (const int id : {258, 259, 260, 261})
            if (isChecked(id)) return id;
        return std::nullopt;
    }
    static std::u16string patternOf(std::int32_t format) {
        return platform::loadString(static_cast<std::uint32_t>(format), language).value_or(u"");
    }
    /// A decimal number, cut toward zero.
    static std::int32_t wholeOf(const std::u16string& text) {
        using Limits = std::numeric_limits<std::int32_t>;
        const double number = std::strtod(std::string(text.begin(), text.end()).c_str(), nullptr);
        return static_cast<std::int32_t>(std::clamp<double>(number, Limits::min(), Limits::max()));
    }
    /// A signed number of 32 bits, 0 where there is none.
    std::int32_t dialogNumber(int id) const {
        const std::u16string text = textOf(id);
        const long long number = std::strtoll(std::string(text.begin(), text.end()).c_str(), nullptr, 10);
        return std::in_range<std::int32_t>(number) ? static_cast<std::int32_t>(number) : 0;
    }

    std::unique_ptr<platform::Picture> canvas =
        platform::makePicture(platform::PictureKind::Png, 300, 200, 96, std::nullopt);
    std::mt19937 random{20261117};
    Kind kind = Kind::Serial;
    bool wasDirty = false;     // as the site knows
    SerialSettings written;    // what the control holds
    std::u16string reference;  // what the serial page compares with
    std::int32_t typeChosen = 0, digitsChosen = 0;
    std::optional<int> fillChosen, outlineChosen;  // by a person
};

TEST_F(RandomActionsTest, KeepWhatThePagesPromise) {
    openAny();
    for (int action = 0; action < kActions && !HasFailure(); ++action) {
        bool told = false;
        if (isOneIn(60)) {
            openAny();
        } else if (isOneIn(15)) {
            apply();
        } else {
            told = actOnDialog();
        }
        expectInvariants(told);
        if (HasFailure()) ADD_FAILURE() << "action " << action;
    }
}

}  // namespace
}  // namespace ovaline
