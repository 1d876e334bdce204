#include "output/units.h"

#include <cmath>

#include "platform/numbers.h"

namespace ovaline {

namespace {

constexpr double kMicrometresPerMillimetre = 1000.0;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kMicrometresPerInch = 25400.0;
constexpr double kPointsPerInch = 72.0;

}  // namespace

std::int32_t toInternalUnits(double length, Measurement measurement) {
    const double millimetres = measurement == 0 ? length : length * kMillimetresPerInch;
    return truncateToInt32(millimetres * kMicrometresPerMillimetre + 0.5);
}

float toUserUnits(std::int32_t micrometres, Measurement measurement) {
    const double millimetres = micrometres / kMicrometresPerMillimetre;
    const bool inches = measurement != 0;
    const float length = static_cast<float>(inches ? millimetres / kMillimetresPerInch : millimetres);
    const double decimals = inches ? 10000.0 : 1000.0;
    return static_cast<float>(std::trunc(length * decimals + 0.5) / decimals);
}

std::int32_t pointsToMicrometres(float points) {
    return truncateToInt32(static_cast<double>(points) / kPointsPerInch * kMicrometresPerInch);
}

float micrometresToPoints(std::int32_t micrometres) {
    const float points = static_cast<float>(micrometres * kPointsPerInch / kMicrometresPerInch);
    return static_cast<float>(std::trunc(points * 100.0 + 0.5) / 100.0);
}

float Units::dots(float micrometres) const {
    const double millimetres = truncateToInt32(micrometres) / kMicrometresPerMillimetre;
    return static_cast<float>(measurement == 0 ? millimetres : millimetres / kMillimetresPerInch) * dotsPerUnit;
}

float Units::pitchDots(float micrometres) const {
    float length = static_cast<float>(truncateToInt32(micrometres) / kMicrometresPerMillimetre);
    if (measurement != 0) length = static_cast<float>(length / kMillimetresPerInch);
    return length * dotsPerUnit;
}

}  // namespace ovaline
