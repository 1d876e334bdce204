#include "output/raster_fill.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ovaline {

namespace {

/// A bit at every pixel from which on a row changes between dark and light; the raster's own bits serve for that.
class Changes {
public:
    explicit Changes(Raster& raster) : raster_(raster), bytesPerRow_(raster.bytesPerRow()) {}

    void addEdge(PointF from, PointF to) {
        // Downwards, so that an edge that two figures share changes both at the same pixels.
        if (from.Y > to.Y) std::swap(from, to);
        const std::int32_t first = firstCentreFrom(from.Y, raster_.rows);
        const std::int32_t end = firstCentreFrom(to.Y, raster_.rows);
        const double slope = (double{to.X} - from.X) / (double{to.Y} - from.Y);
        for (std::int32_t y = first; y < end; ++y)
            change(firstCentreFrom(from.X + (y + 0.5 - from.Y) * slope, raster_.columns), y);
    }

    /// Turns the changes into the pixels between them.
    void fill(bool dark) {
        const unsigned unused = static_cast<unsigned>(bytesPerRow_ * 8) - static_cast<unsigned>(raster_.columns);
        for (auto row = raster_.bits.begin(); row != raster_.bits.end();
             row += static_cast<std::ptrdiff_t>(bytesPerRow_)) {
            unsigned before = dark ? 0xFF : 0;
            const auto end = row + static_cast<std::ptrdiff_t>(bytesPerRow_);
            for (auto byte = row; byte != end; ++byte) {
                unsigned bits = std::to_integer<unsigned>(*byte);
                // Each bit becomes the parity of itself and of all bits left of it.
                bits ^= bits >> 1;
                bits ^= bits >> 2;
                bits ^= bits >> 4;
                bits ^= before;
                before = (bits & 1) != 0 ? 0xFF : 0;
                *byte = static_cast<std::byte>(bits);
            }
            end[-1] &= static_cast<std::byte>(0xFF << unused);
        }
    }

private:
    /// The first of `count` pixels whose centre is not before `at`; `count` where there is none.
    static std::int32_t firstCentreFrom(double at, std::int32_t count) {
        return static_cast<std::int32_t>(std::ceil(std::clamp(at - 0.5, 0.0, static_cast<double>(count))));
    }

    void change(std::int32_t x, std::int32_t y) {
        if (x == raster_.columns) return;
        const auto row = static_cast<std::size_t>(raster_.rows - 1 - y);
        raster_.bits[row * bytesPerRow_ + static_cast<std::size_t>(x) / 8] ^= static_cast<std::byte>(0x80 >> x % 8);
    }

    Raster& raster_;
    std::size_t bytesPerRow_;
};

bool isFinite(PointF p) {
    return std::isfinite(p.X) && std::isfinite(p.Y);
}

}  // namespace

void fillRaster(const GraphicsPath& path, const RasterPlace& place, bool invert, Raster& raster) {
    Changes changes(raster);
    std::vector<PointF> figure;
    const std::span<const std::uint8_t> types = path.types();
    for (std::size_t i = 0; i < types.size(); ++i) {
        figure.push_back(place.map(path.points()[i]));
        const bool last = i + 1 == types.size() || (types[i + 1] & PathPointTypePathTypeMask) == PathPointTypeStart;
        if (!last) continue;
        if (std::ranges::all_of(figure, isFinite)) {
            PointF from = figure.back();
            for (const PointF to : figure) changes.addEdge(std::exchange(from, to), to);
        }
        figure.clear();
    }
    changes.fill(invert);
}

}  // namespace ovaline
