// A control as a host sees it: created through the module's class object, sitting in a container.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "control/interface/norvel_ovaline_ctrl.h"
#include "host/container_site.h"
#include "platform/module_loader.h"

namespace ovaline::host {

/// Gives the module's class-object export when a control is needed; throws Failure where there is no module.
using ModuleSource = std::function<platform::GetClassObject()>;

/// A status code as people know it: in hexadecimal digits.
std::string statusText(HRESULT hr);

/// Throws Failure naming the operation where it failed.
void require(HRESULT hr, std::string_view operation);

class HostedControl {
public:
    /// Creates a control with its defaults. Throws Failure where the module refuses.
    explicit HostedControl(platform::GetClassObject getClassObject);
    ~HostedControl();
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;

    /// The control's table of operations with the accessors behind it that no type library describes.
    INorvel_OvalineCtrlTable& table() { return static_cast<INorvel_OvalineCtrlTable&>(*control_.get()); }

    /// The control as something that draws itself.
    IViewObject& view() { return *view_.get(); }

    /// What the control reported to its container since the last time, in order.
    std::vector<Event> takeEvents() { return site_->takeEvents(); }

private:
    platform::ComPtr<INorvel_OvalineCtrl> control_;
    platform::ComPtr<IViewObject> view_;
    platform::ComPtr<ContainerSite> site_;
};

}  // namespace ovaline::host
