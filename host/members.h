// Finding the control's properties and methods by name.
#pragma once

#include <string_view>

#include "control/interface/type_library.h"

namespace ovaline::host {

bool isProperty(const Member& member);

/// The property or method of exactly that name. Throws Failure, with the nearest name, where there is none.
const Member& findProperty(std::string_view name);
const Member& findMethod(std::string_view name);

}  // namespace ovaline::host
