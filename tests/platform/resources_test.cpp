// The module's strings and dialogs: complete in every language, and the dialogs laid out soundly.
#include "platform/resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "tests/platform/resource_tables.h"

namespace ovaline::resource_tables {
namespace {

using platform::loadString;

/// The character that Alt picks a control by, in small letters; 0 for none, 1 where there are several or none follows.
char16_t mnemonic(std::u16string_view text) {
    char16_t found = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (++i == text.size()) return 1;
        if (text[i] == u'&') continue;
        if (found != 0) return 1;
        const bool isLatin = text[i] >= u'A' && text[i] <= u'Z';
        const bool isCyrillic = text[i] >= u'А' && text[i] <= u'Я';
        found = static_cast<char16_t>(text[i] + (isLatin || isCyrillic ? 32 : 0));
    }
    return found;
}

TEST(Resources, EveryStringIsThereInEveryLanguage) {
    std::set<std::uint32_t> ids;
    for (const String& string : strings()) {
        SCOPED_TRACE(string.id);
        EXPECT_TRUE(ids.insert(string.id).second);
        for (std::size_t i = 0; i < kLanguages.size(); ++i) {
            EXPECT_FALSE(string.texts[i].empty()) << kLanguages[i];
            EXPECT_EQ(loadString(string.id, kLanguages[i]), string.texts[i]) << kLanguages[i];
        }
        EXPECT_TRUE(loadString(string.id));
        const bool isPattern = string.id >= 20000 && string.id <= 20015;
        EXPECT_TRUE(!isPattern || std::ranges::count(string.texts, string.texts[0]) == std::ssize(kLanguages));
    }
    for (const std::uint32_t none : {0u, 102u, 10131u, 20017u, 20000u + (1u << 20), 0xFFFFFFFFu})
        EXPECT_FALSE(loadString(none, 1033));
    EXPECT_FALSE(loadString(104, 1036));
}

TEST(Resources, EveryLabelIsThereInEveryLanguage) {
    for (const Dialog& dialog : dialogs()) {
        std::set<int> ids;
        std::array<std::set<char16_t>, kLanguages.size()> mnemonics;
        for (const Control& control : dialog.controls) {
            SCOPED_TRACE(testing::Message() << "dialog " << dialog.id << ", control " << control.id);
            EXPECT_TRUE(control.id == kAnonymous || ids.insert(control.id).second);
            for (std::size_t i = 0; i < kLanguages.size(); ++i) {
                EXPECT_NE(control.texts[i].empty(), control.isLabelled()) << kLanguages[i];
                const char16_t picked = mnemonic(control.texts[i]);
                EXPECT_NE(picked, 1) << kLanguages[i];
                EXPECT_TRUE(picked == 0 || mnemonics[i].insert(picked).second) << kLanguages[i];
            }
        }
    }
}

TEST(Resources, ControlsAreApartAndInTheirPlace) {
    for (const Dialog& dialog : dialogs()) {
        for (const std::size_t language : {kEnglish, kEnglish + 1}) {
            for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
                const Control& one = dialog.controls[i];
                const Box box = one.box(language);
                SCOPED_TRACE(testing::Message() << "dialog " << dialog.id << ", language " << kLanguages[language]
                                                << ", control " << one.id << " at " << box.x << ", " << box.y);
                EXPECT_TRUE(dialog.box(language).holds(box));
                for (std::size_t k = 0; k < i; ++k) {
                    const Control& other = dialog.controls[k];
                    const bool isGroup = other.kind == Kind::Group || one.kind == Kind::Group;
                    const bool isInGroup =
                        isGroup && (other.box(language).holds(box) != box.holds(other.box(language)));
                    EXPECT_TRUE(!box.meets(other.box(language)) || isInGroup) << "over " << other.id;
                }
                if (one.kind != Kind::Spin) continue;
                ASSERT_GT(i, 0u);
                const Control& edit = dialog.controls[i - 1];
                EXPECT_EQ(edit.kind, Kind::Edit);
                EXPECT_EQ(edit.flag, one.flag);
                EXPECT_EQ(edit.box(language).right(), box.x);
                EXPECT_EQ(edit.box(language).y, box.y);
                EXPECT_EQ(edit.box(language).height, box.height);
            }
        }
    }
}

}  // namespace
}  // namespace ovaline::resource_tables
