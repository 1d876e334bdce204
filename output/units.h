// Units: micrometres inside, the host's unit at the interface, dots in every path.
#pragma once

#include <cstdint>

namespace ovaline {

/// `Measurement`: millimetres when 0, inches otherwise.
using Measurement = std::int32_t;

/// Whole micrometres of a length in the host's unit, halves up, truncated toward zero after the half is added.
/// Lengths beyond 32 bits saturate, NaN is 0.
std::int32_t toInternalUnits(double length, Measurement measurement);

/// A length of `micrometres` in the host's unit, rounded to 3 decimals for millimetres and 4 for inches.
float toUserUnits(std::int32_t micrometres, Measurement measurement);

/// Micrometres of a font height in points (1/72 inch), truncated toward zero; saturates like `toInternalUnits`.
std::int32_t pointsToMicrometres(float points);
/// The font height in points, rounded to 2 decimals.
float micrometresToPoints(std::int32_t micrometres);

/// How many dots a stored length makes.
struct Units {
    Measurement measurement = 0;
    float dotsPerUnit = 0;  ///< dots in a millimetre, or in an inch

    /// Dots of a stored length: whole micrometres to the host's unit, rounded once to single precision, then to dots.
    float dots(float micrometres) const;
    /// Dots from one hatch line, or one copy, to the next: rounded to single precision in millimetres, then in inches,
    /// then to dots.
    float pitchDots(float micrometres) const;
};

}  // namespace ovaline
