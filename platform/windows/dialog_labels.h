// Labels that are longer than their places.
#pragma once

#include "platform/com.h"

namespace ovaline::platform {

/// Widens labels, check boxes and radio buttons of a dialog that do not show their whole text in the dialog's font, as
/// far as there is room to their right. Nothing else moves.
void widenLabels(HWND dialog);

}  // namespace ovaline::platform
