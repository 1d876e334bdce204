// The operations of a fake control that do nothing but hold values.
#pragma once

#include <string>

#include "control/interface/norvel_ovaline_ctrl.h"

namespace ovaline::host::testing {

/// One property's value.
template <typename Type>
struct Held {
    Type value{};
    HRESULT get(Type* to) const {
        *to = value;
        return S_OK;
    }
    HRESULT put(Type from) {
        value = from;
        return S_OK;
    }
};

template <>
struct Held<BSTR> {
    std::u16string value;
    HRESULT get(BSTR* to) const {
        *to = platform::makeBstr(value);
        return S_OK;
    }
    HRESULT put(BSTR from) {
        value = platform::textOf(from);
        return S_OK;
    }
};

// The parameters of the operations have their published names, which most of them do not use here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"

/// Every put is held and told to `changed`; every method answers E_NOTIMPL.
class HoldingControl : public INorvel_OvalineCtrlTable {
public:
#define PROPERTY(id, name, type)                                 \
    HRESULT STDMETHODCALLTYPE get_##name(type* value) override { \
        return name##_.get(value);                               \
    }                                                            \
    HRESULT STDMETHODCALLTYPE put_##name(type value) override {  \
        return changed(name##_.put(value));                      \
    }
#define METHOD(id, name, parameters, names, out)         \
    HRESULT STDMETHODCALLTYPE name parameters override { \
        return E_NOTIMPL;                                \
    }
#define TABLE_PROPERTY(name, type) PROPERTY(0, name, type)
#include "control/interface/members.inc"
#undef PROPERTY
#undef METHOD
#undef TABLE_PROPERTY

protected:
    ~HoldingControl() = default;
    virtual HRESULT changed(HRESULT hr) = 0;

#define PROPERTY(id, name, type) Held<type> name##_;
#define METHOD(id, name, parameters, names, out)
#define TABLE_PROPERTY(name, type) PROPERTY(0, name, type)
#include "control/interface/members.inc"
#undef PROPERTY
#undef METHOD
#undef TABLE_PROPERTY
};

/// The parts of a control's object that a container talks to; only what the host program uses does something.
class SilentOleObject : public IOleObject {
public:
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Close(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG, MSG*, IOleClientSite*, LONG, HWND, LPCRECT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Update() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

protected:
    ~SilentOleObject() = default;
};

class SilentViewObject : public IViewObject {
public:
    HRESULT STDMETHODCALLTYPE Draw(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, HDC, LPCRECTL, LPCRECTL,
                                   BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD*, DWORD*, IAdviseSink**) override { return E_NOTIMPL; }

protected:
    ~SilentViewObject() = default;
};
#pragma GCC diagnostic pop

}  // namespace ovaline::host::testing
