#include "control/kept_paths.h"

namespace ovaline {

void reset(KeptPaths& paths) {
    for (GraphicsPath* path : {&paths.TextPath, &paths.FramePath, &paths.GuidePath, &paths.BoundsPath, &paths.FillPath})
        GdipResetPath(*path);
    paths.grid = {};
}

Extent frameExtent(const KeptPaths& paths) {
    const Extent one = extentOf(paths.FramePath);
    Extent all;
    // Every column and row, not the outer ones alone: offsets may be negative, and rounding is each copy's own.
    for (std::int32_t i = 0; i < paths.grid.columns; ++i) all.include(one, paths.grid.offset(i, 0));
    for (std::int32_t j = 0; j < paths.grid.rows; ++j) all.include(one, paths.grid.offset(0, j));
    return all;
}

}  // namespace ovaline
