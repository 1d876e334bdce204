// One control that carries out one job.
#pragma once

#include <optional>

#include "host/control_host.h"
#include "host/job.h"
#include "host/marking.h"
#include "host/raster.h"
#include "host/picture.h"
#include "host/vector_stream.h"
#include "host/writers.h"

namespace ovaline::host {

/// What the control hands over for one run: the stream, and what is needed to place and to draw it.
struct Result {
    VectorStream stream;
    Placement placement;
    LineWidths widths;
    std::optional<std::size_t> glyphs;  ///< that one copy marks, where all copies have the same text
    std::optional<RasterPicture> raster;  ///< where the format asks for it
    std::size_t copies = 1;  ///< copies of the array, whether the stream holds them or the host repeats the one in it
};

class MarkingSession {
public:
    /// Creates a control of the default size and puts the job's settings with one regeneration. Throws Failure where
    /// the control refuses one.
    MarkingSession(platform::GetClassObject module, Job job);

    /// One line for each thing that will not be marked as it was asked: a setting that the control holds differently, a
    /// font that the machine does not have, a text that has no room.
    std::vector<std::string> warnings();

    Result read();

    /// The result with pixels of `step` micrometres.
    RasterPicture raster(double step) { return readRaster(control_.table(), step); }

    /// The preview of the whole result, as the bytes of a file.
    std::string draw(platform::PictureKind kind, double pixelsPerInch);

    /// A line for each copy with its text.
    std::string texts();

    /// Moves the serial number on, as after a marked part.
    void advance();

private:
    Array readArray();
    void readPlacement(Result& result);
    LineWidths readWidths();

    platform::GetClassObject module_;
    Job job_;
    HostedControl control_;
};

}  // namespace ovaline::host
