#include "geometry/copy_grid.h"

namespace ovaline {

Extent extentOf(const Extent& one, const CopyGrid& grid) {
    Extent all;
    // Every column and row, not the outer ones alone: offsets may be negative, and rounding is each copy's own.
    for (std::int32_t i = 0; i < grid.columns; ++i) all.include(one, grid.offset(i, 0));
    for (std::int32_t j = 0; j < grid.rows; ++j) all.include(one, grid.offset(0, j));
    return all;
}

}  // namespace ovaline
