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

/// A new object of the module's class `classId`, named as `what` in the Failure that is thrown where the module
/// refuses.
template <typename Interface>
platform::ComPtr<Interface> createObject(platform::GetClassObject getClassObject, REFCLSID classId, REFIID iid,
                                         std::string_view what) {
    void* factoryObject = nullptr;
    require(getClassObject(classId, IID_IClassFactory, &factoryObject),
            "the module's class object of " + std::string(what));
    const auto factory = platform::ComPtr<IClassFactory>::adopt(static_cast<IClassFactory*>(factoryObject));
    void* object = nullptr;
    require(factory->CreateInstance(nullptr, iid, &object), "creating " + std::string(what));
    return platform::ComPtr<Interface>::adopt(static_cast<Interface*>(object));
}

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

    /// What the control and its pages reported to the host since the last time, in order.
    std::vector<Event> takeEvents() { return events_->take(); }
    /// Where they are reported.
    const std::shared_ptr<EventLog>& events() const { return events_; }

private:
    std::shared_ptr<EventLog> events_ = std::make_shared<EventLog>();
    platform::ComPtr<INorvel_OvalineCtrl> control_;
    platform::ComPtr<IViewObject> view_;
    platform::ComPtr<ContainerSite> site_;
};

}  // namespace ovaline::host
