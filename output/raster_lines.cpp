#include "output/raster_lines.h"

#include <algorithm>
#include <memory>

#include "output/outline_dash.h"

namespace ovaline {

namespace {

using platform::DashStyle;
using platform::DrawingPoint;
using platform::kOpaqueBlack;

/// Most pixels of a tile: a bitmap of 16 MB. Much of a large picture is empty, and empty tiles cost nothing.
constexpr std::int64_t kMostTilePixels = std::int64_t{1} << 22;
/// Most points of the text in a tile. A drawing engine takes some 200 bytes for each while it fills or clips.
constexpr std::size_t kMostTilePoints = 1'000'000;
/// Tiles are not made smaller than this; text of a million points in it is dust.
constexpr std::int32_t kLeastTileSide = 32;

constexpr float kPenWidth = 1;  // pixel
/// How far a line's ink reaches: half its width, ten times that at a corner.
constexpr float kInkReach = 5;  // pixels

/// Pixels around a tile that its bitmap has too, and that are not taken: an engine that draws without smoothing may add
/// a pixel where a slanted line enters its bitmap.
constexpr std::int32_t kMargin = 8;

constexpr int kDarkBelow = 450;

bool isDark(std::uint32_t pixel) {
    return (pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF) < kDarkBelow;
}

std::unique_ptr<platform::Bitmap> makeBitmapOf(const RasterTile& tile) {
    return platform::makeBitmap(tile.width + 2 * kMargin, tile.height + 2 * kMargin);
}

}  // namespace

/// The figures of a path that reach into a tile, in the pixels of the tile's bitmap.
class RasterLines::SeenPath {
public:
    SeenPath(const RasterPlace& place, const RasterTile& tile)
        : place_(place),
          left_(static_cast<float>(tile.x - kMargin)),
          top_(static_cast<float>(tile.y - kMargin)),
          width_(static_cast<float>(tile.width + 2 * kMargin)),
          height_(static_cast<float>(tile.height + 2 * kMargin)) {}

    /// False, and incomplete, where there would be more than `most` points.
    bool select(const GraphicsPath& path, std::size_t most) {
        const std::span<const std::uint8_t> types = path.types();
        for (std::size_t first = 0; first < types.size();) {
            std::size_t end = first + 1;
            while (end < types.size() && (types[end] & PathPointTypePathTypeMask) != PathPointTypeStart) ++end;
            append(path.points().subspan(first, end - first), types.subspan(first, end - first));
            if (points_.size() > most) return false;
            first = end;
        }
        return true;
    }

    bool empty() const { return points_.empty(); }
    operator platform::DrawingPath() const { return {points_, types_}; }

private:
    void append(std::span<const PointF> points, std::span<const std::uint8_t> types) {
        const std::size_t before = points_.size();
        Extent extent;
        for (const PointF dots : points) {
            const PointF whole = place_.map(dots);
            const PointF p{whole.X - left_, whole.Y - top_};
            extent.include(p);
            points_.push_back({p.X, p.Y});
        }
        const bool seen = extent.right >= -kInkReach && extent.left <= width_ + kInkReach &&
                          extent.bottom >= -kInkReach && extent.top <= height_ + kInkReach;
        if (seen)
            types_.insert(types_.end(), types.begin(), types.end());
        else
            points_.resize(before);
    }

