#include "platform/posix/fonts_scaling.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace ovaline::platform {

namespace {

constexpr std::int64_t kMostDotsPerEm = 0xFFFF;  // the font engine counts them in 16 bits
constexpr int kSubDots = 64;                     // outline coordinates are in 26.6

}  // namespace

std::int64_t mulDiv(std::int64_t a, std::int64_t b, std::int64_t c) {
    const std::int64_t product = a * b;
    const std::int64_t magnitude = (std::abs(product) + c / 2) / c;
    return product < 0 ? -magnitude : magnitude;
}

std::optional<std::int32_t> dotsPerEm(std::int32_t lfHeight, const CellUnits& cell) {
    if (lfHeight == 0) return std::nullopt;
    std::int64_t ppem = -std::int64_t{lfHeight};
    if (lfHeight > 0) {
        const std::int64_t cellUnits = std::int64_t{cell.ascent} + cell.descent;
        ppem = mulDiv(cell.unitsPerEm, lfHeight, cellUnits);
        if (mulDiv(cellUnits, ppem, cell.unitsPerEm) > lfHeight) --ppem;
    }
    ppem = std::max<std::int64_t>(ppem, 1);
    if (ppem > kMostDotsPerEm) return std::nullopt;
    const std::int64_t scale = (ppem * kSubDots << 16) / cell.unitsPerEm;
    if (scale > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    return static_cast<std::int32_t>(ppem);
}

std::int32_t cellDots(std::int32_t units, std::int32_t ppem, std::int32_t unitsPerEm) {
    return static_cast<std::int32_t>(FT_MulFix(units, FT_DivFix(ppem, unitsPerEm)));
}

std::int32_t advanceDots(std::int64_t advance) {
    return static_cast<std::int32_t>((advance + kSubDots - 1) >> 6);
}

std::int32_t kerningDots(std::int32_t units, std::int32_t ppem, std::int32_t unitsPerEm) {
    const std::int64_t magnitude = mulDiv(std::int64_t{std::abs(units)} + 1, ppem, unitsPerEm);
    return static_cast<std::int32_t>(units < 0 ? -magnitude : magnitude);
}

std::int32_t emboldeningStrength(std::int32_t ppem) {
    return static_cast<std::int32_t>(mulDiv(ppem, kSubDots, 24));
}

std::int64_t slantShift(std::int64_t y) {
    return mulDiv(y, 1, 4);
}

}  // namespace ovaline::platform
