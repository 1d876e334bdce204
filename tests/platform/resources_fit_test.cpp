// No text of the dialogs is cut, in any language.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/fonts.h"
#include "tests/platform/resource_tables.h"

namespace ovaline::resource_tables {
namespace {

// Pixels.
constexpr double kUnit = 1.5;  // of a horizontal dialog unit
constexpr double kEm = 11;     // of the dialogs' font
constexpr double kMark = 18;   // of a check box or a radio button, with the gap before its text
constexpr double kGroup = 18;  // the line on both sides of a group's text
constexpr double kArrow = 23;  // of a list: its arrow or scroll bar, and its borders
constexpr double kBorder = 8;  // of an edit, both sides

constexpr std::u16string_view kReferenceFace = u"DejaVu Sans";

/// Widths of texts in pixels. The reference face at nine tenths of the size is about as wide as what Windows shows
/// dialogs in, for most texts a little wider.
class Ruler {
public:
    std::u16string family() const { return font_ ? font_->familyName() : u""; }

    double width(std::u16string_view text) const {
        double width = 0;
        for (const char16_t code : text)
            if (code != u'&') width += advance(code);
        return width;
    }

private:
    static constexpr double kFine = 100;  // dots to a pixel

    double advance(char16_t code) const {
        constexpr char16_t kFirstFullWidth = 0x2E80;
        if (code >= kFirstFullWidth) return kEm;
        const auto outline = font_->glyphOutline(code, false);
        return outline ? outline->gmCellIncX / kFine : kEm;
    }

    std::shared_ptr<const platform::Font> font_ = platform::systemFonts().createFont(
        {.lfHeight = -static_cast<std::int32_t>(kEm * kFine * 0.9), .lfFaceName = std::u16string(kReferenceFace)});
};

/// What a control shows besides its label: strings of its list from the first to the last, or a long but usual text.
struct Content {
    std::uint32_t first = 0, last = 0;
    std::u16string_view text;
};

const std::map<std::pair<int, int>, Content> kContents = {
    {{105, 266}, {10321, 10322, u""}},
    {{105, 1205}, {10311, 10316, u""}},
    {{105, 1204}, {10301, 10304, u""}},
    {{105, 1004}, {0, 0, u"Filament SanSerif"}},
    {{110, 243}, {10129, 10130, u""}},
    {{110, 257}, {10132, 10148, u""}},
    {{110, 248}, {10201, 10216, u""}},
    {{110, 273}, {20500, 20508, u""}},
    {{110, 245}, {0, 0, u"123456789012345"}},
    {{110, 247}, {0, 0, u"10000"}},
    {{110, 265}, {0, 0, u"-365"}},
    {{110, 263}, {0, 0, u"Prefix0001SuffixWednesday, September 30, 2026"}},
    {{110, 244}, {0, 0, u"Prefix 123456"}},
    {{110, 246}, {0, 0, u"Suffix 123456"}},
    {{110, 205}, {0, 0, u"%d.%m.%Y %H:%M"}},
    {{105, 201}, {0, 0, u"Ovaline 123456789012345678"}},
};
// Of an edit with a spin button.
constexpr std::u16string_view kLongNumber = u"-360.000";

double room(const Control& control, std::size_t language) {
    static const std::map<Kind, double> kLost = {
        {Kind::Label, 0},        {Kind::Check, kMark},  {Kind::Radio, kMark},
        {Kind::Group, kGroup},   {Kind::Edit, kBorder}, {Kind::DropList, kArrow},
        {Kind::ListBox, kArrow}, {Kind::Spin, 0},       {Kind::Picture, 0}};
    return control.box(language).width * kUnit - kLost.at(control.kind);
}

std::vector<std::u16string_view> textsOf(int dialog, const Control& control, std::size_t language) {
    std::vector<std::u16string_view> texts;
    if (!control.texts[language].empty()) texts.push_back(control.texts[language]);
    const auto found = kContents.find({dialog, control.id});
    if (found == kContents.end()) {
        if (control.kind == Kind::Edit) texts.push_back(kLongNumber);
        return texts;
    }
    if (!found->second.text.empty()) texts.push_back(found->second.text);
    for (const String& string : strings())
        if (string.id >= found->second.first && string.id <= found->second.last)
            texts.push_back(string.texts[language]);
    return texts;
}

TEST(ResourcesFit, NoTextIsCut) {
    const Ruler ruler;
    ASSERT_EQ(ruler.family(), kReferenceFace);
    for (const Dialog& dialog : dialogs()) {
        for (const Control& control : dialog.controls) {
            for (std::size_t i = 0; i < kLanguages.size(); ++i) {
                // The English places of this dialog are set, and made for the narrower face that Windows puts in for
                // the dialogs' font.
                const double narrower = dialog.id == 110 && i == kEnglish ? 10 / kEm : 1;
                const auto texts = textsOf(dialog.id, control, i);
                const bool showsText = control.kind != Kind::Spin && control.kind != Kind::Picture;
                EXPECT_EQ(!texts.empty(), showsText) << dialog.id << ", " << control.id;
                for (const std::u16string_view text : texts)
                    EXPECT_LE(ruler.width(text) * narrower, room(control, i))
                        << "dialog " << dialog.id << ", control " << control.id << ", language " << kLanguages[i]
                        << ": " << testing::PrintToString(std::u16string(text));
            }
        }
    }
}

}  // namespace
}  // namespace ovaline::resource_tables
