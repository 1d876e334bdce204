// The module's exports: class objects, and whether the module may go.
#include <atomic>
#include <new>

#include "control/norvel_ovaline_ctrl.h"
#include "platform/display.h"
#include "platform/fonts.h"
#include "platform/module_lock.h"

namespace ovaline {

namespace {

/// The class object of the control.
class ControlFactory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, IID_IClassFactory)) return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        try {
            const auto control = platform::ComPtr<CNorvel_OvalineCtrl>::adopt(
                CNorvel_OvalineCtrl::create(platform::systemFonts(), platform::systemClock(), platform::displayDpi()));
            return control->QueryInterface(riid, object);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        platform::moduleLockCount += lock ? 1 : -1;
        return S_OK;
    }

private:
    ~ControlFactory() = default;

    platform::ModuleLock moduleLock_;
    std::atomic<ULONG> references_{1};
};

}  // namespace

}  // namespace ovaline

#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))

MODULE_EXPORT HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID riid, void** object) {
    using namespace ovaline;
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualGUID(clsid, CLSID_Norvel_OvalineCtrl)) return CLASS_E_CLASSNOTAVAILABLE;
    auto* made = new (std::nothrow) ControlFactory;
    if (!made) return E_OUTOFMEMORY;
    return platform::ComPtr<ControlFactory>::adopt(made)->QueryInterface(riid, object);
}

MODULE_EXPORT HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return ovaline::platform::moduleLockCount == 0 ? S_OK : S_FALSE;
}
