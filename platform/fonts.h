// The font service: what the text layout needs of the platform's font engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ovaline::platform {

/// Description of a font, with the meaning of the published LOGFONTW fields of the same names. Fields that are always
/// zero in this system (width, escapement, precisions, quality, pitch) are left out.
struct LogFont {
    std::int32_t lfHeight = 0;  ///< cell height in logical units (dots) if positive, em height if negative
    std::int32_t lfWeight = 400;
    std::uint8_t lfItalic = 0;
    std::uint8_t lfUnderline = 0;
    std::uint8_t lfStrikeOut = 0;
    std::uint8_t lfCharSet = 1;  ///< DEFAULT_CHARSET
    std::u16string lfFaceName;   ///< at most 31 code units

    bool operator==(const LogFont&) const = default;
};

/// Ascent and descent of the font's cell, in dots, both counted from the baseline and positive for ordinary fonts.
struct TextMetrics {
    std::int32_t tmAscent = 0;
    std::int32_t tmDescent = 0;
};

/// One kerning pair: `iKernAmount` dots are added to the advance of `wFirst` where `wSecond` follows.
struct KerningPair {
    char16_t wFirst = 0;
    char16_t wSecond = 0;
    std::int32_t iKernAmount = 0;
};

/// The unhinted outline of one character in the published native form: TTPOLYGONHEADER and TTPOLYCURVE records,
/// little-endian, coordinates as 16.16 FIXED in dots, origin at the character origin on the baseline.
struct NativeOutline {
    std::vector<std::byte> polygons;  ///< empty for a character without outline
    std::int32_t gmCellIncX = 0;      ///< horizontal advance in dots
    std::int32_t gmCellIncY = 0;      ///< vertical advance in dots, 0 for horizontal fonts
};

/// A font realised at one size. It stays usable after the service that made it is gone.
class Font {
public:
    Font() = default;
    virtual ~Font() = default;
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    virtual TextMetrics textMetrics() const = 0;

    /// Pairs in the order in which the font lists them; a pair may occur twice, and then its first amount counts.
    virtual std::vector<KerningPair> kerningPairs() const = 0;

    /// Outline of the character code `code` (a code the font does not map gives its .notdef glyph). With `flip` the
    /// y axis points down. No value: the font engine reported an error, for example for a damaged glyph or for
    /// coordinates that do not fit a FIXED.
    virtual std::optional<NativeOutline> glyphOutline(char16_t code, bool flip) const = 0;

    /// Family name of the face that was chosen; differs from `lfFaceName` where the font mapper substituted one.
    virtual std::u16string familyName() const = 0;
};

/// One family that a control can use.
struct FontFamily {
    std::u16string name;
};

class FontService {
public:
    FontService() = default;
    virtual ~FontService() = default;
    FontService(const FontService&) = delete;
    FontService& operator=(const FontService&) = delete;

    /// Realises a font. An unknown family gets the face that the platform's font mapper chooses. Null where no face
    /// can be opened or where `lfHeight` is 0 or asks for a size beyond the font engine. Fonts are cached: asking
    /// again for an equal description neither searches nor opens a file.
    virtual std::shared_ptr<const Font> createFont(const LogFont& description) = 0;

    /// Families with TrueType outlines, sorted by name, each once.
    virtual std::vector<FontFamily> families() = 0;
};

/// The service of the platform that this module was built for; one for the whole process.
FontService& systemFonts();

}  // namespace ovaline::platform