    const RasterPlace& place_;
    float left_, top_, width_, height_;  // of the bitmap
    std::vector<DrawingPoint> points_;
    std::vector<std::uint8_t> types_;
};

RasterLines::RasterLines(const RasterJob& job, const RectF& box, Raster& raster)
    : job_(job),
      box_(box),
      place_{job.scale, {box.X, box.Y}},
      raster_(raster),
      hatch_(!job.isSolid() && !job.fill.empty()),
      outline_(job.outlined && job.outlineType != NoOutline),
      lightLine_(job.invert && job.outlineType != NoOutline) {}

Status RasterLines::draw(const RasterTile& tile) {
    if (!hatch_ && !outline_ && !lightLine_) return Ok;
    const bool large = std::int64_t{tile.width} * tile.height > kMostTilePixels ||
                       std::max(tile.width, tile.height) > platform::kMostPixelsAcross - 2 * kMargin;
    if (large) return drawHalves(tile);
    SeenPath text(place_, tile);
    if (!text.select(job_.text, kMostTilePoints))
        return std::max(tile.width, tile.height) > kLeastTileSide ? drawHalves(tile) : OutOfMemory;
    // Only hatch around an inverted text lies where there is no text.
    if (text.empty() && !(hatch_ && job_.invert)) return Ok;
    if (hatch_ || outline_) {
        const std::unique_ptr<platform::Bitmap> bitmap = makeBitmapOf(tile);
        if (!bitmap) return OutOfMemory;
        drawDark(bitmap->canvas(), text, tile);
        apply(Ink::Dark, *bitmap, tile);
    }
    if (lightLine_) {
        const std::unique_ptr<platform::Bitmap> bitmap = makeBitmapOf(tile);
        if (!bitmap) return OutOfMemory;
        bitmap->canvas().setClip(boxIn(tile));
        bitmap->canvas().stroke(text, {kOpaqueBlack, kPenWidth, DashStyle::Solid});
        apply(Ink::Light, *bitmap, tile);
    }
    return Ok;
}

Status RasterLines::drawHalves(const RasterTile& tile) {
    RasterTile first = tile, second = tile;
    if (tile.width > tile.height) {
        first.width = tile.width / 2 / 8 * 8;
        second.x += first.width;
        second.width -= first.width;
    } else {
        first.height = tile.height / 2;
        second.y += first.height;
        second.height -= first.height;
    }
    const Status status = draw(first);
    return status == Ok ? draw(second) : status;
}

void RasterLines::drawDark(platform::Canvas& canvas, const SeenPath& text, const RasterTile& tile) const {
    if (hatch_) drawHatch(canvas, text, tile);
    if (!outline_) return;
    canvas.resetClip();
    canvas.stroke(text, {kOpaqueBlack, kPenWidth, dashOf(job_.outlineType)});
}

void RasterLines::drawHatch(platform::Canvas& canvas, const SeenPath& text, const RasterTile& tile) const {
    SeenPath lines(place_, tile);
    lines.select(job_.fill, job_.fill.size());
    // Only lines that end at the text are smooth, those around an inverted text are not.
    canvas.setSmoothing(!job_.invert);
    if (job_.invert)
        canvas.setClipOutside(boxIn(tile), text);
    else
        canvas.setClip(text);
    canvas.stroke(lines, {kOpaqueBlack, kPenWidth, DashStyle::Solid});
    canvas.setSmoothing(false);
}

platform::DrawingBox RasterLines::boxIn(const RasterTile& tile) const {
    return {static_cast<float>(kMargin - tile.x), static_cast<float>(kMargin - tile.y), box_.Width, box_.Height};
}

void RasterLines::apply(Ink ink, const platform::Bitmap& bitmap, const RasterTile& tile) {
    const std::size_t bytesPerRow = raster_.bytesPerRow();
    for (std::int32_t y = 0; y < tile.height; ++y) {
        const std::span<const std::uint32_t> pixels =
            bitmap.row(y + kMargin).subspan(kMargin, static_cast<std::size_t>(tile.width));
        const auto row = static_cast<std::size_t>(raster_.rows - 1 - (tile.y + y));
        std::byte* to = raster_.bits.data() + row * bytesPerRow + static_cast<std::size_t>(tile.x) / 8;
        for (std::size_t x = 0; x < pixels.size(); x += 8, ++to) {
            const std::size_t count = std::min<std::size_t>(8, pixels.size() - x);
            unsigned dark = 0;
            for (std::size_t i = 0; i < count; ++i) dark |= isDark(pixels[x + i]) ? 0x80u >> i : 0u;
            *to = ink == Ink::Dark ? *to | static_cast<std::byte>(dark) : *to & ~static_cast<std::byte>(dark);
        }
    }
}

}  // namespace ovaline
