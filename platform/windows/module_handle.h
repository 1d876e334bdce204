// The running module, as the platform's services name it.
#pragma once

#include <optional>
#include <string>

#include "platform/com.h"

namespace ovaline::platform {

/// The module that holds this code, or the program that it is linked into. Stays valid while the code runs.
HINSTANCE moduleHandle();

/// Whole path of a module's file; null stands for the program. None where the platform does not say.
std::optional<std::wstring> moduleFile(HINSTANCE module);

}  // namespace ovaline::platform
