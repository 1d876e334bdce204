#include "platform/windows/fonts_gdi.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <type_traits>
#include <utility>

namespace ovaline::platform {

namespace {

struct FontDeleter {
    void operator()(HFONT font) const { DeleteObject(font); }
};
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

/// A screen device context with a font in it.
class FontDc {
public:
    explicit FontDc(const FontHandle& font) : before_(screen_ ? SelectObject(screen_.get(), font.get()) : nullptr) {}
    ~FontDc() {
        if (before_) SelectObject(screen_.get(), before_);
    }
    FontDc(const FontDc&) = delete;
    FontDc& operator=(const FontDc&) = delete;

    explicit operator bool() const { return before_ != nullptr; }
    HDC get() const { return screen_.get(); }

private:
    ScreenDc screen_;
    HGDIOBJ before_;
};

FontHandle createHandle(const LogFont& description) {
    LOGFONTW font{};
    font.lfHeight = description.lfHeight;
    font.lfWeight = description.lfWeight;
    font.lfItalic = description.lfItalic;
    font.lfUnderline = description.lfUnderline;
    font.lfStrikeOut = description.lfStrikeOut;
    font.lfCharSet = description.lfCharSet;
    const std::size_t length = std::min<std::size_t>(description.lfFaceName.size(), LF_FACESIZE - 1);
    std::copy_n(description.lfFaceName.begin(), length, font.lfFaceName);
    return FontHandle(CreateFontIndirectW(&font));
}

/// A size beyond the engine is realised as a speck.
bool hasSize(const TEXTMETRICW& metrics, std::int32_t lfHeight) {
    constexpr std::int64_t kLeastShare = 16;  // no cell is so much lower than its em
    return std::int64_t{metrics.tmHeight} * kLeastShare >= std::abs(std::int64_t{lfHeight});
}

/// Whether the whole and fraction of a FIXED can hold the coordinates of the glyph's box. GDI cuts off what they can't.
bool fitsFixed(const GLYPHMETRICS& glyph) {
    using Whole = std::numeric_limits<std::int16_t>;
    const auto fits = [](std::int64_t low, std::int64_t high) { return low >= Whole::min() && high <= Whole::max(); };
    const std::int64_t left = glyph.gmptGlyphOrigin.x;
    const std::int64_t top = glyph.gmptGlyphOrigin.y;
    return fits(left, left + glyph.gmBlackBoxX) && fits(top - glyph.gmBlackBoxY, top);
}

class GdiFont final : public Font {
public:
    GdiFont(FontHandle font, const TextMetrics& metrics, std::u16string family,
            std::shared_ptr<const PrivateFonts> privateFonts)
        : privateFonts_(std::move(privateFonts)),
          font_(std::move(font)),
          metrics_(metrics),
          family_(std::move(family)) {}

    TextMetrics textMetrics() const override { return metrics_; }

    std::vector<KerningPair> kerningPairs() const override {
        const FontDc dc(font_);
        if (!dc) return {};
        std::vector<KERNINGPAIR> found(GetKerningPairsW(dc.get(), 0, nullptr));
        const auto room = static_cast<DWORD>(found.size());
        const DWORD count = room == 0 ? 0 : GetKerningPairsW(dc.get(), room, found.data());
        found.resize(std::min(count, room));
        std::vector<KerningPair> pairs;
        pairs.reserve(found.size());
        for (const KERNINGPAIR& pair : found) {
            // The code of glyphs without one, which would also be that of what follows the last character.
            if (pair.wFirst == 0 || pair.wSecond == 0) continue;
            pairs.push_back({static_cast<char16_t>(pair.wFirst), static_cast<char16_t>(pair.wSecond),
                             static_cast<std::int32_t>(pair.iKernAmount)});
        }
        return pairs;
    }

    std::optional<NativeOutline> glyphOutline(char16_t code, bool flip) const override {
        static constexpr MAT2 kUpright{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
        static constexpr MAT2 kFlipped{{0, 1}, {0, 0}, {0, 0}, {0, -1}};
        const MAT2* const matrix = flip ? &kFlipped : &kUpright;
        constexpr UINT kForm = GGO_NATIVE | GGO_UNHINTED;
        const FontDc dc(font_);
        GLYPHMETRICS glyph{};
        if (!dc) return std::nullopt;
        const DWORD size = GetGlyphOutlineW(dc.get(), code, kForm, &glyph, 0, nullptr, matrix);
        if (size == GDI_ERROR) return std::nullopt;
        NativeOutline outline;
        // The advance of a horizontal font is never negative; one beyond 15 bits only looks so.
        outline.gmCellIncX = static_cast<std::uint16_t>(glyph.gmCellIncX);
        outline.gmCellIncY = glyph.gmCellIncY;
        if (size == 0) return outline;
        if (!fitsFixed(glyph)) return std::nullopt;
        outline.polygons.resize(size);
        const DWORD written = GetGlyphOutlineW(dc.get(), code, kForm, &glyph, size, outline.polygons.data(), matrix);
        if (written == GDI_ERROR || written > size) return std::nullopt;
        outline.polygons.resize(written);
        return outline;
    }

    std::u16string familyName() const override { return family_; }

private:
    // The handle goes first.
    std::shared_ptr<const PrivateFonts> privateFonts_;
    FontHandle font_;
    TextMetrics metrics_;
    std::u16string family_;
};

}  // namespace

std::shared_ptr<const Font> makeGdiFont(const LogFont& description, std::shared_ptr<const PrivateFonts> privateFonts) {
    if (description.lfHeight == 0) return nullptr;
    FontHandle font = createHandle(description);
    if (!font) return nullptr;
    TextMetrics cell;
    std::u16string family;
    {
        const FontDc dc(font);
        TEXTMETRICW metrics{};
        if (!dc || !GetTextMetricsW(dc.get(), &metrics) || !hasSize(metrics, description.lfHeight)) return nullptr;
        cell = {metrics.tmAscent, metrics.tmDescent};
        wchar_t name[LF_FACESIZE]{};
        const int length = GetTextFaceW(dc.get(), LF_FACESIZE, name);
        if (length > 0) family.assign(name, name + wcsnlen(name, LF_FACESIZE));
    }
    return std::make_shared<GdiFont>(std::move(font), cell, std::move(family), std::move(privateFonts));
}

}  // namespace ovaline::platform
