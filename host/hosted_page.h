// A property page as a property frame sees it: created through the module's class object, on one control, in a window
// of its own.
#pragma once

#include <memory>
#include <string>

#include "host/control_host.h"
#include "host/page_site.h"
#include "platform/dialog_driver.h"

namespace ovaline::host {

class HostedPage {
public:
    /// Creates the page of that class. Its reports go to the control's events. Throws Failure where the module or the
    /// platform refuses.
    HostedPage(platform::GetClassObject getClassObject, REFCLSID pageClass, HostedControl& control);
    /// Closes the page.
    ~HostedPage();
    HostedPage(const HostedPage&) = delete;
    HostedPage& operator=(const HostedPage&) = delete;

    /// Gives the page its site and the control, and has it show itself. The status of the first step that failed; the
    /// page is of no use then.
    HRESULT open();
    /// The page's title; it has one after open().
    const std::u16string& title() const { return title_; }
    /// Takes everything back that open() gave. The status is that of Deactivate.
    HRESULT close();

    IPropertyPage& page() { return *page_.get(); }
    /// What can be seen of the page, and a person's hand.
    platform::DialogFrame& frame() { return *frame_; }

private:
    HRESULT readInfo(RECT& rectangle);

    HostedControl& control_;
    std::unique_ptr<platform::DialogFrame> frame_;
    platform::ComPtr<PageSite> site_;
    platform::ComPtr<IPropertyPage> page_;
    std::u16string title_;
    bool active_ = false;
};

}  // namespace ovaline::host
