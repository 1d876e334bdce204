// The text settings page on a control of 20 by 12 mm.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pages/norvel_ovaline_prop_page.h"
#include "pages/text_controls.h"
#include "tests/pages/page_fixture.h"

namespace ovaline {

class TextPageTest : public PageTest {
protected:
    using States = std::vector<DWORD>;

    void SetUp() override {
        PageTest::SetUp();
        fonts.setFamilies({u"Beta", u"beta Condensed", u"Filament SanSerif", u"Filament Script", u"Gamma"});
        control->SetUpdateFlag(0);
        control->put_FontName(Text(u"Beta"));
        control->put_Width(20);
        control->put_Height(12);
    }

    void open(IUnknown* object = nullptr) { openPage<CNorvel_OvalinePropPage>(object); }
    /// Opens the page and takes back that it is dirty.
    void openClean() {
        open();
        enter(text_controls::kAngle, textOf(text_controls::kAngle));
        ASSERT_FALSE(isDirty());
        site.states.clear();
    }
    void apply() { EXPECT_EQ(page->Apply(), S_OK); }
    /// A change in one step, as pasting a text is.
    void enter(int id, std::u16string_view text) { dialog->setText(id, text); }
    void spin(int id, int clicks) { EXPECT_EQ(frame->spin(id, clicks), std::nullopt) << id; }
    std::vector<std::u16string> items(int id) const { return state(id).items.value(); }
};

}  // namespace ovaline
