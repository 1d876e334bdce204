#include "control/norvel_ovaline_ctrl.h"

#include <new>
#include <utility>

#include "control/late_binding.h"
#include "control/regenerate.h"
#include "control/store.h"
#include "platform/numbers.h"

namespace ovaline {

CNorvel_OvalineCtrl* CNorvel_OvalineCtrl::create(platform::FontService& fonts, const platform::Clock& clock,
                                                 float screenDpi) {
    return new CNorvel_OvalineCtrl(fonts, clock, screenDpi);
}

CNorvel_OvalineCtrl::CNorvel_OvalineCtrl(platform::FontService& fonts, const platform::Clock& clock, float screenDpi)
    : fonts_(fonts), clock_(clock), settings_(startUpSettings(screenDpi)) {}

void CNorvel_OvalineCtrl::Regenerate() {
    Regenerated result;
    try {
        result = regenerate(settings_, fonts_, clock_, font_, std::move(paths_));
    } catch (const std::bad_alloc&) {
        result.refused = true;
    }
    paths_ = std::move(result.paths);
    if (!result.refused) {
        settings_.ResultLeft = settings_.ResultTop = 0;
        settings_.ResultRight = result.resultRight;
        settings_.ResultBottom = result.resultBottom;
        settings_.ScreenWidth = result.screenWidth;
        settings_.ScreenHeight = result.screenHeight;
    }
    container_.requestPosition({truncateToInt32(settings_.ScreenLeft), truncateToInt32(settings_.ScreenTop),
                                truncateToInt32(settings_.ScreenLeft + settings_.ScreenWidth),
                                truncateToInt32(settings_.ScreenTop + settings_.ScreenHeight)});
}

void CNorvel_OvalineCtrl::update() {
    if (settings_.UpdateFlag == 0) return;
    // The container may let go of the control while it is asked for a new rectangle.
    const auto alive = platform::ComPtr<INorvel_OvalineCtrlTable>::share(this);
    Regenerate();
    container_.requestRepaint();
}

HRESULT CNorvel_OvalineCtrl::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IDispatch) || IsEqualIID(riid, IID_INorvel_OvalineCtrl))
        *object = static_cast<INorvel_OvalineCtrlTable*>(this);
    else if (IsEqualIID(riid, IID_IOleObject))
        *object = static_cast<IOleObject*>(this);
    else if (IsEqualIID(riid, IID_IViewObject))
        *object = static_cast<IViewObject*>(this);
    else if (IsEqualIID(riid, IID_IPersist) || IsEqualIID(riid, IID_IPersistStreamInit))
        *object = static_cast<IPersistStreamInit*>(this);
    else if (IsEqualIID(riid, IID_IPersistStorage))
        *object = static_cast<IPersistStorage*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG CNorvel_OvalineCtrl::AddRef() {
    return ++references_;
}

ULONG CNorvel_OvalineCtrl::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

// The type library is known to this module as tables; there is no type information object to hand out.
HRESULT CNorvel_OvalineCtrl::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT CNorvel_OvalineCtrl::GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!IsEqualIID(riid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0) return E_INVALIDARG;
    try {
        return lateIdsOfNames({names, count}, ids);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT CNorvel_OvalineCtrl::Invoke(DISPID id, REFIID riid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                    EXCEPINFO*, UINT* argumentError) {
    if (!IsEqualIID(riid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_INVALIDARG;
    try {
        return lateInvoke(*this, id, flags, *parameters, result, argumentError);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace ovaline
