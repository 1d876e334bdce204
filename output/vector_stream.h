// The vector data stream: what the host's marking engine reads.
#pragma once

#include <cstdint>
#include <span>

#include "geometry/enumerations.h"
#include "geometry/graphics_path.h"
#include "output/enumerations.h"
#include "output/vector_record.h"

namespace ovaline {

/// What an export reads. Paths are in dots and stay unchanged; `text` holds straight segments, `fill` figures of two
/// points.
struct VectorJob {
    const GraphicsPath& text;
    const GraphicsPath& fill;
    RectF frame;                           ///< bounds of the frame
    std::int32_t showAxes = FullAxes;      ///< `_axesstyle`: whose bounds have their corner at the origin
    std::int32_t outlineType = SolidLine;  ///< `_outlinestyle`
    std::int32_t fontStyle = TrueType;     ///< `_txtfontstyle`
    std::int32_t fillStyle = NoFilling;    ///< `_fillstyle`
    std::int32_t stepDistance = 0;         ///< dots, up to which outline points may be marked as intermediate
};

/// Bytes to allocate for the stream: 20 for each record that the outline can have at most, for two crossings of each
/// hatch line with each figure, and for the end record. Computed in 64 bits, saturated at 0xFFFFFFFF.
std::uint32_t vectorDataSize(const VectorJob& job);

/// Writes the outline (unless there is none), the fill clipped to the glyphs, and the end record. Returns false where
/// they do not fit: the stream is then the end record alone, if even that fits, and the rest of the buffer is
/// undefined. Nothing is written past the buffer.
bool writeVectorData(const VectorJob& job, std::span<std::byte> buffer);

/// The same with the outline alone, whatever the outline and fill styles.
bool writeOutlineData(const VectorJob& job, std::span<std::byte> buffer);

}  // namespace ovaline
