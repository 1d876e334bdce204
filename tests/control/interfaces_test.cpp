// The control's interfaces as one identity, alone and as part of another object, and what belongs to setting it up.
#include <set>

#include "active_container.h"
#include "control/interface/class_ids.h"
#include "control_fixture.h"

namespace ovaline {
namespace {

// One a line would be three times as long.
// clang-format off
const IID* const kInterfaces[] = {
    &IID_IUnknown, &IID_IDispatch, &IID_INorvel_OvalineCtrl, &IID_IOleControl, &IID_IOleObject, &IID_IOleWindow,
    &IID_IOleInPlaceActiveObject, &IID_IOleInPlaceObject, &IID_IOleInPlaceObjectWindowless, &IID_IViewObject,
    &IID_IViewObject2, &IID_IViewObjectEx, &IID_IPersist, &IID_IPersistStreamInit, &IID_IPersistStorage,
    &IID_IDataObject, &IID_IQuickActivate, &IID_ISpecifyPropertyPages, &IID_IProvideClassInfo,
    &IID_IProvideClassInfo2, &IID_IConnectionPointContainer};
// clang-format on

/// Every interface leads to every other one and to one unknown, and counts with the whole.
void expectOneIdentity(IUnknown& whole) {
    std::set<void*> unknowns;
    for (const IID* from : kInterfaces) {
        const auto first = platform::query<IUnknown>(&whole, *from);
        ASSERT_TRUE(first);
        const ULONG count = whole.AddRef();
        EXPECT_EQ(first->AddRef(), count + 1);
        EXPECT_EQ(first->Release(), count);
        whole.Release();
        for (const IID* to : kInterfaces) EXPECT_TRUE(platform::query<IUnknown>(first.get(), *to));
        unknowns.insert(platform::query<IUnknown>(first.get(), IID_IUnknown).get());
        void* none = &whole;
        EXPECT_EQ(first->QueryInterface(IID_IClassFactory, &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(first->QueryInterface(*from, nullptr), E_POINTER);
    }
    EXPECT_EQ(unknowns.size(), 1u);
}

/// An object that a control is part of.
class Outer final : public IUnknown {
public:
    ULONG references = 1;
    platform::ComPtr<IUnknown> inner;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        if (!IsEqualIID(riid, IID_IUnknown)) return inner->QueryInterface(riid, object);
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
};

class InterfacesTest : public ControlTest {
protected:
    template <typename Interface>
    platform::ComPtr<Interface> as(REFIID iid) {
        return platform::query<Interface>(&control->inner(), iid);
    }
};

TEST_F(InterfacesTest, AreOneIdentityAndPartOfTheOuterObject) {
    expectOneIdentity(control->inner());
    EXPECT_EQ(control->AddRef(), 2u);
    EXPECT_EQ(control->Release(), 1u);

    const long before = platform::moduleLockCount;
    std::vector<std::string> events;
    ActiveContainer site(SiteLevel::Windowless, events);
    Outer outer;
    auto* part = Control::create(fonts, clock, 96, platform::systemWindows(), &outer);
    outer.inner = platform::ComPtr<IUnknown>::adopt(&part->inner());
    expectOneIdentity(outer);
    EXPECT_EQ(platform::query<IUnknown>(static_cast<IOleObject*>(part), IID_IUnknown).get(), &outer);
    EXPECT_EQ(platform::query<IUnknown>(outer.inner.get(), IID_IUnknown).get(), outer.inner.get());
    part->SetClientSite(&site);
    EXPECT_EQ(part->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    part->SetDefaultSize(0);
    EXPECT_EQ(outer.references, 1u);
    outer.inner = {};
    EXPECT_EQ(outer.references, 1u);
    EXPECT_EQ(site.references, 1u);
    EXPECT_EQ(platform::moduleLockCount, before);
}

/// A sink for property changes and for events; a control calls neither.
class Sink final : public IPropertyNotifySink {
public:
    ULONG references = 1;
    std::function<void()> onRelease;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        const bool known = IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IPropertyNotifySink) ||
                           IsEqualIID(riid, DIID__INorvel_OvalineCtrlEvents);
        *object = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        if (auto reaction = std::exchange(onRelease, nullptr)) reaction();
        return --references;
    }
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override {
        ADD_FAILURE() << "a put fires no notifications";
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return OnChanged(0); }
};

TEST_F(InterfacesTest, ConnectionPoints) {
    const auto container = as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    platform::ComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, point.put()), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, nullptr), E_POINTER);
    for (const IID& iid : {IID_IPropertyNotifySink, DIID__INorvel_OvalineCtrlEvents}) {
        ASSERT_EQ(container->FindConnectionPoint(iid, point.put()), S_OK);
        platform::ComPtr<IConnectionPointContainer> back;
        EXPECT_EQ(point->GetConnectionPointContainer(back.put()), S_OK);
        EXPECT_EQ(back.get(), container.get());
        EXPECT_FALSE(platform::query<IUnknown>(point.get(), IID_IDispatch)) << "an identity of its own";
        Sink first, second;
        std::vector<std::string> log;
        ActiveContainer other(SiteLevel::None, log);
        DWORD one = 0, two = 0, none = 9;
        EXPECT_EQ(point->Advise(static_cast<IOleClientSite*>(&other), &none), CONNECT_E_CANNOTCONNECT);
        EXPECT_EQ(none, 0u);
        EXPECT_EQ(point->Advise(nullptr, &none), E_POINTER);
        EXPECT_EQ(point->Advise(&first, nullptr), E_POINTER);
        ASSERT_EQ(point->Advise(&first, &one), S_OK);
        ASSERT_EQ(point->Advise(&second, &two), S_OK);
        control->SetDefaultSize(0);

        platform::ComPtr<IEnumConnections> connections, clone;
        ASSERT_EQ(point->EnumConnections(connections.put()), S_OK);
        CONNECTDATA data[3] = {};
        ULONG fetched = 0;
        EXPECT_EQ(connections->Next(2, data, nullptr), E_POINTER);
        EXPECT_EQ(connections->Skip(1), S_OK);
        ASSERT_EQ(connections->Clone(clone.put()), S_OK);
        EXPECT_EQ(clone->Next(3, data, &fetched), S_FALSE);
        ASSERT_EQ(fetched, 1u);
        EXPECT_EQ(data[0].pUnk, &second);
        EXPECT_EQ(data[0].dwCookie, two);
        data[0].pUnk->Release();
        EXPECT_EQ(clone->Skip(1), S_FALSE);
        EXPECT_EQ(connections->Reset(), S_OK);
        ASSERT_EQ(connections->Next(1, data, nullptr), S_OK);
        EXPECT_EQ(data[0].dwCookie, one);
        data[0].pUnk->Release();
        connections = {};
        clone = {};

        // A sink that disconnects the other while it is let go of.
        first.onRelease = [&] { EXPECT_EQ(point->Unadvise(two), S_OK); };
        EXPECT_EQ(point->Unadvise(one), S_OK);
        EXPECT_EQ(point->Unadvise(one), CONNECT_E_NOCONNECTION);
        EXPECT_EQ(point->Unadvise(two), CONNECT_E_NOCONNECTION);
        EXPECT_EQ(first.references, 1u);
        EXPECT_EQ(second.references, 1u);
    }
    platform::ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.put()), S_OK);
    IConnectionPoint* given[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(points->Next(3, given, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    for (ULONG i = 0; i < fetched; ++i) given[i]->Release();
}

TEST_F(InterfacesTest, QuickActivationSetsEverythingUp) {
    std::vector<std::string> events;
    ActiveContainer container(SiteLevel::Windowless, events);
    Sink notify;
    auto quick = as<IQuickActivate>(IID_IQuickActivate);
    QACONTAINER given{};
    given.cbSize = sizeof given;
    given.pClientSite = &container;
    given.pAdviseSink = &container;
    given.pPropertyNotifySink = &notify;
    given.pUnkEventSink = static_cast<IOleClientSite*>(&container);  // has not the event interface
    QACONTROL taken{};
    taken.cbSize = sizeof taken;
    taken.dwEventCookie = taken.dwPointerActivationPolicy = 77;
    EXPECT_EQ(quick->QuickActivate(nullptr, &taken), E_POINTER);
    EXPECT_EQ(quick->QuickActivate(&given, nullptr), E_POINTER);
    ASSERT_EQ(quick->QuickActivate(&given, &taken), S_OK);
    EXPECT_EQ(taken.dwMiscStatus, 131473u);
    EXPECT_NE(taken.dwPropNotifyCookie, 0u);
    EXPECT_EQ(taken.dwEventCookie, 0u);
    EXPECT_EQ(taken.dwPointerActivationPolicy, 0u);
    control->SetDefaultSize(0);
    EXPECT_EQ(events, (std::vector<std::string>{"posRect", "viewChange"}));
    control->SetClientSite(nullptr);
    control->SetAdvise(0, 0, nullptr);
    EXPECT_EQ(container.references, 1u);
    EXPECT_EQ(notify.references, 2u);
    control = {};
    quick = {};
    EXPECT_EQ(notify.references, 1u);
}

TEST_F(InterfacesTest, WhatTheClassTellsOfItself) {
    CAUUID pages{};
    ASSERT_EQ(as<ISpecifyPropertyPages>(IID_ISpecifyPropertyPages)->GetPages(&pages), S_OK);
    ASSERT_EQ(pages.cElems, 2u);
    EXPECT_TRUE(IsEqualGUID(pages.pElems[0], CLSID_Norvel_OvalinePropPage));
    EXPECT_TRUE(IsEqualGUID(pages.pElems[1], CLSID_OvalineSerialPropPage));
    CoTaskMemFree(pages.pElems);
    GUID id{};
    const auto info = as<IProvideClassInfo2>(IID_IProvideClassInfo2);
    EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, DIID__INorvel_OvalineCtrlEvents));
    EXPECT_EQ(info->GetGUID(2, &id), E_INVALIDARG);
    LPOLESTR name = nullptr;
    ASSERT_EQ(control->GetUserType(1, &name), S_OK);
    EXPECT_EQ(platform::viewOf(name), u"Norvel_OvalineCtrl Class");
    CoTaskMemFree(name);
    const auto data = as<IDataObject>(IID_IDataObject);
    platform::ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.put()), S_OK);
    FORMATETC offered{};
    while (formats->Next(1, &offered, nullptr) == S_OK) EXPECT_EQ(data->QueryGetData(&offered), S_OK);
    offered = {1, nullptr, DVASPECT_CONTENT, -1, 1};
    STGMEDIUM medium{};
    EXPECT_EQ(data->GetData(&offered, &medium), DV_E_FORMATETC) << "text";
    DWORD status = 1;
    EXPECT_EQ(control->GetMiscStatus(2, &status), S_OK);
    EXPECT_EQ(status, 0u) << "of another aspect than the content";
    IEnumOLEVERB* verbs = nullptr;
    EXPECT_EQ(control->EnumVerbs(&verbs), OLEOBJ_E_NOVERBS);
}

