#include "output/raster.h"

#include <algorithm>
#include <cmath>

#include "output/raster_lines.h"
#include "platform/little_endian.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

constexpr std::size_t kHeaderSize = 4;

void writeHeader(std::int32_t rows, std::int32_t columns, std::span<std::byte> buffer) {
    storeLittleEndian(&buffer[0], static_cast<std::uint16_t>(rows));
    storeLittleEndian(&buffer[2], static_cast<std::uint16_t>(columns));
}

/// The bounds of the picture in pixels, before it is moved to the origin.
Extent boundsOf(const RasterJob& job) {
    const Extent bounds = includesFrame(job.showAxes) ? job.frame : extentOf(job.text);
    return {bounds.left * job.scale, bounds.top * job.scale, bounds.right * job.scale, bounds.bottom * job.scale};
}

}  // namespace

float rasterScale(float stepSize, float width, const Units& units) {
    if (!(stepSize > 0) || !(width > 0)) return 0;
    const float pixelsPerMillimetre = 1000.0f / stepSize;
    const std::int32_t columns = truncateToInt32(pixelsPerMillimetre * (width / 1000.0));
    return static_cast<float>(columns) / units.dots(width);
}

Status renderRaster(const RasterJob& job, Raster& raster) {
    raster = {};
    if (!(job.scale > 0) || !std::isfinite(job.scale)) return InvalidParameter;
    const Extent bounds = boundsOf(job);
    const RectF box = bounds.rectangle();
    Raster drawn;
    drawn.columns = truncateToInt32(box.Width);
    drawn.rows = truncateToInt32(box.Height);
    if (drawn.columns == 0 || drawn.rows == 0) return Ok;
    if (std::max(drawn.columns, drawn.rows) > kMostRasterSide) return OutOfMemory;
    const std::size_t bytes = drawn.bytesPerRow() * static_cast<std::size_t>(drawn.rows);
    if (static_cast<std::int64_t>(bytes) > kMostRasterBytes) return OutOfMemory;
    drawn.bits.assign(bytes, std::byte{});
    // Ink of the ground's colour leaves no trace.
    if (!job.lightInk) {
        if (job.isSolid()) fillRaster(job.text, {job.scale, {box.X, box.Y}}, job.invert, drawn);
        const Status status = RasterLines(job, box, drawn).draw();
        if (status != Ok) return status;
    }
    raster = std::move(drawn);
    return Ok;
}

std::int32_t rasterDataSize(const Raster& raster) {
    constexpr std::int32_t kFurtherBytes = 62;
    return (raster.columns + 31) / 32 * 4 * raster.rows + kFurtherBytes;
}

bool writeRasterData(const Raster& raster, std::span<std::byte> buffer) {
    if (buffer.size() < kHeaderSize + raster.bits.size()) {
        if (buffer.size() >= kHeaderSize) writeHeader(0, 0, buffer);
        return false;
    }
    writeHeader(raster.rows, raster.columns, buffer);
    std::ranges::copy(raster.bits, buffer.begin() + kHeaderSize);
    return true;
}

}  // namespace ovaline
