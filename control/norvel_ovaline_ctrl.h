// CNorvel_OvalineCtrl: the control object that a host creates, one for each marking object of its job.
#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <span>

#include "control/container_link.h"
#include "control/interface/norvel_ovaline_ctrl.h"
#include "control/kept_paths.h"
#include "control/persistence.h"
#include "control/text_settings.h"
#include "geometry/layout_font.h"
#include "output/raster.h"
#include "platform/clock.h"
#include "platform/module_lock.h"

namespace ovaline {

/// Holds the settings and the paths that the last regeneration made of them. Lives in one apartment: every operation
/// runs on the thread that created it.
class CNorvel_OvalineCtrl final : public INorvel_OvalineCtrlTable,
                                  public IOleObject,
                                  public IViewObject,
                                  public IPersistStreamInit,
                                  public IPersistStorage {
public:
    /// A control with its start-up settings and empty paths, holding one reference for the caller.
    static CNorvel_OvalineCtrl* create(platform::FontService& fonts, const platform::Clock& clock, float screenDpi);

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

    // IOleObject: the site is held; what belongs to embedding, moniker and verb handling is answered as published for
    // an object without it.
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

    // IViewObject: the advise sink is held.
    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC targetDc,
                                   HDC drawDc, LPCRECTL bounds, LPCRECTL windowBounds,
                                   BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR), ULONG_PTR context) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                                          HDC targetDc, LOGPALETTE** colors) override;
    HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* freeze) override;
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD freeze) override;
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;

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
    CNorvel_OvalineCtrl(platform::FontService& fonts, const platform::Clock& clock, float screenDpi);
    ~CNorvel_OvalineCtrl() = default;

    /// Rebuilds the paths and the result, and asks the container for the new rectangle. Where memory does not suffice
    /// the paths are left empty.
    void Regenerate();
    /// Takes the rectangle as the control's own and draws the preview into it. What can't be drawn is left out.
    void OnDraw(HDC dc, const RECTL& bounds);
    /// What every regenerating operation does after it stored its value.
    void update();
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
    std::atomic<ULONG> references_{1};
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
};

}  // namespace ovaline
