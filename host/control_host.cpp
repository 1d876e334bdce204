#include "host/control_host.h"

#include <array>
#include <charconv>

#include "host/failure.h"

namespace ovaline::host {

namespace {

using platform::ComPtr;
using platform::query;

template <typename Interface>
ComPtr<Interface> queryOrFail(IUnknown* object, REFIID iid, const char* name) {
    ComPtr<Interface> found = query<Interface>(object, iid);
    if (!found)
        throw Failure(std::string("the control has no ") + name + ", install program and module of one version");
    return found;
}

}  // namespace

std::string statusText(HRESULT hr) {
    std::array<char, 8> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<std::uint32_t>(hr), 16).ptr;
    return "0x" + std::string(digits.data(), end);
}

void require(HRESULT hr, std::string_view operation) {
    if (hr == E_NOTIMPL) throw Failure(std::string(operation) + " is not available in this version of the control");
    if (FAILED(hr)) throw Failure(std::string(operation) + " failed with status " + statusText(hr));
}

HostedControl::HostedControl(platform::GetClassObject getClassObject)
    : control_(createObject<INorvel_OvalineCtrl>(getClassObject, CLSID_Norvel_OvalineCtrl, IID_INorvel_OvalineCtrl,
                                                 "a control")),
      site_(ComPtr<ContainerSite>::adopt(ContainerSite::create(events_))) {
    const auto ole = queryOrFail<IOleObject>(control_.get(), IID_IOleObject, "IOleObject");
    view_ = queryOrFail<IViewObject>(control_.get(), IID_IViewObject, "IViewObject");
    require(ole->SetClientSite(site_.get()), "IOleObject::SetClientSite");
    require(view_->SetAdvise(DVASPECT_CONTENT, 0, site_.get()), "IViewObject::SetAdvise");
}

HostedControl::~HostedControl() {
    // The control holds references to its site and the site's owner holds the control: the host cuts the circle.
    view_->SetAdvise(0, 0, nullptr);
    if (const auto ole = query<IOleObject>(control_.get(), IID_IOleObject)) ole->SetClientSite(nullptr);
}

}  // namespace ovaline::host
