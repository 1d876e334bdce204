#include "output/vector_stream.h"

#include <algorithm>
#include <limits>

#include "output/fill_section.h"
#include "output/outline_section.h"
#include "output/record_sink.h"

namespace ovaline {

namespace {

constexpr std::uint64_t kBytesPerCountedRecord = 20;

bool hasFill(const VectorJob& job) {
    return job.fontStyle == TrueType && job.fillStyle != NoFilling;
}

std::uint64_t figureCount(const GraphicsPath& path) {
    return static_cast<std::uint64_t>(std::ranges::count_if(
        path.types(), [](std::uint8_t type) { return (type & PathPointTypePathTypeMask) == PathPointTypeStart; }));
}

/// A copy of `path` moved so that the corner of the export's bounds is at the origin.
GraphicsPath shifted(const VectorJob& job, const GraphicsPath& path) {
    RectF bounds;
    if (includesFrame(job.showAxes))
        bounds = job.frame;
    else
        GdipGetPathWorldBounds(job.text, bounds);
    const Matrix translation{1, 0, 0, 1, -bounds.X, -bounds.Y};
    GraphicsPath copy = path;
    GdipTransformPath(copy, &translation);
    return copy;
}

bool writeStream(const VectorJob& job, bool outline, bool fill, std::span<std::byte> buffer) {
    const GraphicsPath text = shifted(job, job.text);
    RecordSink sink(buffer);
    if (outline) writeOutlineSection(text, job.stepDistance, sink);
    if (fill && sink.fits()) {
        const GraphicsPath lines = shifted(job, job.fill);
        const std::span<const PointF> ends = lines.points();
        std::vector<Segment> hatch;
        hatch.reserve(ends.size() / 2);
        for (std::size_t i = 0; i + 1 < ends.size(); i += 2) hatch.push_back({ends[i], ends[i + 1]});
        writeFillSection(outlineEdges(text), hatch, sink);
    }
    sink.write(kEndRecord);
    if (!sink.fits() && buffer.size() >= kVectorRecordSize) encode(kEndRecord, buffer.data());
    return sink.fits();
}

}  // namespace

std::uint32_t vectorDataSize(const VectorJob& job) {
    std::uint64_t records = 1;
    if (job.outlineType != NoOutline) {
        const auto closed =
            std::ranges::count_if(job.text.types(), [](std::uint8_t type) { return type & PathPointTypeCloseSubpath; });
        records += job.text.size() + static_cast<std::uint64_t>(closed);
    }
    if (hasFill(job)) records += 2 * figureCount(job.fill) * figureCount(job.text);
    constexpr std::uint64_t kLargest = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(records > kLargest / kBytesPerCountedRecord ? kLargest
                                                                                  : records * kBytesPerCountedRecord);
}

bool writeVectorData(const VectorJob& job, std::span<std::byte> buffer) {
    return writeStream(job, job.outlineType != NoOutline, hasFill(job), buffer);
}

bool writeOutlineData(const VectorJob& job, std::span<std::byte> buffer) {
    return writeStream(job, true, false, buffer);
}

}  // namespace ovaline
