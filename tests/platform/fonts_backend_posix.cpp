#include "platform/posix/fonts.h"
#include "tests/platform/fonts_backend.h"

namespace ovaline::platform {

std::unique_ptr<FontService> makePlatformFonts(const std::vector<std::filesystem::path>& folders) {
    return std::make_unique<PosixFontService>(std::vector<std::string>(folders.begin(), folders.end()));
}

}  // namespace ovaline::platform
