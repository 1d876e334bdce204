// The font service on GDI.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/fonts.h"
#include "platform/recent_cache.h"
#include "platform/windows/fonts_private.h"

namespace ovaline::platform {

/// Fonts are those installed in the system and those in further folders. To be used by one thread at a time, fonts it
/// made included.
class GdiFontService final : public FontService {
public:
    /// `folders` with fonts that need no installing; those that do not exist are passed over.
    explicit GdiFontService(const std::vector<std::filesystem::path>& folders);

    std::shared_ptr<const Font> createFont(const LogFont& description) override;
    std::vector<FontFamily> families() override;

private:
    std::shared_ptr<const PrivateFonts> privateFonts_;
    RecentCache<LogFont, std::shared_ptr<const Font>> fonts_;
};

}  // namespace ovaline::platform
