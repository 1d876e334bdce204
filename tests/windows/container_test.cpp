// A container of the registered control: drawing, saving, activation in place, and what the control tells of itself.
#include <algorithm>

#include "registered_module.h"
#include "tests/control/active_container.h"

namespace ovaline {
namespace {

using platform::ComPtr;
using platform::query;

/// A picture in memory, white at first.
class Picture {
public:
    static constexpr int kSize = 300;

    Picture() {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, kSize, -kSize, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels_ = static_cast<const DWORD*>(bits);
        SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, kSize, kSize, WHITENESS);
    }
    ~Picture() {
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC dc() const { return dc_; }
    /// Around all that is not white; empty where there is nothing.
    RECT ink() const {
        GdiFlush();
        RECT found{};
        for (LONG y = 0; y < kSize; ++y)
            for (LONG x = 0; x < kSize; ++x) {
                const RECT pixel{x, y, x + 1, y + 1};
                if ((pixels_[y * kSize + x] & 0xFFFFFF) != 0xFFFFFF) UnionRect(&found, &found, &pixel);
            }
        return found;
    }

private:
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    const DWORD* pixels_ = nullptr;
};

RECT inkOf(HWND window) {
    UpdateWindow(window);
    const Picture picture;
    RECT client{};
    GetClientRect(window, &client);
    const HDC dc = GetDC(window);
    BitBlt(picture.dc(), 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
    ReleaseDC(window, dc);
    return picture.ink();
}

/// To the pixel, but for the rounding of a line's edge.
void expectNear(const RECT& got, const RECT& wanted) {
    EXPECT_NEAR(got.left, wanted.left, 2);
    EXPECT_NEAR(got.top, wanted.top, 2);
    EXPECT_NEAR(got.right, wanted.right, 2);
    EXPECT_NEAR(got.bottom, wanted.bottom, 2);
}

std::vector<BYTE> bytesOf(IStream& stream) {
    std::vector<BYTE> bytes(64);
    ULONG read = 0;
    EXPECT_EQ(stream.Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_TRUE(SUCCEEDED(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read)));
    bytes.resize(read);
    return bytes;
}

class ContainerTest : public ::testing::Test {
protected:
    template <typename Interface>
    ComPtr<Interface> as(REFIID iid) {
        auto found = query<Interface>(control.get(), iid);
        EXPECT_TRUE(found);
        return found;
    }

    RegisteredModule module;  // goes last
    ComPtr<INorvel_OvalineCtrl> control = RegisteredModule::makeControl();
};

TEST_F(ContainerTest, DrawsWhereItIsToldTo) {
    ASSERT_EQ(control->put_ShowAxes(NoAxesPartial), S_OK);
    ASSERT_EQ(control->SetDefaultSize(0), S_OK);
    const RECT place{20, 10, 170, 160};
    const auto draw = [&](auto&& prepare) {
        const Picture picture;
        const RECT target = prepare(picture.dc());
        EXPECT_EQ(OleDraw(control.get(), DVASPECT_CONTENT, picture.dc(), &target), S_OK);
        return picture.ink();
    };
    const auto plainly = [&](HDC) { return place; };
    const RECT ink = draw(plainly);
    EXPECT_NEAR(ink.left, place.left, 1) << "the text's own corner";
    EXPECT_NEAR(ink.top, place.top, 1);
    EXPECT_GT(ink.right, place.left + 30);
    EXPECT_GT(ink.bottom, place.top + 20);

    // The same place in units that are half a pixel, about another origin.
    expectNear(draw([&](HDC dc) {
                   SetMapMode(dc, MM_ANISOTROPIC);
                   SetWindowExtEx(dc, 200, 200, nullptr);
                   SetViewportExtEx(dc, 100, 100, nullptr);
                   SetViewportOrgEx(dc, 8, 6, nullptr);
                   RECT units = place;
                   DPtoLP(dc, reinterpret_cast<POINT*>(&units), 2);
                   return units;
               }),
               ink);

    ASSERT_EQ(control->SetZoomFactor(2), S_OK);
    const LONG width = ink.right - place.left, height = ink.bottom - place.top;
    expectNear(draw(plainly), {place.left, place.top, place.left + 2 * width, place.top + 2 * height});
}

TEST_F(ContainerTest, SavesItsExtentIntoAFile) {
    SIZEL extent{};
    const auto object = as<IOleObject>(IID_IOleObject);
    ASSERT_EQ(object->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(std::pair(extent.cx, extent.cy), std::pair(LONG{5080}, LONG{5080}));
    extent = {1234, 5678};
    ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);

    ComPtr<IStorage> storage;
    constexpr DWORD kMode = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE;
    ASSERT_EQ(StgCreateDocfile(nullptr, kMode | STGM_DELETEONRELEASE, 0, storage.put()), S_OK);
    const auto saved = as<IPersistStorage>(IID_IPersistStorage);
    ASSERT_EQ(saved->InitNew(storage.get()), S_OK);
    ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    ASSERT_EQ(OleSave(saved.get(), storage.get(), TRUE), S_OK);
    ASSERT_EQ(saved->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(saved->IsDirty(), S_FALSE);

    ComPtr<IStream> contents, plain;
    ASSERT_EQ(storage->OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, contents.put()), S_OK);
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, plain.put()), S_OK);
    ASSERT_EQ(as<IPersistStreamInit>(IID_IPersistStreamInit)->Save(plain.get(), FALSE), S_OK);
    EXPECT_EQ(bytesOf(*contents.get()), bytesOf(*plain.get()));
    contents = {};

