// A job's settings on their way into a control.
#pragma once

#include "control/interface/norvel_ovaline_ctrl.h"
#include "host/job.h"

namespace ovaline::host {

constexpr LONG kMillimetres = 0;  ///< SetMeasurement
constexpr LONG kInches = 1;       ///< SetMeasurement

/// Dots in a millimetre of the vector data of a control that was set up so.
double dotsPerMillimetre(const Job& job);

/// Gives a new control the job's unit, the default size (it has none of its own) and the job's settings, in their
/// order. Nothing is regenerated: the update flag is left clear. Throws Failure, naming the setting, where one is
/// refused.
void putSettings(INorvel_OvalineCtrlTable& control, Job& job);

}  // namespace ovaline::host
