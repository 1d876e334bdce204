// Activation in place, with and without a window, and what a container may do in the middle of it.
#include <array>

#include "active_container.h"
#include "control_fixture.h"

namespace ovaline {
namespace {

using Events = std::vector<std::string>;

class ActivationTest : public ControlTest {
protected:
    void SetUp() override { control = make(); }

    platform::ComPtr<Control> make() {
        return platform::ComPtr<Control>::adopt(Control::create(fonts, clock, 96, windows));
    }
    /// The control in a container that may go at the end of a test.
    void enter(ActiveContainer& container) {
        control->SetClientSite(&container);
        control->SetAdvise(DVASPECT_CONTENT, 0, &container);
    }
    HRESULT verb(LONG number) { return control->DoVerb(number, nullptr, nullptr, 0, nullptr, nullptr); }
    template <typename Interface>
    platform::ComPtr<Interface> as(REFIID iid) {
        return platform::query<Interface>(&control->inner(), iid);
    }
    /// What happened since the last time.
    Events taken() { return std::exchange(windows.events, {}); }

    platform::MemoryWindowSystem windows;
};

TEST_F(ActivationTest, EachLevelOfSite) {
    const struct {
        SiteLevel level;
        HRESULT canGoWindowless;
        const char* active;
        bool windowed;
    } rows[] = {{SiteLevel::Plain, S_OK, "active", true},
                {SiteLevel::Extended, S_OK, "active 0", true},
                {SiteLevel::Windowless, S_OK, "active 1", false},
                {SiteLevel::Windowless, S_FALSE, "active 0", true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.active);
        const bool windowed = row.windowed;
        Events activated{row.active,
                         "create 1 2 31 42",
                         "place 1 2 31 42 in 0 0 20 20",
                         "showObject",
                         "uiActive",
                         "frameTakes",
                         "noBorder",
                         "focus",
                         "focused"};
        if (!windowed) activated = {row.active, "showObject", "uiActive", "frameTakes", "noBorder", "siteFocus"};
        ActiveContainer container(row.level, windows.events);
        container.answers["canGoWindowless"] = row.canGoWindowless;
        enter(container);
        control->SetDefaultSize(0);
        EXPECT_EQ(taken(), (Events{"posRect", "viewChange"})) << "not active yet";

        EXPECT_EQ(verb(OLEIVERB_UIACTIVATE), S_OK);
        EXPECT_EQ(taken(), activated);
        EXPECT_EQ(verb(OLEIVERB_UIACTIVATE), S_OK);
        EXPECT_EQ(taken(), windowed ? Events{"show"} : Events{}) << "it is there already";
        HWND window = nullptr;
        const auto inPlace = as<IOleInPlaceObjectWindowless>(IID_IOleInPlaceObjectWindowless);
        EXPECT_EQ(inPlace->GetWindow(&window), windowed ? S_OK : E_FAIL);
        EXPECT_EQ(window != nullptr, windowed);
        control->FlipH();
        EXPECT_EQ(taken(), (Events{"posRect", windowed ? "invalidate" : "siteInvalidate all erased"}));
        control->SetUpdateFlag(0);
        control->FlipH();
        EXPECT_EQ(taken(), Events{});
        control->SetUpdateFlag(1);
        taken();
        EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
        EXPECT_EQ(taken(), (Events{"frameLeaves", "uiInactive", "inactive"}));
        EXPECT_EQ(windows.windows, 0);
        EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
        EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
        control->FlipH();
        EXPECT_EQ(taken(), (Events{"posRect", "viewChange"}));
        control->SetClientSite(nullptr);
        control->SetAdvise(0, 0, nullptr);
        EXPECT_EQ(container.references, 1u);
    }
}

TEST_F(ActivationTest, RefusalsLeaveItInactive) {
    const struct {
        SiteLevel level;
        const char* refused;  ///< by the container, or "window" by the platform
        HRESULT answer;
        HRESULT expected;
        Events events;
    } rows[] = {
        {SiteLevel::None, "", S_OK, E_FAIL, {}},
        {SiteLevel::Plain, "canActivate", S_FALSE, E_FAIL, {}},
        {SiteLevel::Plain, "active", E_UNEXPECTED, E_UNEXPECTED, {"active"}},
        {SiteLevel::Extended, "active", E_UNEXPECTED, E_UNEXPECTED, {"active 0"}},
        {SiteLevel::Plain, "context", E_NOTIMPL, E_NOTIMPL, {"active", "inactive"}},
        {SiteLevel::Windowless, "context", E_NOTIMPL, E_NOTIMPL, {"active 1", "inactive"}},
        {SiteLevel::Extended, "window", S_OK, E_FAIL, {"active 0", "inactive"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.refused);
        ActiveContainer container(row.level, windows.events);
        container.answers[row.refused] = row.answer;
        windows.refuses = std::string(row.refused) == "window";
        enter(container);
        EXPECT_EQ(verb(OLEIVERB_SHOW), row.expected);
        EXPECT_EQ(taken(), row.events);
        control->FlipH();
        EXPECT_EQ(taken().back(), "viewChange") << "not active";
        control->SetClientSite(nullptr);
        control->SetAdvise(0, 0, nullptr);
        EXPECT_EQ(taken(), Events{});
        EXPECT_EQ(container.references, 1u);
    }
    EXPECT_EQ(verb(OLEIVERB_SHOW), E_FAIL) << "without a container";
}

TEST_F(ActivationTest, Verbs) {
    ActiveContainer container(SiteLevel::Extended, windows.events);
    enter(container);
    EXPECT_EQ(verb(OLEIVERB_PROPERTIES), S_OK);
    EXPECT_EQ(taken(), Events{"propertyFrame"});
    container.answers["propertyFrame"] = E_NOTIMPL;
    EXPECT_EQ(verb(-2), E_NOTIMPL) << "there is no window to open beside the container's";
    EXPECT_EQ(verb(OLEIVERB_DISCARDUNDOSTATE), S_OK);
    EXPECT_EQ(verb(OLEIVERB_HIDE), S_OK) << "nothing to hide";
    container.answers["requestUi"] = S_FALSE;
    EXPECT_EQ(verb(OLEIVERB_PRIMARY), OLEOBJ_S_CANNOT_DOVERB_NOW);
    EXPECT_EQ(windows.windows, 1) << "active, without the user interface";
    container.answers.erase("requestUi");
    taken();
    EXPECT_EQ(verb(7), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(taken(), (Events{"show", "uiActive", "frameTakes", "noBorder", "focus", "focused"}));
    EXPECT_EQ(verb(OLEIVERB_HIDE), S_OK);
    EXPECT_EQ(taken(), (Events{"frameLeaves", "uiInactive", "hide"}));
    EXPECT_EQ(verb(OLEIVERB_INPLACEACTIVATE), S_OK);
    windows.control->focusChanged(false);
    windows.control->focusChanged(true);
    EXPECT_EQ(taken(),
              (Events{"show", "unfocused", "focused", "uiActive", "frameTakes", "noBorder", "focus", "focused"}));
    const RECT moved{3, 4, 5, 6};
    const auto inPlace = as<IOleInPlaceObjectWindowless>(IID_IOleInPlaceObjectWindowless);
    EXPECT_EQ(inPlace->SetObjectRects(&moved, &moved), S_OK);
    EXPECT_EQ(inPlace->SetObjectRects(nullptr, &moved), E_INVALIDARG);
    EXPECT_EQ(taken(), Events{"place 3 4 5 6 in 3 4 5 6"});
    windows.control->paint(nullptr, {0, 0, 30, 40});
    EXPECT_EQ(settings().ScreenHeight, 40) << "the window's picture is the preview";
    MSG key{};
    for (const HRESULT answer : {S_OK, S_FALSE}) {
        container.answers["translate"] = answer;
        EXPECT_EQ(as<IOleInPlaceActiveObject>(IID_IOleInPlaceActiveObject)->TranslateAccelerator(&key), answer);
    }
    taken();
    control->SetClientSite(nullptr);
    EXPECT_EQ(taken(), (Events{"frameLeaves", "uiInactive", "inactive"})) << "another site ends the activation";
    control->SetAdvise(0, 0, nullptr);
    EXPECT_EQ(container.references, 1u);
}

TEST_F(ActivationTest, WithoutAWindowItIsDrawnInItsPlace) {
    ActiveContainer container(SiteLevel::Windowless, windows.events);
    enter(container);
    const auto draw = [&] {
        return control->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0);
    };
    EXPECT_EQ(draw(), E_INVALIDARG);
    ASSERT_EQ(verb(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(draw(), S_OK);
    EXPECT_EQ(settings().ScreenLeft, 1);
    EXPECT_EQ(settings().ScreenHeight, 40);
    const auto inPlace = as<IOleInPlaceObjectWindowless>(IID_IOleInPlaceObjectWindowless);
    const RECT moved{-5, 4, 50, 64};
    inPlace->SetObjectRects(&moved, &moved);
    EXPECT_EQ(draw(), S_OK);
    EXPECT_EQ(settings().ScreenLeft, -5);
    taken();
    LRESULT result = 7;
    EXPECT_EQ(inPlace->OnWindowMessage(WM_SETFOCUS, 0, 0, &result), S_OK);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(taken(), (Events{"focused", "uiActive", "frameTakes", "noBorder", "siteFocus"}));
    EXPECT_EQ(inPlace->OnWindowMessage(0x0200, 0, 0, &result), S_FALSE) << "the container's to handle";
    control->Close(OLECLOSE_NOSAVE);
    control->SetClientSite(nullptr);
    EXPECT_EQ(container.references, 1u);
}

TEST_F(ActivationTest, CloseEndsTheActivationAndTellsTheSinks) {
    ActiveContainer container(SiteLevel::Plain, windows.events);
    enter(container);
    DWORD first = 0, second = 0;
    EXPECT_EQ(control->Advise(nullptr, &first), E_POINTER);
    ASSERT_EQ(control->Advise(&container, &first), S_OK);
    ASSERT_EQ(control->Advise(&container, &second), S_OK);
    EXPECT_NE(first, second);
    verb(OLEIVERB_SHOW);
    taken();
    container.reactions["onSave"] = [&] { EXPECT_EQ(control->Unadvise(second), S_OK); };
    EXPECT_EQ(control->Close(0), S_OK);
    EXPECT_EQ(taken(), (Events{"inactive", "save", "onSave", "onClose"})) << "a control never stored is saved";
    EXPECT_EQ(control->Unadvise(second), OLE_E_NOCONNECTION);
    EXPECT_EQ(control->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(taken(), Events{"onClose"});
    control->FlipH();
    EXPECT_EQ(taken(), Events{"posRect"}) << "the view's sink is let go of, the site is not";
    control->SetClientSite(nullptr);
    EXPECT_EQ(control->Unadvise(first), S_OK);
    EXPECT_EQ(container.references, 1u);
    enter(container);
    verb(OLEIVERB_UIACTIVATE);
    control = {};
    EXPECT_EQ(windows.windows, 0) << "released while it is active";
    EXPECT_EQ(container.references, 1u);
}

// In each call that a control makes, the container does the worst that it may: whatever it does, the calls that
// announce an activation are taken back, no window stays, and every reference is released.
TEST_F(ActivationTest, AContainerMayActInsideAnyCall) {
    control = {};
    for (const SiteLevel level : {SiteLevel::Plain, SiteLevel::Extended, SiteLevel::Windowless})
        for (const char* event :
             {"canGoWindowless", "canActivate", "active", "context", "showObject", "requestUi", "uiActive",
              "frameTakes", "noBorder", "siteFocus", "focused", "posRect", "siteInvalidate", "viewChange",
              "frameLeaves", "uiInactive", "inactive", "save", "onClose"})
            for (const int deed : {0, 1, 2, 3}) {
                SCOPED_TRACE(event + std::to_string(deed));
                const long before = platform::moduleLockCount;
                ActiveContainer container(level, windows.events);
                platform::ComPtr<Control> owned = make();
                Control* const raw = owned.get();
                owned->SetClientSite(&container);
                owned->SetAdvise(DVASPECT_CONTENT, 0, &container);
                DWORD connection = 0;
                owned->Advise(&container, &connection);
                const std::array<std::function<void()>, 4> deeds = {
                    [&] { raw->Close(OLECLOSE_NOSAVE); }, [&] { raw->SetClientSite(nullptr); },
                    [&] { raw->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr); },
                    [&] {
                        raw->SetClientSite(nullptr);
                        raw->SetAdvise(0, 0, nullptr);
                        owned = {};
                    }};
                container.reactions[event] = deeds[static_cast<std::size_t>(deed)];
                if (owned) owned->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
                if (owned) owned->FlipH();
                if (owned) owned->Close(0);
                if (owned) owned->FlipH();
                if (owned) owned->Close(OLECLOSE_NOSAVE);
                owned = {};
                const Events events = taken();
                const auto begun = std::ranges::count_if(events, [](auto& e) { return e.starts_with("active"); });
                EXPECT_EQ(begun, std::ranges::count(events, "inactive"));
                EXPECT_EQ(std::ranges::count(events, "uiActive"), std::ranges::count(events, "uiInactive"));
                EXPECT_EQ(windows.windows, 0);
                EXPECT_EQ(container.references, 1u);
                EXPECT_EQ(platform::moduleLockCount, before);
            }
}

}  // namespace
}  // namespace ovaline
