// What the commands read of a control besides its stream.
#pragma once

#include <string>

#include "control/interface/norvel_ovaline_ctrl.h"

namespace ovaline::host {

/// A text property. `name` is what an error calls it. Throws Failure where the control refuses.
std::u16string readText(INorvel_OvalineCtrlTable& control, HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*get)(BSTR*),
                        const char* name);

/// Whether all copies have the same text, so that the host repeats the one copy of the stream.
bool isStaticText(INorvel_OvalineCtrlTable& control);

/// Extent of the result, the array included, in micrometres.
struct ResultSize {
    LONG width = 0;
    LONG height = 0;
};
ResultSize readResultSize(INorvel_OvalineCtrlTable& control);

}  // namespace ovaline::host
