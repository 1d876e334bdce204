// The outline section of the vector stream.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry/graphics_path.h"
#include "output/hatch_crossing.h"
#include "output/record_sink.h"

namespace ovaline {

/// Writes "u", "d" and "x" for the figures of `text`, which holds straight segments. A closed figure that does not end
/// where it began gets a closing "d". A point is "x" while less than `stepDistance` dots were marked since the last
/// counted "d" and the path hardly turns at it.
void writeOutlineSection(const GraphicsPath& text, std::int32_t stepDistance, RecordSink& sink);

/// The edges that the fill is cut at: the segments between consecutive points of `text`, closing segments included. An
/// open figure's last point is joined to the first point of the next figure.
std::vector<Segment> outlineEdges(const GraphicsPath& text);

}  // namespace ovaline
