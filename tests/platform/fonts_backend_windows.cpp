#include "platform/windows/fonts.h"
#include "tests/platform/fonts_backend.h"

namespace ovaline::platform {

std::unique_ptr<FontService> makePlatformFonts(const std::vector<std::filesystem::path>& folders) {
    return std::make_unique<GdiFontService>(folders);
}

}  // namespace ovaline::platform
