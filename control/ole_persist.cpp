// The control's side of IPersistStreamInit and IPersistStorage.
#include "control/norvel_ovaline_ctrl.h"

namespace ovaline {

HRESULT CNorvel_OvalineCtrl::GetClassID(CLSID* id) {
    if (!id) return E_POINTER;
    *id = CLSID_Norvel_OvalineCtrl;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::IsDirty() {
    const bool stored = storedExtent_ && storedExtent_->cx == extent_.cx && storedExtent_->cy == extent_.cy;
    return stored ? S_FALSE : S_OK;
}

HRESULT CNorvel_OvalineCtrl::InitNew() {
    extent_ = kStartUpExtent;
    storedExtent_.reset();
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::Load(IStream* stream) {
    if (!stream) return E_POINTER;
    const HRESULT hr = loadExtent(*stream, extent_);
    if (SUCCEEDED(hr)) storedExtent_ = extent_;
    return hr;
}

HRESULT CNorvel_OvalineCtrl::Save(IStream* stream, BOOL clearDirty) {
    if (!stream) return E_POINTER;
    const HRESULT hr = saveExtent(*stream, extent_);
    if (SUCCEEDED(hr) && clearDirty) storedExtent_ = extent_;
    return hr;
}

HRESULT CNorvel_OvalineCtrl::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size) return E_POINTER;
    size->QuadPart = kSavedSize;
    return S_OK;
}

// The storage is not kept: all that is saved is written at once.
HRESULT CNorvel_OvalineCtrl::InitNew(IStorage* storage) {
    if (!storage) return E_POINTER;
    if (storageState_.initialised()) return CO_E_ALREADYINITIALIZED;
    storageState_.initialise();
    return InitNew();
}

HRESULT CNorvel_OvalineCtrl::Load(IStorage* storage) {
    if (!storage) return E_POINTER;
    if (storageState_.initialised()) return CO_E_ALREADYINITIALIZED;
    const HRESULT hr = loadExtent(*storage, extent_);
    if (FAILED(hr)) return hr;
    storageState_.initialise();
    storedExtent_ = extent_;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::Save(IStorage* storage, BOOL sameAsLoad) {
    if (!storage) return E_POINTER;
    if (!storageState_.mayWrite()) return E_UNEXPECTED;
    const HRESULT hr = saveExtent(*storage, extent_);
    if (SUCCEEDED(hr)) storageState_.saved(extent_, sameAsLoad != 0);
    return hr;
}

HRESULT CNorvel_OvalineCtrl::SaveCompleted(IStorage* newStorage) {
    if (!storageState_.mayComplete()) return E_UNEXPECTED;
    if (!newStorage && storageState_.needsStorage()) return E_INVALIDARG;
    if (const auto stored = storageState_.complete(newStorage != nullptr)) storedExtent_ = stored;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::HandsOffStorage() {
    storageState_.handOff();
    return S_OK;
}

}  // namespace ovaline
