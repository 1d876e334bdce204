#include "control/composed_copies.h"

#include <algorithm>

#include "control/settings_slices.h"
#include "geometry/path_writer.h"
#include "text/autodate.h"
#include "text/marking_text.h"
#include "text/serial_number.h"

namespace ovaline {

namespace {

std::uint64_t stepsPerCopy(const TextSettings& settings) {
    return static_cast<std::uint64_t>(std::max<std::int32_t>(settings.SerNumIncrement, 0));
}

bool isArray(const TextSettings& settings) {
    return settings.ArrayXDimension > 1 || settings.ArrayYDimension > 1;
}

std::u16string advanced(const TextSettings& settings, const std::u16string& serial, std::uint64_t steps) {
    return advanceSerialNumber(serial, settings.SerialNumberType, settings.SerNumDecimalPlaces, steps);
}

}  // namespace

CopyGrid copyGridOf(const TextSettings& settings) {
    const Units units = unitsOf(settings);
    return {settings.ArrayXDimension, settings.ArrayYDimension, units.pitchDots(settings.ArrayXOffset),
            units.pitchDots(settings.ArrayYOffset)};
}

bool BuildComposedCopies(const TextSettings& settings, const platform::Clock& clock, CopiedText& copies,
                         GraphicsPath& target) {
    const CopyGrid grid = copyGridOf(settings);
    const std::u16string pattern = ResolveAutoDatePattern(settings.AutoDateFormat, settings.CustomAutoText);
    const bool down = settings.SerialDirection == Down;
    const std::int32_t inner = down ? grid.rows : grid.columns;
    const std::int32_t count = grid.columns * grid.rows;
    std::u16string serial = settings.SerNumStart;
    for (std::int32_t k = 0; k < count; ++k) {
        const std::u16string text = ComposeMarkingText(settings.SerialNumPrefix, serial, settings.SerNumSuffix,
                                                       settings.SerNumDecimalPlaces, pattern, settings.AutoDatePosition,
                                                       settings.SerialNumberType, settings.SerialNumEnable != 0,
                                                       settings.AutoDateEnable != 0, settings.AutoDateOffset, clock);
        const std::int32_t column = down ? k / inner : k % inner;
        const std::int32_t row = down ? k % inner : k / inner;
        copies.append(text, grid.offset(column, row), target);
        if (target.size() > kMostTextPoints) return false;
        // The copies are much alike, so the first tells how much room all of them take; room that is not used costs
        // addresses alone.
        if (k == 0)
            PathWriter(target).reserve(
                std::min(target.size() * static_cast<std::size_t>(count) * 3 / 2, kMostTextPoints));
        serial = advanced(settings, serial, stepsPerCopy(settings));
    }
    return true;
}

std::u16string serialAfterRun(const TextSettings& settings) {
    std::uint64_t steps = stepsPerCopy(settings);
    if (isArray(settings))
        steps *=
            static_cast<std::uint64_t>(settings.ArrayXDimension) * static_cast<std::uint64_t>(settings.ArrayYDimension);
    return advanced(settings, settings.SerNumStart, steps);
}

}  // namespace ovaline
