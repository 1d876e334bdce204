// Late binding: the interface's operations by name and by dispatch identifier.
#pragma once

#include <span>

#include "control/interface/norvel_ovaline_ctrl.h"

namespace ovaline {

/// Identifiers of a member and of its parameters. Upper and lower case are the same. DISP_E_UNKNOWNNAME if any name is
/// unknown; its identifier is then DISPID_UNKNOWN.
HRESULT lateIdsOfNames(std::span<LPOLESTR> names, DISPID* ids);

/// Gets or puts a property or calls a method. Arguments are converted as `VariantChangeType` does; a VARIANT parameter
/// takes its argument whole. What a method writes through a plain out parameter goes to the reference given for it.
/// Success is S_OK, also for a put that the control did not store; a conversion's failure names the argument's index
/// in `argumentError`, counted as in `parameters`.
HRESULT lateInvoke(INorvel_OvalineCtrlTable& control, DISPID id, WORD flags, const DISPPARAMS& parameters,
                   VARIANT* result, UINT* argumentError);

}  // namespace ovaline
