// How an outline style is drawn.
#pragma once

#include "output/enumerations.h"
#include "platform/drawing.h"

namespace ovaline {

/// The dash style of an `_outlinestyle`, solid for a number outside the list.
inline platform::DashStyle dashOf(std::int32_t outlineType) {
    switch (outlineType) {
        case Dash:
            return platform::DashStyle::Dash;
        case Dots:
            return platform::DashStyle::Dot;
        case DashDot:
            return platform::DashStyle::DashDot;
        case DashDotDot:
            return platform::DashStyle::DashDotDot;
        default:
            return platform::DashStyle::Solid;
    }
}

}  // namespace ovaline
