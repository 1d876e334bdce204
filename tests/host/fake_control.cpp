#include "fake_control.h"

#include <algorithm>

#include "control/interface/class_ids.h"
#include "fake_control_base.h"

namespace ovaline::host::testing {

namespace {

using platform::ComPtr;

constexpr std::size_t kRecordSize = 272;

class FakeControl final : public HoldingControl, public SilentOleObject, public SilentViewObject {
public:
    FakeControl() {
        ++fake().alive;
        ArrayXDimension_.value = 1;
        ArrayYDimension_.value = 1;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_INorvel_OvalineCtrl) *object = static_cast<INorvel_OvalineCtrl*>(this);
        if (iid == IID_IOleObject) *object = static_cast<IOleObject*>(this);
        if (iid == IID_IViewObject) *object = static_cast<IViewObject*>(this);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override {
        site_ = platform::query<IOleInPlaceSite>(site, IID_IOleInPlaceSite);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD, DWORD, IAdviseSink* sink) override {
        sink_ = ComPtr<IAdviseSink>::share(sink);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE SetUpdateFlag(LONG flag) override {
        update_ = flag;
        return flag ? changed(S_OK) : S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetDefaultSize(LONG) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetMeasurement(INT unit) override {
        unit_ = unit;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetMeasurement(INT* unit) override {
        *unit = unit_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetDotsPerUnit(FLOAT) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE put_ArrayXDimension(LONG value) override {
        return value < 1 || value > 255 ? S_FALSE : HoldingControl::put_ArrayXDimension(value);
    }
    HRESULT STDMETHODCALLTYPE GetArrayType(INT* type) override {
        *type = SerialNumEnable_.value ? 0 : 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetResultSize(VARIANT left, VARIANT top, VARIANT right, VARIANT bottom) override {
        *left.pvarVal->plVal = 0;
        *top.pvarVal->plVal = 0;
        *right.pvarVal->plVal = fake().resultWidth;
        *bottom.pvarVal->plVal = fake().resultHeight;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetIncrement() override {
        ++fake().increments;
        return changed(fake().increment);
    }
    HRESULT STDMETHODCALLTYPE GetVectorDataSize(ULONG* size) override {
        *size = fake().askedSize;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetVectorData(VARIANT data, ULONG size) override {
        fake().sizes.push_back(size);
        return write(fake().stream, data, size);
    }
    HRESULT STDMETHODCALLTYPE GetOutlineData(VARIANT data, ULONG size) override {
        return write(fake().stream, data, size);
    }
    HRESULT STDMETHODCALLTYPE SetStepSize(FLOAT) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetRasterDataSize(LONG* size) override {
        *size = static_cast<LONG>(fake().raster.size() + 62);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetRasterData(VARIANT data, LONG size) override {
        return write(fake().raster, data, static_cast<ULONG>(size));
    }
    HRESULT STDMETHODCALLTYPE GetProperty(VARIANT data) override {
        for (std::size_t i = 0; i < kRecordSize; ++i) data.pbVal[i] = static_cast<BYTE>(i);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetProperty(VARIANT data) override {
        const auto* bytes = static_cast<const std::byte*>(data.byref);
        fake().record.assign(bytes, bytes + kRecordSize);
        return S_OK;
    }

protected:
    HRESULT changed(HRESULT hr) override {
        if (!update_ || FAILED(hr)) return hr;
        ++fake().regenerations;
        const RECT rectangle{1, 2, 3, 4};
        if (site_) site_->OnPosRectChange(&rectangle);
        if (sink_) sink_->OnViewChange(DVASPECT_CONTENT, -1);
        return hr;
    }

private:
    ~FakeControl() { --fake().alive; }

    static HRESULT write(const std::vector<std::byte>& bytes, const VARIANT& data, ULONG size) {
        auto* buffer = static_cast<std::byte*>(data.pvarVal->byref);
        for (std::size_t i = 0; i < fake().overrun; ++i) buffer[size + i] = std::byte{0};
        if (bytes.size() <= size) {
            std::ranges::copy(bytes, buffer);
            return S_OK;
        }
        if (size >= kVectorRecordSize) encode(kEndRecord, buffer);
        return DISP_E_BUFFERTOOSMALL;
    }

    ULONG references_ = 1;
    LONG update_ = 1;
    INT unit_ = 0;
    ComPtr<IOleInPlaceSite> site_;
    ComPtr<IAdviseSink> sink_;
};

class FakeFactory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
        const auto made = ComPtr<FakeControl>::adopt(new FakeControl);
        return made->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

HRESULT STDAPICALLTYPE getFakeClassObject(REFCLSID clsid, REFIID iid, void** object) {
    static FakeFactory factory;
    return clsid == CLSID_Norvel_OvalineCtrl ? factory.QueryInterface(iid, object) : CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace

FakeBehaviour& fake() {
    static FakeBehaviour behaviour;
    return behaviour;
}

platform::GetClassObject fakeModule() {
    return &getFakeClassObject;
}

std::vector<std::byte> streamOf(const std::vector<VectorRecord>& records) {
    std::vector<std::byte> stream(records.size() * kVectorRecordSize);
    for (std::size_t i = 0; i < records.size(); ++i) encode(records[i], stream.data() + i * kVectorRecordSize);
    return stream;
}

}  // namespace ovaline::host::testing
