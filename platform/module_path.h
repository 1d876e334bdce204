// Where the running module stands.
#pragma once

#include <optional>
#include <string>

namespace ovaline::platform {

/// Whole path of the file that holds this code: the module's own, or the program's where it is linked into one. None
/// where it has no name in UTF-16.
std::optional<std::u16string> modulePath();

}  // namespace ovaline::platform
