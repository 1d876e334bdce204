// Reading the control's raster.
#pragma once

#include <cstddef>
#include <span>

#include "control/interface/norvel_ovaline_ctrl.h"
#include "host/buffers.h"

namespace ovaline::host {

/// A raster in the buffer that the control wrote it into.
class RasterPicture {
public:
    explicit RasterPicture(GuardedBuffer buffer);

    std::size_t columns() const { return columns_; }
    std::size_t rows() const { return rows_; }
    /// A row, 0 at the top: eight pixels a byte, the leftmost in the highest bit, 1 is dark; further bits are 0.
    std::span<const std::byte> row(std::size_t y) const;
    std::size_t darkPixels() const;

private:
    GuardedBuffer buffer_;
    std::size_t rows_;
    std::size_t columns_;
};

/// Renders at pixels of `step` micrometres. Throws Failure where the control has no picture for that step, or an empty
/// one.
RasterPicture readRaster(INorvel_OvalineCtrl& control, double step);

}  // namespace ovaline::host
