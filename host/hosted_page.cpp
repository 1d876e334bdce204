#include "host/hosted_page.h"

#include "host/failure.h"

namespace ovaline::host {

using platform::ComPtr;

HostedPage::HostedPage(platform::GetClassObject getClassObject, REFCLSID pageClass, HostedControl& control)
    : control_(control),
      frame_(platform::makeDialogFrame(
          [events = control.events()](std::u16string text) { events->add(MessageBoxShown{std::move(text)}); })),
      site_(ComPtr<PageSite>::adopt(PageSite::create(control.events()))),
      page_(createObject<IPropertyPage>(getClassObject, pageClass, IID_IPropertyPage, "a page")) {
    if (!frame_) throw Failure("this system has no window for a page");
}

HostedPage::~HostedPage() {
    close();
}

HRESULT HostedPage::open() {
    HRESULT hr = page_->SetPageSite(site_.get());
    RECT rectangle{};
    if (SUCCEEDED(hr)) hr = readInfo(rectangle);
    IUnknown* object = &control_.table();
    if (SUCCEEDED(hr)) hr = page_->SetObjects(1, &object);
    if (SUCCEEDED(hr)) hr = page_->Activate(frame_->window(), &rectangle, 0);
    active_ = SUCCEEDED(hr);
    return active_ ? page_->Show(SW_SHOW) : hr;
}

HRESULT HostedPage::readInfo(RECT& rectangle) {
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    const HRESULT hr = page_->GetPageInfo(&info);
    if (FAILED(hr)) return hr;
    rectangle = {0, 0, info.size.cx, info.size.cy};
    title_ = platform::viewOf(info.pszTitle);
    for (const LPOLESTR text : {info.pszTitle, info.pszDocString, info.pszHelpFile}) CoTaskMemFree(text);
    return hr;
}

HRESULT HostedPage::close() {
    const HRESULT hr = active_ ? page_->Deactivate() : S_OK;
    active_ = false;
    page_->SetObjects(0, nullptr);
    page_->SetPageSite(nullptr);
    return hr;
}

}  // namespace ovaline::host
