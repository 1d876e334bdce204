// Choice of font files: the platform's font mapper.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _FcConfig;

namespace ovaline::platform {

/// A face in a font file that the mapper proposes.
struct FontFile {
    std::string path;
    int index = 0;          ///< as the font engine counts faces and instances
    std::u16string family;  ///< the asked-for name where the face has it, else its first English one
    bool isBold = false;
    bool isItalic = false;
};

/// Looks among the fonts installed for the user and those of additional folders. Its view of them is its own, so the
/// hosting process's use of the same library is not touched; it is taken once.
class FontMapper {
public:
    explicit FontMapper(const std::vector<std::string>& folders);

    /// TrueType faces, the best match first. Any family name gives some; none where no font is installed.
    std::vector<FontFile> candidates(std::u16string_view family, bool bold, bool italic) const;

    /// The English names of all families with TrueType outlines that fit LOGFONT's lfFaceName, sorted, each once.
    std::vector<std::u16string> families() const;

private:
    std::shared_ptr<_FcConfig> config_;  ///< null where the mapper cannot start
};

}  // namespace ovaline::platform
