// The edits for numbers of the text settings page, each with its spin button.
#pragma once

#include <cstddef>

#include "control/interface/property_record.h"
#include "pages/text_controls.h"

namespace ovaline {

/// An edit for a field of the record. All limits are the same numbers in millimetres, inches and degrees.
struct TextEdit {
    int edit;
    int spin;
    std::size_t field;  ///< a single at this offset of the record
    int rangeLeast;     ///< range of the spin button's own
    int rangeMost;
    double least;  ///< what clicks on the spin button reach
    double most;
    bool angle;         ///< is shown with one decimal
    bool positiveOnly;  ///< 0 and less are ignored
};

inline constexpr TextEdit kTextEdits[] = {
    {text_controls::kLineWidth, text_controls::kLineWidthSpin, record_offset::FillLineWidth, 1, 50, 0.04, 50, false,
     false},
    {text_controls::kOutlineWidth, text_controls::kOutlineWidthSpin, record_offset::TextOutline, 1, 50, 0.04, 50, false,
     false},
    {text_controls::kDistance, text_controls::kDistanceSpin, record_offset::FillDistance, 1, 50, 0.03, 50, false, true},
    {text_controls::kLineAngle, text_controls::kLineAngleSpin, record_offset::FillLineAngle, -360, 360, -360, 360, true,
     false},
    {text_controls::kCrossAngle, text_controls::kCrossAngleSpin, record_offset::FillCrossAngle, -360, 360, -360, 360,
     true, false},
    {text_controls::kAngle, text_controls::kAngleSpin, record_offset::Angle, -360, 360, -360, 360, true, false},
    {text_controls::kStartAngle, text_controls::kStartAngleSpin, record_offset::StartAngle, -360, 360, -360, 360, true,
     false},
    {text_controls::kWidth, text_controls::kWidthSpin, record_offset::Width, 1, 65535, 0.04, 60, false, true},
    {text_controls::kHeight, text_controls::kHeightSpin, record_offset::Height, 1, 65535, 0.04, 60, false, true},
    {text_controls::kCharWidth, text_controls::kCharWidthSpin, record_offset::CharWidth, 0, 50, 0.04, 30, false, false},
    {text_controls::kCharSpace, text_controls::kCharSpaceSpin, record_offset::CharSpace, -2, 3, -15, 30, false, false},
};

/// A height above this is refused, with a message.
inline constexpr float kMostHeight = 60;

/// What a font size may be.
struct FontSizeLimits {
    double least;
    double most;
};
inline constexpr FontSizeLimits kPointLimits = {0.6, 200};
inline constexpr FontSizeLimits kInchLimits = {0.01, 3.0};
inline constexpr FontSizeLimits kMillimetreLimits = {0.1, 76.2};

}  // namespace ovaline
