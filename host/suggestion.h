// The name that somebody probably meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace ovaline::host {

/// "; did you mean X?" with the name in `names` that is nearest to `given` (case aside), or nothing where none is near.
std::string suggestion(std::string_view given, std::span<const std::string_view> names);

}  // namespace ovaline::host
