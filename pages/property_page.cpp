#include "pages/property_page.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/resources.h"

namespace ovaline {

using platform::ComPtr;

namespace {

/// A copy that the receiver frees; null where memory is exhausted.
LPOLESTR allocatedText(std::u16string_view text) {
    auto* copy = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(OLECHAR)));
    if (!copy) return nullptr;
    OLECHAR* const end = std::transform(text.begin(), text.end(), copy, [](char16_t unit) { return OLECHAR{unit}; });
    *end = 0;
    return copy;
}

}  // namespace

template <typename Action>
HRESULT PropertyPage::withDialog(Action&& action) {
    if (!dialog_ || closing_) return E_UNEXPECTED;
    const auto alive = ComPtr<PropertyPage>::share(this);
    HRESULT hr = S_OK;
    ++actions_;
    try {
        action();
    } catch (const std::bad_alloc&) {
        hr = E_OUTOFMEMORY;
    }
    --actions_;
    if (closing_ && actions_ == 0) closeDialog();
    return hr;
}

void PropertyPage::closeDialog() {
    closing_ = false;
    dialog_.reset();
}

void PropertyPage::Reports::textChanged(int id) {
    page_.withDialog([&] { page_.textChanged(id); });
}
void PropertyPage::Reports::selectionChanged(int id) {
    page_.withDialog([&] { page_.selectionChanged(id); });
}
void PropertyPage::Reports::clicked(int id) {
    page_.withDialog([&] { page_.clicked(id); });
}
void PropertyPage::Reports::doubleClicked(int id) {
    page_.withDialog([&] { page_.doubleClicked(id); });
}
void PropertyPage::Reports::spun(int id, int delta) {
    page_.withDialog([&] { page_.spun(id, delta); });
}
void PropertyPage::Reports::paint(int id, HDC dc, const RECT& area) {
    page_.withDialog([&] { page_.paint(id, dc, area); });
}

HRESULT PropertyPage::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IPropertyPage)) return E_NOINTERFACE;
    *object = static_cast<IPropertyPage*>(this);
    AddRef();
    return S_OK;
}

ULONG PropertyPage::AddRef() {
    return ++references_;
}

ULONG PropertyPage::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT PropertyPage::SetPageSite(IPropertyPageSite* site) {
    // A page has one site at a time; a frame takes it back before it gives another.
    if (site && site_) return E_UNEXPECTED;
    site_ = ComPtr<IPropertyPageSite>::share(site);
    return S_OK;
}

HRESULT PropertyPage::Activate(HWND parent, LPCRECT rectangle, BOOL) {
    if (!rectangle) return E_POINTER;
    if (dialog_) return E_UNEXPECTED;
    try {
        dialog_ = services_.createDialogInLanguage(resources_.dialog, reports_, parent);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    if (!dialog_) return E_FAIL;
    return withDialog([&] {
        load();
        dialog().move(*rectangle);
    });
}

HRESULT PropertyPage::Deactivate() {
    if (!dialog_ || closing_) return E_UNEXPECTED;
    if (actions_ > 0) {
        closing_ = true;
        dialog_->setVisible(false);
    } else {
        closeDialog();
    }
    return S_OK;
}

HRESULT PropertyPage::GetPageInfo(PROPPAGEINFO* info) {
    if (!info) return E_POINTER;
    // A frame asks before there is a dialog, and chooses no language.
    const auto text = [](std::uint32_t id) {
        return allocatedText(platform::loadString(id).value_or(std::u16string()));
    };
    try {
        *info = {sizeof *info,
                 text(resources_.title),
                 platform::dialogSize(resources_.dialog),
                 text(resources_.docString),
                 text(resources_.helpFile),
                 0};
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

HRESULT PropertyPage::SetObjects(ULONG count, IUnknown** objects) {
    if (count > 0 && !objects) return E_POINTER;
    try {
        std::vector<ComPtr<IUnknown>> held;
        for (ULONG i = 0; i < count; ++i) {
            if (!objects[i]) return E_POINTER;
            held.push_back(ComPtr<IUnknown>::share(objects[i]));
        }
        std::swap(objects_, held);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

HRESULT PropertyPage::Show(UINT command) {
    if (command != SW_HIDE && command != SW_SHOW && command != SW_SHOWNORMAL) return E_INVALIDARG;
    return withDialog([&] { dialog().setVisible(command != SW_HIDE); });
}

HRESULT PropertyPage::Move(LPCRECT rectangle) {
    if (!rectangle) return E_POINTER;
    return withDialog([&] { dialog().move(*rectangle); });
}

HRESULT PropertyPage::IsPageDirty() {
    return dirty_ ? S_OK : S_FALSE;
}

HRESULT PropertyPage::Apply() {
    return withDialog([&] { store(); });
}

HRESULT PropertyPage::Help(LPCOLESTR) {
    return E_NOTIMPL;
}

HRESULT PropertyPage::TranslateAccelerator(MSG* message) {
    if (!message) return E_POINTER;
    bool taken = false;
    const HRESULT hr = withDialog([&] { taken = dialog().translateMessage(*message); });
    if (FAILED(hr)) return hr;
    return taken ? S_OK : S_FALSE;
}

ComPtr<INorvel_OvalineCtrl> PropertyPage::control() const {
    if (objects_.empty()) return {};
    return platform::query<INorvel_OvalineCtrl>(objects_.front().get(), IID_INorvel_OvalineCtrl);
}

std::u16string PropertyPage::string(std::uint32_t id) const {
    return platform::loadString(id, services_.resourceLanguage()).value_or(std::u16string());
}

void PropertyPage::setDirty(bool dirty) {
    if (dirty_ == dirty) return;
    dirty_ = dirty;
    reportStatus(dirty ? PROPPAGESTATUS_DIRTY : PROPPAGESTATUS_CLEAN);
}

void PropertyPage::reportStatus(PROPPAGESTATUS status) {
    const ComPtr<IPropertyPageSite> site = site_;
    if (site) site->OnStatusChange(status);
}

}  // namespace ovaline
