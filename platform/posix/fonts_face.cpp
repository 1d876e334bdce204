#include "platform/posix/fonts_face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_FONT_FORMATS_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/posix/gpos_kerning.h"

namespace ovaline::platform {

namespace {

constexpr std::uintmax_t kLargestFontFile = std::uintmax_t{1}
                                            << 28;  // bytes; several times the largest fonts there are

// Symbol fonts place the codes 0 to 0xFF here.
constexpr FT_ULong kSymbolCodes = 0xF000;
constexpr FT_ULong kMostSymbolCode = 0xFF;
constexpr FT_ULong kMostCode = 0xFFFF;

constexpr std::int32_t kMadeUpBoldAdvance = 1;  // dots

/// The file's bytes, empty where it cannot be read. The file is read rather than mapped: one that is cut short while
/// it is mapped takes the process down.
std::vector<std::uint8_t> bytesOfFile(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return {};
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > kLargestFontFile) return {};
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    std::ifstream file(path, std::ios::binary);
    // The stream reads characters, the engine takes bytes.
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file) return {};
    return bytes;
}

bool hasTrueTypeOutlines(FT_Face face) {
    const char* format = FT_Get_Font_Format(face);
    return FT_IS_SCALABLE(face) && format && std::string_view(format) == "TrueType" && face->units_per_EM > 0;
}

template <typename Table>
const Table* sfntTable(FT_Face face, FT_Sfnt_Tag tag) {
    return static_cast<const Table*>(FT_Get_Sfnt_Table(face, tag));
}

CellUnits cellOf(FT_Face face) {
    constexpr FT_UShort kMissingTable = 0xFFFF;  // version the engine reports for a font without OS/2
    const auto* os2 = sfntTable<TT_OS2>(face, FT_SFNT_OS2);
    if (os2 && os2->version != kMissingTable && os2->usWinAscent + os2->usWinDescent > 0) {
        return {face->units_per_EM, os2->usWinAscent, os2->usWinDescent};
    }
    const auto* hhea = sfntTable<TT_HoriHeader>(face, FT_SFNT_HHEA);
    if (hhea && hhea->Ascender >= 0 && hhea->Descender <= 0 && hhea->Ascender > hhea->Descender) {
        return {face->units_per_EM, hhea->Ascender, -hhea->Descender};
    }
    return {face->units_per_EM, face->units_per_EM, 0};
}

/// Whether there is anything to embolden; a contour drawn forth and back on the same line encloses nothing.
bool enclosesArea(FT_Outline& outline) {
    return FT_Outline_Get_Orientation(&outline) != FT_ORIENTATION_NONE;
}

bool embolden(FT_Outline& outline, std::int32_t ppem) {
    return !enclosesArea(outline) || FT_Outline_Embolden(&outline, emboldeningStrength(ppem)) == FT_Err_Ok;
}

}  // namespace

FontEngine startFontEngine() {
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != FT_Err_Ok) return nullptr;
    return {library, [](FT_Library started) { FT_Done_FreeType(started); }};
}

void FontFace::FaceCloser::operator()(FT_FaceRec_* face) const {
    FT_Done_Face(face);
}

std::shared_ptr<FontFace> FontFace::open(const FontEngine& engine, const std::string& path, int index) {
    std::vector<std::uint8_t> file = bytesOfFile(path);
    FT_Face opened = nullptr;
    const auto size = static_cast<FT_Long>(file.size());
    if (FT_New_Memory_Face(engine.get(), file.data(), size, index, &opened) != FT_Err_Ok) return nullptr;
    FaceOwner face(opened);
    if (!hasTrueTypeOutlines(opened)) return nullptr;
    // The constructor is private, which std::make_shared cannot call.
    return std::shared_ptr<FontFace>(new FontFace(engine, std::move(file), std::move(face)));
}

FontFace::FontFace(FontEngine engine, std::vector<std::uint8_t> file, FaceOwner face)
    : engine_(std::move(engine)), file_(std::move(file)), face_(std::move(face)), cell_(cellOf(face_.get())) {
    // The engine has chosen the Unicode map already where the font has one.
    isSymbol_ = !face_->charmap && FT_Select_Charmap(face_.get(), FT_ENCODING_MS_SYMBOL) == FT_Err_Ok;
}

