// Numbers as text, the same in every locale.
#pragma once

#include <string>

namespace ovaline::host {

/// Appends the shortest decimal that reads back to the same single, always with a point or an exponent ("30.0").
/// JSON has no other numbers: NaN and the infinities become the texts "NaN", "Infinity" and "-Infinity", in quotes.
void appendSingle(std::string& out, float value);

/// Appends millimetres rounded to 0.1 micrometre, a sixteenth of a dot, without trailing zeros and never "-0".
/// The magnitude is below 1e14.
void appendMillimetres(std::string& out, double millimetres);

/// Appends a number for a person with `decimals` decimals.
void appendRounded(std::string& out, double value, int decimals);

}  // namespace ovaline::host