TEST_F(InterfacesTest, ViewHitsAndExtents) {
    const RECT bounds{10, 20, 30, 40};
    const struct {
        LONG x, y;
        DWORD hit;
    } points[] = {
        {10, 20, HITRESULT_HIT}, {29, 39, HITRESULT_HIT}, {30, 39, HITRESULT_OUTSIDE}, {9, 20, HITRESULT_OUTSIDE}};
    for (const auto& each : points) {
        DWORD hit = 77;
        EXPECT_EQ(control->QueryHitPoint(DVASPECT_CONTENT, &bounds, {each.x, each.y}, 0, &hit), S_OK);
        EXPECT_EQ(hit, each.hit) << each.x;
        const RECT pixel{each.x, each.y, each.x + 1, each.y + 1};
        EXPECT_EQ(control->QueryHitRect(DVASPECT_CONTENT, &bounds, &pixel, 0, &hit), S_OK);
        EXPECT_EQ(hit, each.hit) << each.x;
    }
    SIZEL size{1, 2};
    EXPECT_EQ(control->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    RECTL area{};
    EXPECT_EQ(control->GetRect(DVASPECT_CONTENT, &area), S_OK);
    EXPECT_EQ(area.bottom, 2);
    EXPECT_EQ(control->GetRect(2, &area), DV_E_DVASPECT);
    DVEXTENTINFO info{};
    EXPECT_EQ(control->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, &info, &size), S_OK);
    EXPECT_EQ(size.cx, 5080);

    std::vector<std::string> events;
    ActiveContainer container(SiteLevel::None, events);
    control->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST | ADVF_ONLYONCE, &container);
    EXPECT_EQ(events, std::vector<std::string>{"viewChange"});
    EXPECT_EQ(container.references, 1u) << "told once, let go of";
}

}  // namespace
}  // namespace ovaline
