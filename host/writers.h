// The drawings and programs that are made from a marking; docs/formats.md describes each.
#pragma once

#include <cstddef>
#include <span>

#include "host/marking.h"
#include "host/raster.h"
#include "host/sink.h"

namespace ovaline::host {

/// Widths of the beam's lines in a drawing, in millimetres.
struct LineWidths {
    double outline = 0;
    double hatch = 0;
};

struct MachineSettings {
    double feed = 0;  ///< millimetres per minute while the beam marks
    int power = 0;    ///< S word while the beam marks
};

void writeSvg(const Marking& marking, const LineWidths& widths, Sink& sink);
void writeDxf(const Marking& marking, Sink& sink);
void writeGcode(const Marking& marking, const MachineSettings& machine, Sink& sink);

/// `picture` has rows and columns.
void writePbm(const RasterPicture& picture, Sink& sink);

/// The records of a stream as JSON text; `stream` ends with its end record.
void writeRecords(std::span<const std::byte> stream, double dotsPerMillimetre, Sink& sink);

}  // namespace ovaline::host
