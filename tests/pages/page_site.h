// A property page's site that writes down what it is told.
#pragma once

#include <functional>
#include <vector>

#include "platform/com.h"

namespace ovaline {

class RecordingPageSite final : public IPropertyPageSite {
public:
    std::vector<DWORD> states;
    std::function<void()> onStatus = [] {};
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD status) override {
        states.push_back(status);
        onStatus();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return S_FALSE; }
};

}  // namespace ovaline
