#include "module/class_factory.h"

#include <new>

namespace ovaline {

HRESULT ClassFactory::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, IID_IClassFactory)) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

ULONG ClassFactory::AddRef() {
    return ++references_;
}

ULONG ClassFactory::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    // A part's own unknown is all that its outer object may get: no other interface would come back to the part.
    if (outer && !IsEqualIID(riid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
    try {
        return create_(outer, riid, object);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    platform::moduleLockCount += lock ? 1 : -1;
    return S_OK;
}

}  // namespace ovaline
