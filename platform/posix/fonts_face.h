// One face of a font file, opened in the font engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/fonts.h"
#include "platform/posix/fonts_kerning.h"
#include "platform/posix/fonts_scaling.h"
#include "platform/posix/native_outline.h"

// The font engine's own types.
struct FT_LibraryRec_;
struct FT_FaceRec_;
struct FT_Outline_;

namespace ovaline::platform {

/// The font engine's library; every face keeps it alive.
using FontEngine = std::shared_ptr<FT_LibraryRec_>;

/// Null where the engine cannot start.
FontEngine startFontEngine();

/// What a face does not have and its outlines are given instead.
struct MadeUpStyle {
    bool isBold = false;
    bool isItalic = false;
};

/// Serves all sizes of the face; the engine's current size is set before each use.
class FontFace {
public:
    /// Face `index` of the file, as the engine counts them (bits 16 and up number the instance of a variable font).
    /// Null where the file cannot be read or has no scalable TrueType outlines.
    static std::shared_ptr<FontFace> open(const FontEngine& engine, const std::string& path, int index);

    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    /// From the OS/2 table's win metrics, else hhea's, else the em.
    const CellUnits& cell() const { return cell_; }

    /// Of the `kern` table where the font has one, else of GPOS; read once.
    const std::vector<UnitKerningPair>& kerningPairs();

    /// As Font::glyphOutline, at `ppem` dots per em.
    std::optional<NativeOutline> outline(char16_t code, std::int32_t ppem, MadeUpStyle style, bool flip);

private:
    struct FaceCloser {
        void operator()(FT_FaceRec_* face) const;
    };
    using FaceOwner = std::unique_ptr<FT_FaceRec_, FaceCloser>;

    FontFace(FontEngine engine, std::vector<std::uint8_t> file, FaceOwner face);

    unsigned glyphIndex(char16_t code) const;
    CodesOfGlyphs codesOfGlyphs() const;
    std::vector<std::byte> table(std::uint32_t tag) const;
    bool activate(std::int32_t ppem);
    bool collectPoints(const FT_Outline_& outline);

    // The engine's objects go first, then the bytes and the library they use.
    FontEngine engine_;
    std::vector<std::uint8_t> file_;
    FaceOwner face_;
    bool isSymbol_ = false;
    CellUnits cell_;
    std::int32_t activePpem_ = 0;
    std::optional<std::vector<UnitKerningPair>> kerning_;
    std::vector<OutlinePoint> points_;  // of the glyph at hand, kept for their memory
    std::vector<std::size_t> contourEnds_;
};

}  // namespace ovaline::platform
