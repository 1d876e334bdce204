// The property pages in a frame of the test's own, under the messages that a person's keyboard and mouse make of them.
#include <array>

#include "registered_module.h"
#include "tests/pages/page_site.h"

namespace ovaline {
namespace {

using platform::ComPtr;

class PropertyPageTest : public ::testing::Test {
protected:
    void open(REFCLSID id) {
        page = RegisteredModule::make<IPropertyPage>(id, IID_IPropertyPage);
        ASSERT_TRUE(page);
        ASSERT_EQ(page->SetPageSite(&site), S_OK);
        IUnknown* object = control.get();
        ASSERT_EQ(page->SetObjects(1, &object), S_OK);
        PROPPAGEINFO info{};
        info.cb = sizeof info;
        ASSERT_EQ(page->GetPageInfo(&info), S_OK);
        for (LPOLESTR text : {info.pszTitle, info.pszDocString, info.pszHelpFile}) CoTaskMemFree(text);
        const RECT place{7, 5, 7 + info.size.cx, 5 + info.size.cy};
        ASSERT_EQ(page->Activate(frame, &place, FALSE), S_OK);
        ASSERT_EQ(page->Show(SW_SHOW), S_OK);
        dialog = GetWindow(frame, GW_CHILD);
        ASSERT_TRUE(IsWindowVisible(dialog));

        RECT window{};
        GetWindowRect(dialog, &window);
        MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&window), 2);
        EXPECT_TRUE(EqualRect(&window, &place));
        for (HWND each = GetWindow(dialog, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
            RECT area{}, inside{};
            GetWindowRect(each, &area);
            MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&area), 2);
            EXPECT_TRUE(IntersectRect(&inside, &area, &place) && EqualRect(&inside, &area)) << GetDlgCtrlID(each);
        }
    }
    void apply() {
        EXPECT_EQ(page->IsPageDirty(), S_OK);
        EXPECT_EQ(site.states.back(), DWORD{PROPPAGESTATUS_DIRTY});
        EXPECT_EQ(page->Apply(), S_OK);
        EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    }
    void TearDown() override {
        EXPECT_EQ(page->Deactivate(), S_OK);
        EXPECT_FALSE(GetWindow(frame, GW_CHILD));
        EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
        page = {};
        EXPECT_EQ(site.references, 1u);
        DestroyWindow(frame);
    }

    HWND item(int id) const { return GetDlgItem(dialog, id); }
    /// Over what is there.
    void type(int id, const wchar_t* text) {
        SendMessageW(item(id), EM_SETSEL, 0, -1);
        for (; *text; ++text) SendMessageW(item(id), WM_CHAR, *text, 0);
    }
    void choose(int id, int entry) {
        SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(item(id)));
    }
    void click(int id) { SendMessageW(item(id), BM_CLICK, 0, 0); }
    void spinUp(int id) {
        for (const UINT message : {UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP}})
            SendMessageW(item(id), message, 0, MAKELPARAM(3, 3));
    }
    std::string text(int id) const {
        std::array<wchar_t, 64> shown{};
        GetWindowTextW(item(id), shown.data(), static_cast<int>(shown.size()));
        return platform::utf8(shown.data());
    }
    /// What the control has.
    template <typename Value>
    Value get(HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*getter)(Value*)) {
        Value value{};
        EXPECT_EQ((control.get()->*getter)(&value), S_OK);
        return value;
    }
    std::string getText(HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*getter)(BSTR*)) {
        const BSTR value = get(getter);
        const std::string converted = platform::utf8({value, SysStringLen(value)});
        SysFreeString(value);
        return converted;
    }

    RegisteredModule module;  // goes last
    ComPtr<INorvel_OvalineCtrl> control = RegisteredModule::makeControl();
    RecordingPageSite site;
    ComPtr<IPropertyPage> page;
    HWND frame = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 600, 500, nullptr, nullptr,
                                 nullptr, nullptr);
    HWND dialog = nullptr;
};

TEST_F(PropertyPageTest, TextSettings) {
    open(CLSID_Norvel_OvalinePropPage);
    EXPECT_EQ(page->IsPageDirty(), S_OK) << "it has taken the font";
    type(201, L"Ключ 7");
    type(207, L"7.5");
    type(1213, L"30");
    spinUp(1222);
    EXPECT_EQ(text(1213), "30.100");
    choose(1204, 3);
    EXPECT_TRUE(IsWindowVisible(item(1211)));
    type(1211, L"60.5");
    choose(1205, 2);
    EXPECT_TRUE(IsWindowVisible(item(1206)));
    type(1206, L"0.2");
    click(205);
    EXPECT_EQ(getText(&INorvel_OvalineCtrl::get_TextData), "Ovaline") << "not before it is applied";

    apply();
    EXPECT_EQ(getText(&INorvel_OvalineCtrl::get_TextData), "Ключ 7");
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_FontHeight), 7.5f);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_FontBold), VARIANT_TRUE);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_Width), 30.1f);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_FillStyle), Cross);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_FillCrossAngle), 60.5f);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_OutlineType), Dash);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_TextOutline), 0.2f);
}

TEST_F(PropertyPageTest, SerialNumberAndDate) {
    open(CLSID_OvalineSerialPropPage);
    EXPECT_FALSE(IsWindowVisible(item(244)));
    click(241);
    EXPECT_TRUE(IsWindowVisible(item(244)));
    type(244, L"N-");
    type(245, L"0042");
    type(247, L"5x");
    type(246, L"/ä");
    choose(248, 5);
    click(255);
    click(260);
    choose(257, 16);
    EXPECT_TRUE(IsWindowVisible(item(205)));
    type(205, L"%Y");
    // Tab goes to the next control, and stays in the page's own window.
    SetFocus(item(244));
    MSG tab{item(244), WM_KEYDOWN, VK_TAB, 0, 0, {}};
    EXPECT_EQ(page->TranslateAccelerator(&tab), S_OK);
    EXPECT_NE(GetFocus(), item(244));
    EXPECT_EQ(GetParent(GetFocus()), dialog);

    apply();
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_SerialNumEnable), 1);
    EXPECT_EQ(getText(&INorvel_OvalineCtrl::get_SerialNumPrefix), "N-");
    EXPECT_EQ(getText(&INorvel_OvalineCtrl::get_SerNumStart), "0042");
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_SerNumIncrement), 5);
    EXPECT_EQ(getText(&INorvel_OvalineCtrl::get_SerNumSuffix), "/ä");
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_AutoDateEnable), 1);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_AutoDatePosition), BeforeSuffix);
    EXPECT_EQ(get(&INorvel_OvalineCtrl::get_AutoDateFormat), Custom);
    EXPECT_EQ(getText(&INorvel_OvalineCtrl::get_CustomAutoText), "%Y");
}

}  // namespace
}  // namespace ovaline
