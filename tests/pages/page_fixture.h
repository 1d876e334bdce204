// A property page on a real control, in a frame without a person. It is 17 November 2026, 19:33:24.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pages/property_page.h"
#include "platform/dialog_driver.h"
#include "tests/control/control_fixture.h"
#include "tests/pages/page_site.h"

namespace ovaline {

class PageTest : public ControlTest {
protected:
    void SetUp() override {
        ASSERT_NE(frame, nullptr);
        language = 1033;
        control->SetClientSite(&container);
    }
    void TearDown() override {
        close();
        EXPECT_EQ(site.references, 1u);
        control->SetClientSite(nullptr);
    }

    /// A new page, opened on `object`, by default the control.
    template <typename Page>
    void openPage(IUnknown* object = nullptr) {
        close();
        const PageServices services{[] { return language; },
                                    [](std::uint32_t id, platform::DialogEvents& events, HWND parent) {
                                        auto made = platform::makeDialog(id, language, parent, events);
                                        dialog = made.get();
                                        return made;
                                    },
                                    &fonts, &clock};
        page = platform::ComPtr<IPropertyPage>::adopt(Page::create(services));
        IUnknown* held = object ? object : static_cast<INorvel_OvalineCtrl*>(control.get());
        ASSERT_EQ(page->SetPageSite(&site), S_OK);
        ASSERT_EQ(page->SetObjects(1, &held), S_OK);
        activate();
    }
    /// What was reported before is forgotten: by the site before the page opens, by the container after.
    void activate() {
        const RECT area{0, 0, 500, 450};
        site.states.clear();
        ASSERT_EQ(page->Activate(frame->window(), &area, 0), S_OK);
        ASSERT_EQ(page->Show(SW_SHOW), S_OK);
        container.events.clear();
    }
    void close() {
        if (!page) return;
        page->Deactivate();
        page->SetPageSite(nullptr);
        page = {};
        dialog = nullptr;
    }

    platform::ControlState state(int id) const { return frame->read(id).value(); }
    std::u16string textOf(int id) const { return state(id).text.value(); }
    int selected(int id) const { return state(id).selected.value(); }
    bool isChecked(int id) const { return state(id).checked.value(); }
    bool isDirty() const { return page->IsPageDirty() == S_OK; }
    std::ptrdiff_t regenerations() const {
        return std::ranges::count_if(container.events, [](const auto& event) { return event.starts_with("posRect"); });
    }

    // A person's actions, which are not refused.
    void type(int id, std::u16string_view text) { EXPECT_EQ(frame->type(id, text), std::nullopt) << id; }
    void select(int id, int item) { EXPECT_EQ(frame->select(id, item), std::nullopt) << id; }
    void click(int id) { EXPECT_EQ(frame->click(id), std::nullopt) << id; }
    void doubleClick(int id, int item) { EXPECT_EQ(frame->doubleClick(id, item), std::nullopt) << id; }

    static inline std::uint16_t language = 1033;
    static inline platform::Dialog* dialog = nullptr;  // of the open page
    std::vector<std::u16string> messages;
    std::unique_ptr<platform::DialogFrame> frame =
        platform::makeDialogFrame([this](std::u16string message) { messages.push_back(std::move(message)); });
    RecordingContainer container;
    RecordingPageSite site;
    platform::ComPtr<IPropertyPage> page;
};

}  // namespace ovaline
