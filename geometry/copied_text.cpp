#include "geometry/copied_text.h"

#include <bit>
#include <limits>

#include "geometry/cubic.h"
#include "geometry/path_writer.h"

namespace ovaline {

namespace {

// Copies whose texts differ everywhere would fill the cache with glyphs that are met once; it is emptied then. Two
// megabytes hold every digit and letter at every place of a long serial number.
constexpr std::size_t kMostCachedPoints = std::size_t{1} << 18;

}  // namespace

std::size_t CopiedText::KeyHash::operator()(const Key& key) const {
    const std::uint64_t bits = std::uint64_t{std::bit_cast<std::uint32_t>(key.t)} << 32 |
                               (std::bit_cast<std::uint32_t>(key.advance) ^ key.code * 0x9E37u);
    // Multiplicative hashing (Knuth, "The Art of Computer Programming", 6.4); the upper bits are the mixed ones.
    return static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15u) >> 20);
}

const CopiedText::Placed& CopiedText::placed(char16_t code, char16_t next, float t) {
    const Key key{t, run_.advanceOf(code, next), code};
    const auto found = cache_.find(key);
    if (found != cache_.end()) return found->second;
    if (cachedPoints_ > kMostCachedPoints) {
        cache_.clear();
        cachedPoints_ = 0;
    }
    const TextOnPath::Placement placement = run_.place(key.advance, t);
    Placed glyph{placement.next, GraphicsPath(), Extent()};
    if (placement.fits) {
        appendTransformed(glyph.path, run_.glyph(code).outline, placement.matrix);
        GdipTransformPath(glyph.path, &transform_.rotation);
        glyph.extent = extentOf(glyph.path);
        if (!transform_.singleStroke) {
            // Far copies round the moved vertices more coarsely; what they round away is left room for.
            constexpr float kRounding = std::numeric_limits<float>::epsilon();
            GdipFlattenPath(glyph.path, transform_.flatness - transform_.farthest * kRounding);
        }
    }
    cachedPoints_ += glyph.path.size();
    return cache_.emplace(key, std::move(glyph)).first->second;
}

void CopiedText::append(std::u16string_view text, PointF offset, GraphicsPath& target) {
    GraphicsPath strokes;
    float t = run_.start(0);
    forEachCharacter(text, [&](char16_t code, char16_t next) {
        if (!(t >= 0)) return false;
        const Placed& glyph = placed(code, next, t);
        t = glyph.next;
        if (transform_.singleStroke) {
            appendTransformed(strokes, glyph.path, {1, 0, 0, 1, offset.X, offset.Y});
        } else {
            appendMoved(glyph.path, offset, target);
            extent_.include(glyph.extent, offset);
        }
        return true;
    });
    if (transform_.singleStroke) finishStrokes(strokes, target);
}

void CopiedText::appendMoved(const GraphicsPath& glyph, PointF offset, GraphicsPath& target) const {
    if (!transform_.mirror) {
        appendTransformed(target, glyph, {1, 0, 0, 1, offset.X, offset.Y});
        return;
    }
    // Moved and mirrored in two steps, so that each rounds as it would by itself.
    const std::size_t first = target.size();
    appendTransformed(target, glyph, {1, 0, 0, 1, offset.X, offset.Y});
    PathWriter(target).transformFrom(first, *transform_.mirror);
}

void CopiedText::finishStrokes(GraphicsPath& strokes, GraphicsPath& target) {
    GraphicsPath opened;
    ConvertToSingleStroke(strokes, opened);
    extent_.include(extentOf(opened), {});
    if (transform_.mirror) GdipTransformPath(opened, &*transform_.mirror);
    GdipFlattenPath(opened, transform_.flatness);
    GdipAddPathPath(target, opened);
}

Extent CopiedText::mirroredExtent() const {
    if (!transform_.mirror || extent_.empty()) return extent_;
    Extent mirrored;
    mirrored.include(transform_.mirror->map({extent_.left, extent_.top}));
    mirrored.include(transform_.mirror->map({extent_.right, extent_.bottom}));
    return mirrored;
}

}  // namespace ovaline
