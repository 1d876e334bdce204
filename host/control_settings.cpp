#include "host/control_settings.h"

#include "host/control_host.h"
#include "host/failure.h"

namespace ovaline::host {

namespace {

/// Dots per millimetre and per inch, which is the same pitch; singles, as the control computes with them.
constexpr float kDotsPerMillimetre = 625.3f;
constexpr float kDotsPerInch = 15882.62f;

}  // namespace

double dotsPerMillimetre(const Job& job) {
    constexpr double kMillimetresPerInch = 25.4;
    return job.inches ? kDotsPerInch / kMillimetresPerInch : double{kDotsPerMillimetre};
}

void putSettings(INorvel_OvalineCtrlTable& control, Job& job) {
    require(control.SetUpdateFlag(0), "SetUpdateFlag");
    if (job.inches) {
        require(control.SetMeasurement(kInches), "SetMeasurement");
        require(control.SetDotsPerUnit(kDotsPerInch), "SetDotsPerUnit");
    }
    require(control.SetDefaultSize(0), "SetDefaultSize");
    for (Setting& setting : job.settings) {
        const HRESULT hr = setting.property->put(control, setting.value.all());
        const std::string name(setting.property->name);
        // The only refusal of the interface: the dimensions of an array.
        if (hr == S_FALSE) throw Failure(setting.origin + ": " + name + " takes a whole number from 1 to 255");
        require(hr, setting.origin + ": putting " + name);
    }
}

}  // namespace ovaline::host
