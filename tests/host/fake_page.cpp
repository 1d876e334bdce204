#include "fake_page.h"

#include <algorithm>

#include "control/interface/class_ids.h"
#include "platform/dialogs.h"
#include "platform/drawing.h"

namespace ovaline::host::testing {

namespace {

using platform::ComPtr;

LPOLESTR allocated(std::u16string_view text) {
    auto* copy = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(OLECHAR)));
    *std::ranges::copy(text, copy).out = 0;
    return copy;
}

class FakePage final : public IPropertyPage, private platform::DialogEvents {
public:
    explicit FakePage(std::uint32_t templateId) : templateId_(templateId) { ++fakePagesAlive(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = iid == IID_IPropertyPage ? this : nullptr;
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
    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override {
        site_ = ComPtr<IPropertyPageSite>::share(site);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT, BOOL) override {
        if (FAILED(fakePageRefusal())) return fakePageRefusal();
        dialog_ = platform::makeDialog(templateId_, 1033, parent, *this);
        if (!dialog_ || !control_ || !site_) return E_FAIL;
        dialog_->addItem(266, u"one");
        dialog_->addItem(266, u"\xD83Dtwo");
        dialog_->setTextLimit(1213, 4);
        dialog_->setSpinRange(208, -2, 3);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Deactivate() override {
        dialog_.reset();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override {
        *info = {
            sizeof *info, allocated(u"A \"title\""), platform::dialogSize(templateId_), allocated(u""), nullptr, 0};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override {
        control_ = {};
        if (count > 0) control_ = platform::query<INorvel_OvalineCtrl>(objects[0], IID_INorvel_OvalineCtrl);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Show(UINT command) override {
        dialog_->setVisible(command != SW_HIDE);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Move(LPCRECT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsPageDirty() override { return dialog_->text(201).empty() ? S_FALSE : S_OK; }
    HRESULT STDMETHODCALLTYPE Apply() override {
        control_->put_Width(7);
        site_->OnStatusChange(PROPPAGESTATUS_CLEAN);
        return control_->put_ArrayXDimension(0);
    }
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return E_NOTIMPL; }

private:
    ~FakePage() { --fakePagesAlive(); }

    void textChanged(int) override { dialog_->showMessage(dialog_->text(201)); }
    void selectionChanged(int) override { site_->OnStatusChange(PROPPAGESTATUS_DIRTY); }
    void clicked(int) override {
        site_->OnStatusChange(PROPPAGESTATUS_DIRTY);
        control_->put_FontBold(VARIANT_TRUE);
        dialog_->showMessage(u"done");
    }
    void doubleClicked(int) override {}
    void spun(int, int delta) override { site_->OnStatusChange(delta > 0 ? 1 : 2); }
    void paint(int, HDC dc, const RECT&) override {
        platform::makeCanvas(dc)->fillOutside({1, 1, 1, 1}, {}, platform::kOpaqueBlack);
    }

    std::uint32_t templateId_;
    ULONG references_ = 1;
    ComPtr<IPropertyPageSite> site_;
    ComPtr<INorvel_OvalineCtrl> control_;
    std::unique_ptr<platform::Dialog> dialog_;
};

}  // namespace

int& fakePagesAlive() {
    static int alive = 0;
    return alive;
}

HRESULT& fakePageRefusal() {
    static HRESULT refusal = S_OK;
    return refusal;
}

IPropertyPage* makeFakePage(REFCLSID classId) {
    if (classId == CLSID_Norvel_OvalinePropPage) return new FakePage(105);
    if (classId == CLSID_OvalineSerialPropPage) return new FakePage(110);
    return nullptr;
}

}  // namespace ovaline::host::testing
