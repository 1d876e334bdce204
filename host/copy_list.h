// The texts that a control's copies carry.
#pragma once

#include <string>

#include "control/interface/norvel_ovaline_ctrl.h"
#include "text/copy_texts.h"

namespace ovaline::host {

/// What the copies' texts are composed of, read from the control.
CopyTexts copyTextsOf(INorvel_OvalineCtrlTable& control);

/// A line for each copy, in the order in which serial numbers are given: column, row (both from 1) and text, separated
/// by tabs. Static text is the same in every copy.
std::string copyList(INorvel_OvalineCtrlTable& control);

/// Where the control refused to build its copies because they would be too many points: what the job is and which
/// settings make it smaller. Empty where it has built them.
std::string refusal(INorvel_OvalineCtrlTable& control);

}  // namespace ovaline::host
