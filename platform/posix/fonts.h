// The font service on FreeType, the font engine, and fontconfig, the font mapper.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/fonts.h"

namespace ovaline::platform {

/// Fonts are those installed for the user and those in further folders. To be used by one thread at a time, fonts it
/// made included.
class PosixFontService final : public FontService {
public:
    /// `folders` with fonts that need no installing; those that do not exist are passed over.
    explicit PosixFontService(const std::vector<std::string>& folders);
    ~PosixFontService() override;

    std::shared_ptr<const Font> createFont(const LogFont& description) override;
    std::vector<FontFamily> families() override;

private:
    class Faces;
    class Fonts;
    std::unique_ptr<Faces> faces_;
    std::unique_ptr<Fonts> fonts_;
};

}  // namespace ovaline::platform