unsigned FontFace::glyphIndex(char16_t code) const {
    const FT_UInt glyph = FT_Get_Char_Index(face_.get(), code);
    if (glyph != 0 || !isSymbol_ || code > kMostSymbolCode) return glyph;
    return FT_Get_Char_Index(face_.get(), kSymbolCodes + code);
}

CodesOfGlyphs FontFace::codesOfGlyphs() const {
    CodesOfGlyphs codes(static_cast<std::size_t>(face_->num_glyphs), char16_t{0});
    const auto note = [&codes](FT_UInt glyph, FT_ULong code) {
        if (glyph < codes.size() && codes[glyph] == 0) codes[glyph] = static_cast<char16_t>(code);
    };
    if (isSymbol_) {
        for (char16_t code = 1; code <= kMostSymbolCode; ++code) note(glyphIndex(code), code);
    }
    FT_UInt glyph = 0;
    FT_ULong code = FT_Get_First_Char(face_.get(), &glyph);
    while (glyph != 0 && code <= kMostCode) {
        note(glyph, code);
        code = FT_Get_Next_Char(face_.get(), code, &glyph);
    }
    return codes;
}

std::vector<std::byte> FontFace::table(std::uint32_t tag) const {
    FT_ULong size = 0;
    if (FT_Load_Sfnt_Table(face_.get(), tag, 0, nullptr, &size) != FT_Err_Ok || size > file_.size()) return {};
    std::vector<std::byte> bytes(size);
    // The engine writes bytes under its own name for them.
    auto* target = reinterpret_cast<FT_Byte*>(bytes.data());
    if (FT_Load_Sfnt_Table(face_.get(), tag, 0, target, &size) != FT_Err_Ok) return {};
    return bytes;
}

const std::vector<UnitKerningPair>& FontFace::kerningPairs() {
    if (!kerning_) {
        const CodesOfGlyphs codes = codesOfGlyphs();
        kerning_ = kernTablePairs(table(TTAG_kern), codes);
        if (!kerning_) kerning_ = gposKerningPairs(table(TTAG_GPOS), codes);
    }
    return *kerning_;
}

bool FontFace::activate(std::int32_t ppem) {
    if (activePpem_ == ppem) return true;
    activePpem_ = 0;
    if (FT_Set_Pixel_Sizes(face_.get(), 0, static_cast<FT_UInt>(ppem)) != FT_Err_Ok) return false;
    activePpem_ = ppem;
    return true;
}

/// Whether the outline has points of the two kinds that TrueType knows only.
bool FontFace::collectPoints(const FT_Outline_& outline) {
    points_.clear();
    contourEnds_.clear();
    for (int i = 0; i < outline.n_points; ++i) {
        const int kind = FT_CURVE_TAG(outline.tags[i]);
        if (kind != FT_CURVE_TAG_ON && kind != FT_CURVE_TAG_CONIC) return false;
        points_.push_back({outline.points[i].x, outline.points[i].y, kind == FT_CURVE_TAG_ON});
    }
    for (int i = 0; i < outline.n_contours; ++i) {
        contourEnds_.push_back(static_cast<std::size_t>(outline.contours[i]));
    }
    return true;
}

std::optional<NativeOutline> FontFace::outline(char16_t code, std::int32_t ppem, MadeUpStyle style, bool flip) {
    constexpr FT_Int32 kUnhinted = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;
    if (!activate(ppem) || FT_Load_Glyph(face_.get(), glyphIndex(code), kUnhinted) != FT_Err_Ok) return std::nullopt;
    const FT_GlyphSlot glyph = face_->glyph;
    if (glyph->format != FT_GLYPH_FORMAT_OUTLINE) return std::nullopt;
    if (style.isBold && !embolden(glyph->outline, ppem)) return std::nullopt;
    if (!collectPoints(glyph->outline)) return std::nullopt;
    if (style.isItalic) {
        for (OutlinePoint& point : points_) point.x += slantShift(point.y);
    }
    std::optional<std::vector<std::byte>> polygons = nativePolygons(points_, contourEnds_, flip);
    if (!polygons) return std::nullopt;
    std::int32_t advance = advanceDots(glyph->metrics.horiAdvance);
    if (style.isBold) advance += kMadeUpBoldAdvance;
    return NativeOutline{std::move(*polygons), advance, 0};
}

}  // namespace ovaline::platform
