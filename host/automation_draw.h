// The "draw" line of the automation protocol.
#pragma once

#include <functional>

#include "host/control_host.h"
#include "host/json_text.h"

namespace ovaline::host {

/// Has the control draw itself into the line's file and appends the status. The control is asked for when the line is
/// understood. Throws Failure where it is not, or where the file can't be written; no half-written file is left.
void performDraw(const Json& request, const std::function<HostedControl&()>& control, AnswerLine& answer);

}  // namespace ovaline::host
