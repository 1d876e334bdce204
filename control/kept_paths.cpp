#include "control/kept_paths.h"

namespace ovaline {

void reset(KeptPaths& paths) {
    for (GraphicsPath* path : {&paths.TextPath, &paths.FramePath, &paths.GuidePath, &paths.BoundsPath, &paths.FillPath})
        GdipResetPath(*path);
    paths.grid = {};
}

Extent frameExtent(const KeptPaths& paths) {
    return extentOf(extentOf(paths.FramePath), paths.grid);
}

}  // namespace ovaline
