// The members of one line of the automation protocol.
#pragma once

#include <initializer_list>
#include <string_view>

#include "host/json_text.h"

namespace ovaline::host {

/// The line's member of that name, which is there and holds a text. Throws Failure otherwise.
const std::string& textMember(const Json& request, std::string_view name);

/// Throws Failure where the line has a member besides its verb, "on" and `others`: a misspelt one would otherwise be
/// left out in silence.
void allowOnly(const Json& request, std::string_view verb, std::initializer_list<std::string_view> others);

}  // namespace ovaline::host