    CLSID id{};
    ASSERT_EQ(ReadClassStg(storage.get(), &id), S_OK);
    const auto loaded = RegisteredModule::make<IPersistStorage>(id, IID_IPersistStorage);
    ASSERT_EQ(loaded->Load(storage.get()), S_OK);
    SIZEL restored{};
    ASSERT_EQ(query<IOleObject>(loaded.get(), IID_IOleObject)->GetExtent(DVASPECT_CONTENT, &restored), S_OK);
    EXPECT_EQ(std::pair(restored.cx, restored.cy), std::pair(extent.cx, extent.cy));
}

/// With a container that has a window.
class ActivationTest : public ContainerTest {
protected:
    /// Returns the control's window, null where it has none.
    HWND activate(SiteLevel level) {
        container.level = level;
        container.parent = parent;
        container.place = container.seen = {10, 10, 210, 190};
        EXPECT_EQ(control->SetDefaultSize(0), S_OK);
        EXPECT_EQ(object->SetClientSite(&container), S_OK);
        EXPECT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &container, 0, parent, &container.place), S_OK);
        HWND window = nullptr;
        inPlace->GetWindow(&window);
        return window;
    }
    bool told(const std::string& event) const { return std::ranges::find(events, event) != events.end(); }
    void TearDown() override {
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        EXPECT_EQ(container.references, 1u);
        EXPECT_FALSE(GetWindow(parent, GW_CHILD));
        DestroyWindow(parent);
    }

    std::vector<std::string> events;
    ActiveContainer container{SiteLevel::None, events};
    HWND parent = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 400, 400, nullptr, nullptr,
                                  nullptr, nullptr);
    ComPtr<IOleObject> object = as<IOleObject>(IID_IOleObject);
    ComPtr<IOleInPlaceObject> inPlace = as<IOleInPlaceObject>(IID_IOleInPlaceObject);
};

TEST_F(ActivationTest, InAWindowOfItsOwn) {
    const HWND window = activate(SiteLevel::Extended);
    ASSERT_TRUE(window);
    EXPECT_EQ(GetParent(window), parent);
    const RECT small = inkOf(window);
    EXPECT_GT(small.right, 50);
    EXPECT_LE(small.right, 200);

    // The container follows the request for room; it, or its user, may also resize the window without a word.
    RECT client{};
    container.reactions["posRect"] = [&] {
        const RECT larger{10, 10, 290, 290};
        EXPECT_EQ(inPlace->SetObjectRects(&larger, &larger), S_OK);
    };
    events.clear();
    ASSERT_EQ(control->SetZoomFactor(2), S_OK);
    EXPECT_TRUE(told("posRect"));
    GetClientRect(window, &client);
    EXPECT_EQ(std::pair(client.right, client.bottom), std::pair(LONG{280}, LONG{280}));
    EXPECT_TRUE(GetUpdateRect(window, nullptr, FALSE)) << "a put has it painted anew";
    EXPECT_NEAR(inkOf(window).right, 2 * small.right, 3);
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
    MoveWindow(window, 0, 0, 250, 250, TRUE);
    EXPECT_TRUE(GetUpdateRect(window, &client, FALSE));
    EXPECT_EQ(client.right, 250);
    EXPECT_FALSE(told("viewChange"));
}

