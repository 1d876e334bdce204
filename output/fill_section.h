// The fill section of the vector stream: hatch lines cut at the outline's edges.
#pragma once

#include <span>

#include "output/hatch_crossing.h"
#include "output/record_sink.h"

namespace ovaline {

/// Writes the crossings of every hatch line with the edges, by the rule of `findCrossing`: line by line in the given
/// order, each line's crossings by ascending x and then y on even lines, descending on odd ones, as "U" and "D" in
/// turn. Time and memory grow with edges, lines and crossings.
void writeFillSection(std::span<const Segment> edges, std::span<const Segment> hatch, RecordSink& sink);

}  // namespace ovaline
