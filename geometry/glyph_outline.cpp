#include "geometry/glyph_outline.h"

#include <optional>

#include "platform/numbers.h"

namespace ovaline {

namespace {

// The published native outline records: TTPOLYGONHEADER (cb, dwType, pfxStart), then TTPOLYCURVE (wType, cpfx, points).
constexpr std::size_t kPolygonHeaderSize = 16;
constexpr std::size_t kCurveHeaderSize = 4;
constexpr std::size_t kPointSize = 8;
constexpr std::uint32_t kPolygonType = 24;
constexpr std::uint32_t kLinePrimitive = 1;
constexpr std::uint32_t kQuadraticPrimitive = 2;

/// Two thirds, at single precision.
constexpr float kTwoThirds = 0.6666666865348816f;

std::uint32_t load(std::span<const std::byte> bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;) value = value << 8 | std::to_integer<std::uint32_t>(bytes[at + i]);
    return value;
}

/// A FIXED is a signed number of 1/65536; the quotient is exact in double precision.
float loadFixed(std::span<const std::byte> bytes, std::size_t at) {
    return static_cast<float>(static_cast<std::int32_t>(load(bytes, at, 4)) / 65536.0);
}

PointF loadPoint(std::span<const std::byte> bytes, std::size_t at) {
    return {loadFixed(bytes, at), loadFixed(bytes, at + 4)};
}

// Both control points are computed in double precision and rounded once.
float firstControl(float p, float b) {
    return static_cast<float>(p + (static_cast<double>(b) - p) * kTwoThirds);
}
float secondControl(float b, float e) {
    return static_cast<float>(b + (static_cast<double>(e) - b) / 3.0);
}

class OutlineConverter {
public:
    explicit OutlineConverter(GraphicsPath& path) : path_(path) {}

    void convert(std::span<const std::byte> polygons) {
        while (polygons.size() >= kPolygonHeaderSize && load(polygons, 4, 4) == kPolygonType) {
            const std::size_t size = load(polygons, 0, 4);
            if (size < kPolygonHeaderSize || size > polygons.size()) return;
            current_ = loadPoint(polygons, 8);
            convertCurves(polygons.subspan(kPolygonHeaderSize, size - kPolygonHeaderSize));
            GdipClosePathFigure(path_);
            polygons = polygons.subspan(size);
        }
    }

private:
    void convertCurves(std::span<const std::byte> curves) {
        while (curves.size() >= kCurveHeaderSize) {
            const std::uint32_t type = load(curves, 0, 2);
            const std::size_t count = load(curves, 2, 2);
            const std::size_t size = kCurveHeaderSize + kPointSize * count;
            if (size > curves.size()) return;
            const std::span<const std::byte> points = curves.subspan(kCurveHeaderSize, kPointSize * count);
            if (type == kLinePrimitive) convertLines(points);
            if (type == kQuadraticPrimitive) convertSpline(points);
            curves = curves.subspan(size);
        }
    }

    void convertLines(std::span<const std::byte> points) {
        for (std::size_t at = 0; at < points.size(); at += kPointSize) {
            const PointF q = loadPoint(points, at);
            GdipAddPathLine(path_, current_.X, current_.Y, q.X, q.Y);
            current_ = q;
        }
    }

    void convertSpline(std::span<const std::byte> points) {
        std::size_t at = 0;
        while (at + kPointSize < points.size()) {
            const PointF b = loadPoint(points, at);
            const PointF d = loadPoint(points, at + kPointSize);
            const bool last = at + 2 * kPointSize >= points.size();
            const PointF e = last ? d : PointF{(b.X + d.X) * 0.5f, (b.Y + d.Y) * 0.5f};
            GdipAddPathBezier(path_, current_.X, current_.Y, firstControl(current_.X, b.X),
                              firstControl(current_.Y, b.Y), secondControl(b.X, e.X), secondControl(b.Y, e.Y), e.X,
                              e.Y);
            current_ = e;
            at += last ? 2 * kPointSize : kPointSize;
        }
    }

    GraphicsPath& path_;
    PointF current_;
};

}  // namespace

GlyphOutline BuildGlyphOutline(const platform::Font& font, char16_t code, bool flip) {
    GlyphOutline glyph;
    const std::optional<platform::NativeOutline> native = font.glyphOutline(code, flip);
    if (!native) return glyph;
    OutlineConverter(glyph.outline).convert(native->polygons);
    glyph.advanceX = static_cast<float>(native->gmCellIncX);
    glyph.advanceY = static_cast<float>(native->gmCellIncY);
    return glyph;
}

void ConvertToSingleStroke(const GraphicsPath& source, GraphicsPath& target) {
    if (source.size() < 2) return;
    PathData data;
    GdipGetPathData(source, data);
    std::vector<Point> whole;
    whole.reserve(data.Points.size());
    for (const PointF point : data.Points) whole.push_back({truncateToInt32(point.X), truncateToInt32(point.Y)});
    for (std::uint8_t& type : data.Types)
        if (type & PathPointTypeCloseSubpath) type &= 0x7F;
    GdipAddPathPath(target, GdipCreatePath2I(whole, data.Types, FillModeWinding));
}

}  // namespace ovaline
