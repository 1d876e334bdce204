#include "control/norvel_ovaline_ctrl.h"

#include <new>
#include <utility>

#include "control/late_binding.h"
#include "control/regenerate.h"
#include "control/store.h"
#include "platform/numbers.h"
#include "platform/type_info.h"

namespace ovaline {

CNorvel_OvalineCtrl* CNorvel_OvalineCtrl::create(platform::FontService& fonts, const platform::Clock& clock,
                                                 float screenDpi, platform::WindowSystem& windows, IUnknown* outer) {
    return new CNorvel_OvalineCtrl(fonts, clock, screenDpi, windows, outer);
}

CNorvel_OvalineCtrl::CNorvel_OvalineCtrl(platform::FontService& fonts, const platform::Clock& clock, float screenDpi,
                                         platform::WindowSystem& windows, IUnknown* outer)
    : inner_(*this, outer),
      fonts_(fonts),
      clock_(clock),
      settings_(startUpSettings(screenDpi)),
      oleControl_(whole()),
      classDescription_(whole()),
      connectionPoints_(whole()),
      inPlace_(whole(), container_, windows, [this](HDC dc, const RECTL& bounds) { OnDraw(dc, bounds); }),
      dataObject_(whole(), extent_, [this](HDC dc, const RECTL& bounds) { OnDraw(dc, bounds); }),
      quickSetUp_(whole(), *this, *this, connectionPoints_) {}

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
    const auto alive = keepAlive();
    Regenerate();
    if (!inPlace_.requestRepaint()) container_.reportViewChange();
}

HRESULT CNorvel_OvalineCtrl::QueryInterface(REFIID riid, void** object) {
    return inner_.outer().QueryInterface(riid, object);
}

ULONG CNorvel_OvalineCtrl::AddRef() {
    return inner_.outer().AddRef();
}

ULONG CNorvel_OvalineCtrl::Release() {
    return inner_.outer().Release();
}

void* CNorvel_OvalineCtrl::ownInterface(REFIID riid) {
    IOleInPlaceObjectWindowless* const inPlaceObject = &inPlace_;
    IProvideClassInfo2* const classInfo = &classDescription_;
    INorvel_OvalineCtrlTable* const dispatch = this;
    IViewObjectEx* const view = this;
    IPersistStreamInit* const persistStream = this;
    const struct {
        const IID& iid;
        void* address;
    } interfaces[] = {
        {IID_IDispatch, dispatch},
        {IID_INorvel_OvalineCtrl, dispatch},
        {IID_IOleObject, static_cast<IOleObject*>(this)},
        {IID_IOleControl, static_cast<IOleControl*>(&oleControl_)},
        {IID_IOleWindow, inPlaceObject},
        {IID_IOleInPlaceObject, inPlaceObject},
        {IID_IOleInPlaceObjectWindowless, inPlaceObject},
        {IID_IOleInPlaceActiveObject, static_cast<IOleInPlaceActiveObject*>(&inPlace_)},
        {IID_IViewObject, view},
        {IID_IViewObject2, view},
        {IID_IViewObjectEx, view},
        {IID_IPersist, persistStream},
        {IID_IPersistStreamInit, persistStream},
        {IID_IPersistStorage, static_cast<IPersistStorage*>(this)},
        {IID_IDataObject, static_cast<IDataObject*>(&dataObject_)},
        {IID_IQuickActivate, static_cast<IQuickActivate*>(&quickSetUp_)},
        {IID_ISpecifyPropertyPages, static_cast<ISpecifyPropertyPages*>(&classDescription_)},
        {IID_IProvideClassInfo, classInfo},
        {IID_IProvideClassInfo2, classInfo},
        {IID_IConnectionPointContainer, static_cast<IConnectionPointContainer*>(&connectionPoints_)},
    };
    for (const auto& entry : interfaces)
        if (IsEqualIID(riid, entry.iid)) return entry.address;
    return nullptr;
}

// Late binding works from this module's own tables; the platform's type information is for those who ask for it.
HRESULT CNorvel_OvalineCtrl::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = platform::hasTypeLibrary() ? 1 : 0;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return index == 0 ? platform::loadTypeInfo(IID_INorvel_OvalineCtrl, info) : DISP_E_BADINDEX;
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
