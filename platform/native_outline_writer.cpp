#include "platform/native_outline_writer.h"

#include <algorithm>
#include <utility>

namespace ovaline::platform {

namespace {

constexpr std::uint32_t kPolygonType = 24;     // TT_POLYGON_TYPE
constexpr std::uint16_t kLineRecord = 1;       // TT_PRIM_LINE
constexpr std::uint16_t kQuadraticRecord = 2;  // TT_PRIM_QSPLINE

constexpr std::byte byteOf(std::uint32_t value, unsigned index) {
    return static_cast<std::byte>(value >> (8 * index) & 0xFF);
}

}  // namespace

void NativeOutlineWriter::beginContour(FixedPoint start) {
    header_ = bytes_.size();
    put32(0);  // cb, known at the contour's end
    put32(kPolygonType);
    putPoint(start);
}

void NativeOutlineWriter::line(std::span<const FixedPoint> points) {
    while (!points.empty()) {
        const std::size_t count = std::min(points.size(), kMostPointsOfRecord);
        curve(kLineRecord, points.first(count));
        points = points.subspan(count);
    }
}

void NativeOutlineWriter::qspline(std::span<const FixedPoint> points) {
    curve(kQuadraticRecord, points);
}

void NativeOutlineWriter::endContour() {
    const auto size = static_cast<std::uint32_t>(bytes_.size() - header_);
    for (unsigned i = 0; i < 4; ++i) bytes_[header_ + i] = byteOf(size, i);
}

std::vector<std::byte> NativeOutlineWriter::take() {
    return std::exchange(bytes_, {});
}

void NativeOutlineWriter::curve(std::uint16_t type, std::span<const FixedPoint> points) {
    put16(type);
    put16(static_cast<std::uint32_t>(points.size()));
    for (const FixedPoint point : points) putPoint(point);
}

void NativeOutlineWriter::put16(std::uint32_t value) {
    for (unsigned i = 0; i < 2; ++i) bytes_.push_back(byteOf(value, i));
}

void NativeOutlineWriter::put32(std::uint32_t value) {
    for (unsigned i = 0; i < 4; ++i) bytes_.push_back(byteOf(value, i));
}

void NativeOutlineWriter::putPoint(FixedPoint point) {
    put32(static_cast<std::uint32_t>(point.x));
    put32(static_cast<std::uint32_t>(point.y));
}

}  // namespace ovaline::platform
