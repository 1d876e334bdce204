#include "control/composed_copies.h"

#include <algorithm>

#include "geometry/path_writer.h"

namespace ovaline {

bool BuildComposedCopies(const CopyTexts& texts, const platform::Clock& clock, const CopyGrid& grid, CopiedText& copies,
                         GraphicsPath& target) {
    const std::size_t count = static_cast<std::size_t>(grid.columns) * static_cast<std::size_t>(grid.rows);
    bool first = true;
    texts.forEach(clock, [&](std::int32_t column, std::int32_t row, const std::u16string& text) {
        copies.append(text, grid.offset(column, row), target);
        // The copies are much alike, so the first tells how much room all of them take; room that is not used costs
        // addresses alone.
        if (first) PathWriter(target).reserve(std::min(target.size() * count * 3 / 2, kMostTextPoints));
        first = false;
        return target.size() <= kMostTextPoints;
    });
    return target.size() <= kMostTextPoints;
}

}  // namespace ovaline
