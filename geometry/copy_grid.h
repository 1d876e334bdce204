// Where the copies of an array stand.
#pragma once

#include <cstdint>

#include "geometry/graphics_path.h"

namespace ovaline {

/// Copies in columns and rows: the one in column i and row j, from 0, is moved by (i · dx, j · dy).
struct CopyGrid {
    std::int32_t columns = 1;
    std::int32_t rows = 1;
    float dx = 0;  ///< dots
    float dy = 0;  ///< dots

    PointF offset(std::int32_t column, std::int32_t row) const {
        return {static_cast<float>(column) * dx, static_cast<float>(row) * dy};
    }
    PointF last() const { return offset(columns - 1, rows - 1); }
};

/// Extent of all copies, `one` being that of the copy at (0, 0).
Extent extentOf(const Extent& one, const CopyGrid& grid);

}  // namespace ovaline
