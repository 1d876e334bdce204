// CNorvel_OvalineCtrl: the control object that a host creates, one for each marking object of its job.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "control/advise_holder.h"
#include "control/class_description.h"
#include "control/connection_points.h"
#include "control/container_link.h"
#include "control/data_object.h"
#include "control/in_place.h"
#include "control/interface/norvel_ovaline_ctrl.h"
#include "control/kept_paths.h"
#include "control/ole_control.h"
#include "control/part.h"
#include "control/persistence.h"
#include "control/quick_activate.h"
#include "control/text_settings.h"
#include "geometry/layout_font.h"
#include "output/raster.h"
#include "platform/clock.h"
#include "platform/module_lock.h"

namespace ovaline {

/// Holds the settings and the paths that the last regeneration made of them. Lives in one apartment: every operation
/// runs on the thread that created it. The interfaces that need little of it are parts of their own, below.
class CNorvel_OvalineCtrl final : public INorvel_OvalineCtrlTable,
                                  public IOleObject,
                                  public IViewObjectEx,
                                  public IPersistStreamInit,
                                  public IPersistStorage {
public:
    /// A control with its start-up settings and empty paths, holding one reference for the caller. With an `outer`
    /// object, which then is not held, the control is part of it, and the reference is one of `inner()`.
    static CNorvel_OvalineCtrl* create(platform::FontService& fonts, const platform::Clock& clock, float screenDpi,
                                       platform::WindowSystem& windows = platform::systemWindows(),
                                       IUnknown* outer = nullptr);

    /// The unknown that the owner of the control holds; every other one is the outer object's, where there is one.
    IUnknown& inner() { return inner_; }

    const TextSettings& settings() const { return settings_; }
    const KeptPaths& paths() const { return paths_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID lcid, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID riid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override;

#define PROPERTY(id, name, type)                                \
    HRESULT STDMETHODCALLTYPE get_##name(type* value) override; \
    HRESULT STDMETHODCALLTYPE put_##name(type value) override;
#define METHOD(id, name, parameters, names, out) HRESULT STDMETHODCALLTYPE name parameters override;
#define TABLE_PROPERTY(name, type) PROPERTY(0, name, type)
#include "control/interface/members.inc"
#undef PROPERTY
#undef METHOD
#undef TABLE_PROPERTY

    // IOleObject: what belongs to embedded documents is answered as published for an object without it.
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR application, LPCOLESTR object) override;
    HRESULT STDMETHODCALLTYPE Close(DWORD saveOption) override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) override;
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                                     LPCRECT position) override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
    HRESULT STDMETHODCALLTYPE Update() override;
    HRESULT STDMETHODCALLTYPE IsUpToDate() override;
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* type) override;
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advise) override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) override;

    // IViewObjectEx: the picture is transparent around the text, and a hit is one on the control's rectangle.
    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC targetDc,
                                   HDC drawDc, LPCRECTL bounds, LPCRECTL windowBounds,
                                   BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR), ULONG_PTR context) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                                          HDC targetDc, LOGPALETTE** colors) override;
    HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* freeze) override;
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD freeze) override;
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE GetRect(DWORD aspect, RECTL* rectangle) override;
    HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* status) override;
    HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG close, DWORD* hit) override;
    HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG close,
                                           DWORD* hit) override;
    HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC targetDc,
                                               DVEXTENTINFO* info, SIZEL* size) override;

    // IPersistStreamInit and IPersistStorage, which share their first two operations. Only the extent is saved; the
    // control is dirty while that differs from what is stored.
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
    HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
    HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
    HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) override;
    HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* newStorage) override;
    HRESULT STDMETHODCALLTYPE HandsOffStorage() override;

private:
    friend class InnerUnknown<CNorvel_OvalineCtrl>;

    CNorvel_OvalineCtrl(platform::FontService& fonts, const platform::Clock& clock, float screenDpi,
                        platform::WindowSystem& windows, IUnknown* outer);
    ~CNorvel_OvalineCtrl() = default;

    /// The address of one of the control's own interfaces, null where it has none.
    void* ownInterface(REFIID riid);
    /// The control as its parts know it.
    IUnknown& whole() {
        return static_cast<INorvel_OvalineCtrlTable&>(*this);
    }
    platform::ComPtr<IUnknown> keepAlive() {
        return platform::ComPtr<IUnknown>::share(&whole());
    }

    /// Rebuilds the paths and the result, and asks the container for the new rectangle. Where memory does not suffice
    /// the paths are left empty.
    void Regenerate();
    /// Takes the rectangle as the control's own and draws the preview into it. What can't be drawn is left out.
    void OnDraw(HDC dc, const RECTL& bounds);
    /// What every regenerating operation does after it stored its value.
    void update();
    /// What a container's user sees of the settings: the container's own frame, else the platform's.
    HRESULT showProperties(HWND parent, LPCRECT position);
    /// Runs a store and, if it stored, `update`. No exception leaves the control.
    template <typename Store>
    HRESULT storeAndUpdate(Store&& store);
    template <typename Store>
    HRESULT storeOnly(Store&& store);
    using StreamWriter = bool (*)(const struct VectorJob& job, std::span<std::byte> buffer);
    HRESULT exportTo(const VARIANT& buffer, ULONG size, StreamWriter write);
    /// Renders the paths as they are now into the raster that is held; where that fails none is held.
    void renderHeldRaster();

    platform::ModuleLock moduleLock_;
    InnerUnknown<CNorvel_OvalineCtrl> inner_;
    platform::FontService& fonts_;
    const platform::Clock& clock_;
    LayoutFont font_;
    TextSettings settings_;
    KeptPaths paths_;
    Raster raster_;                        // what the last rendering left
    HRESULT rasterStatus_ = E_UNEXPECTED;  // S_OK where a raster is held, else why there is none: nothing rendered yet
    ContainerLink container_;
    SIZEL extent_ = kStartUpExtent;
    std::optional<SIZEL> storedExtent_;  // what the container's stream or storage holds
    StorageState storageState_;
    AdviseHolder adviseHolder_;

    OleControl oleControl_;
    ClassDescription classDescription_;
    ConnectionPoints connectionPoints_;
    InPlace inPlace_;
    DataObject dataObject_;
    QuickSetUp quickSetUp_;
};

}  // namespace ovaline
