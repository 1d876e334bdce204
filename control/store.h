// How the control's operations store a value.
#pragma once

#include <new>

#include "control/norvel_ovaline_ctrl.h"

namespace ovaline {

template <typename Store>
HRESULT CNorvel_OvalineCtrl::storeOnly(Store&& store) {
    try {
        store(settings_);
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

template <typename Store>
HRESULT CNorvel_OvalineCtrl::storeAndUpdate(Store&& store) {
    const HRESULT hr = storeOnly(store);
    if (SUCCEEDED(hr)) update();
    return hr;
}

}  // namespace ovaline