TEST_F(ActivationTest, WithoutAWindow) {
    EXPECT_FALSE(activate(SiteLevel::Windowless));
    events.clear();
    EXPECT_EQ(control->FlipH(), S_OK);
    EXPECT_EQ(events, (std::vector<std::string>{"posRect", "siteInvalidate all erased"}));
    const Picture picture;
    EXPECT_EQ(as<IViewObject>(IID_IViewObject)
                  ->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.dc(), nullptr, nullptr, nullptr, 0),
              S_OK);
    EXPECT_NEAR(picture.ink().left, container.place.left, 2);
}

TEST_F(ActivationTest, InactiveItTellsWhoShowsIt) {
    const auto view = as<IViewObject>(IID_IViewObject);
    IAdviseSink* const sink = &container;
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, sink), S_OK);
    EXPECT_EQ(control->FlipH(), S_OK);
    EXPECT_EQ(events, std::vector<std::string>{"viewChange"});
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
}

/// Passes the control's interfaces off as its own.
class Outer final : public IUnknown {
public:
    Outer() : inner_(RegisteredModule::make<IUnknown>(CLSID_Norvel_OvalineCtrl, IID_IUnknown, this)) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!IsEqualIID(iid, IID_IUnknown)) return inner_->QueryInterface(iid, object);
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    ULONG references = 1;

private:
    ComPtr<IUnknown> inner_;
};

TEST_F(ContainerTest, AsPartOfAnotherObject) {
    Outer outer;
    for (const IID& iid : {IID_IDispatch, IID_IOleObject, IID_IViewObject2, IID_IPersistStreamInit, IID_IDataObject,
                           IID_IQuickActivate, IID_IConnectionPointContainer, IID_IOleInPlaceActiveObject}) {
        const auto part = query<IUnknown>(&outer, iid);
        ASSERT_TRUE(part);
        EXPECT_EQ(outer.references, 2u);
        EXPECT_EQ(query<IUnknown>(part.get(), IID_IUnknown).get(), &outer);
    }
    EXPECT_EQ(outer.references, 1u);
}

GUID idOf(ITypeInfo& info) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(info.GetTypeAttr(&attributes))) return {};
    const GUID id = attributes->guid;
    info.ReleaseTypeAttr(attributes);
    return id;
}

TEST_F(ContainerTest, DescribesItself) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(as<IProvideClassInfo2>(IID_IProvideClassInfo2)->GetClassInfo(info.put()), S_OK);
    EXPECT_EQ(idOf(*info.get()), CLSID_Norvel_OvalineCtrl);
    ASSERT_EQ(control->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
    EXPECT_EQ(idOf(*info.get()), IID_INorvel_OvalineCtrl);

    const auto points = as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    for (const IID& outgoing : {IID_IPropertyNotifySink, DIID__INorvel_OvalineCtrlEvents}) {
        ComPtr<IConnectionPoint> point;
        ASSERT_EQ(points->FindConnectionPoint(outgoing, point.put()), S_OK);
        IID answered{};
        EXPECT_EQ(point->GetConnectionInterface(&answered), S_OK);
        EXPECT_EQ(answered, outgoing);
        DWORD cookie = 0;
        EXPECT_EQ(point->Advise(control.get(), &cookie), CONNECT_E_CANNOTCONNECT) << "it is no such sink";
    }
}

TEST_F(ContainerTest, StaysInTheProcessWhileItIsNeeded) {
    control = {};
    control = RegisteredModule::makeControl();
    CoFreeUnusedLibraries();
    ASSERT_TRUE(RegisteredModule::isLoaded());
    control = {};
    CoFreeUnusedLibraries();
    EXPECT_FALSE(RegisteredModule::isLoaded());
    control = RegisteredModule::makeControl();
    EXPECT_EQ(control->SetDefaultSize(0), S_OK) << "the second time too";
}

}  // namespace
}  // namespace ovaline
