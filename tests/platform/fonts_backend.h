// The font service of the platform that the tests were built for.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/fonts.h"

namespace ovaline::platform {

/// A service of its own, which knows the fonts in `folders` beside those of the system.
std::unique_ptr<FontService> makePlatformFonts(const std::vector<std::filesystem::path>& folders);

}  // namespace ovaline::platform
