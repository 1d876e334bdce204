#include "control/composed_copies.h"

#include <algorithm>
#include <cstdint>
#include <new>

#include "geometry/path_writer.h"

namespace ovaline {

namespace {

/// Asks for room at once. Without it the path grows step by step, so a refusal is no failure.
void reserveIfPossible(GraphicsPath& path, std::uint64_t points) {
    try {
        PathWriter(path).reserve(static_cast<std::size_t>(std::min<std::uint64_t>(points, kMostTextPoints)));
    } catch (const std::bad_alloc&) {
        return;
    }
}

}  // namespace

bool BuildComposedCopies(const CopyTexts& texts, const platform::Clock& clock, const CopyGrid& grid, CopiedText& copies,
                         GraphicsPath& target) {
    const std::uint64_t count = static_cast<std::uint64_t>(grid.columns) * static_cast<std::uint64_t>(grid.rows);
    bool first = true;
    texts.forEach(clock, [&](std::int32_t column, std::int32_t row, const std::u16string& text) {
        copies.append(text, grid.offset(column, row), target);
        // The copies are much alike, so the first tells how much room all of them take; room that is not used costs
        // addresses alone.
        if (first) reserveIfPossible(target, static_cast<std::uint64_t>(target.size()) * count * 3 / 2);
        first = false;
        return target.size() <= kMostTextPoints;
    });
    return target.size() <= kMostTextPoints;
}

}  // namespace ovaline
