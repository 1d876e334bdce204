// Activation in a real window, and the other services of a desktop.
#include "active_container.h"
#include "control_fixture.h"

namespace ovaline {
namespace {

class WindowsActivationTest : public ControlTest {
protected:
    void SetUp() override {
        container.parent = parent;
        ASSERT_NE(parent, nullptr);
        control->SetDefaultSize(0);
        control->SetClientSite(&container);
        ASSERT_EQ(control->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
        ASSERT_EQ(inPlace->GetWindow(&window), S_OK);
    }
    void TearDown() override {
        control->SetClientSite(nullptr);
        inPlace = {};
        control = {};
        EXPECT_EQ(container.references, 1u);
        DestroyWindow(parent);
    }

    std::vector<std::string> events;
    ActiveContainer container{SiteLevel::Plain, events};
    HWND parent = CreateWindowExW(0, L"STATIC", nullptr, WS_OVERLAPPED | WS_VISIBLE, 0, 0, 200, 200, nullptr, nullptr,
                                  nullptr, nullptr);
    platform::ComPtr<IOleInPlaceObjectWindowless> inPlace =
        platform::query<IOleInPlaceObjectWindowless>(&control->inner(), IID_IOleInPlaceObjectWindowless);
    HWND window = nullptr;
};

TEST_F(WindowsActivationTest, TheControlsWindow) {
    EXPECT_EQ(GetParent(window), parent);
    RECT client{};
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, 30);
    EXPECT_EQ(client.bottom, 40);
    RECT shown{};
    EXPECT_NE(GetWindowRgnBox(window, &shown), ERROR) << "cut to the container's clip";
    EXPECT_EQ(shown.right, 19);
    EXPECT_EQ(shown.bottom, 18);

    UpdateWindow(window);
    EXPECT_EQ(settings().ScreenWidth, 30) << "painting draws the preview";
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
    control->FlipH();
    EXPECT_TRUE(GetUpdateRect(window, nullptr, FALSE)) << "a put has the window painted anew";

    const RECT moved{5, 6, 25, 36};
    inPlace->SetObjectRects(&moved, &moved);
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, 20);
    EXPECT_EQ(GetWindowRgnBox(window, &shown), ERROR) << "nothing is cut any more";
    events.clear();
    SendMessageW(window, WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(GetFocus(), window);
    EXPECT_EQ(events, (std::vector<std::string>{"focused", "uiActive", "frameTakes", "noBorder"}));

    EXPECT_EQ(control->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(WindowsActivationTest, AParentThatGoesTakesItAlong) {
    DestroyWindow(parent);
    EXPECT_EQ(inPlace->GetWindow(&window), E_FAIL);
    EXPECT_EQ(control->FlipH(), S_OK);
    events.clear();
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(events, std::vector<std::string>{"inactive"});
}

TEST_F(WindowsActivationTest, AContainerThatLetsGoInsideTheMessage) {
    container.reactions["focused"] = [&] {
        control->SetClientSite(nullptr);
        inPlace = {};
        control = {};
    };
    SendMessageW(window, WM_LBUTTONDOWN, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    control = platform::ComPtr<Control>::adopt(Control::create(fonts, clock, 96));
}

TEST_F(WindowsActivationTest, ThePreviewAsAMetafile) {
    const auto data = platform::query<IDataObject>(&control->inner(), IID_IDataObject);
    FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    ENHMETAHEADER header{};
    ASSERT_NE(GetEnhMetaFileHeader(medium.hEnhMetaFile, sizeof header, &header), 0u);
    EXPECT_NEAR(header.rclFrame.right, 5080, 1);
    EXPECT_GT(header.nRecords, 3u) << "the text is in it";
    ReleaseStgMedium(&medium);
}

}  // namespace
}  // namespace ovaline
