// Keystrokes into an edit box.
#pragma once

#include <string_view>

#include "platform/com.h"

namespace ovaline::platform {

/// Empties an edit of `dialog` without a report to it.
void emptySilently(HWND dialog, HWND edit);

/// One keystroke at the caret: a code unit or a surrogate pair. Control characters but backspace are left out.
void pressKey(HWND edit, std::u16string_view character);

}  // namespace ovaline::platform
