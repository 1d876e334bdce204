// The module's exports: class objects, registration, and whether the module may go.
#include <new>

#include "module/class_factory.h"
#include "module/registration.h"
#include "platform/module_export.h"
#include "platform/module_path.h"

MODULE_EXPORT HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID riid, void** object) {
    using namespace ovaline;
    if (!object) return E_POINTER;
    *object = nullptr;
    const ClassEntry* entry = findClass(clsid);
    if (!entry) return CLASS_E_CLASSNOTAVAILABLE;
    auto* made = new (std::nothrow) ClassFactory(entry->create);
    if (!made) return E_OUTOFMEMORY;
    return platform::ComPtr<ClassFactory>::adopt(made)->QueryInterface(riid, object);
}

MODULE_EXPORT HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return ovaline::platform::moduleLockCount == 0 ? S_OK : S_FALSE;
}

MODULE_EXPORT HRESULT STDAPICALLTYPE DllRegisterServer() {
    try {
        const auto path = ovaline::platform::modulePath();
        return path ? ovaline::registerServer(ovaline::platform::systemRegistry(), *path) : E_FAIL;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

MODULE_EXPORT HRESULT STDAPICALLTYPE DllUnregisterServer() {
    try {
        return ovaline::unregisterServer(ovaline::platform::systemRegistry());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}
