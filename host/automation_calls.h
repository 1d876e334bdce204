// The calls of the automation protocol: plain arguments, buffers, records, and results behind references.
#pragma once

#include <functional>

#include "control/interface/type_library.h"
#include "host/json_text.h"

namespace ovaline::host {

/// Gives the control that a line addresses; it is created at the first line that needs it, so it is asked for last.
using ControlAccess = std::function<INorvel_OvalineCtrlTable&()>;

/// Calls `method` with the arguments, "size" or "data" of the line and appends the status and what the call gave back.
/// Results follow only where the call succeeded; a buffer is answered always. Throws Failure where the line does not
/// fit the method.
void performCall(const Member& method, const Json& request, const ControlAccess& control, AnswerLine& answer);

}  // namespace ovaline::host
