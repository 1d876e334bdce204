// Every setting of one control.
#pragma once

#include <cstdint>
#include <string>

#include "geometry/enumerations.h"
#include "output/enumerations.h"
#include "text/enumerations.h"

namespace ovaline {

/// The settings as they are held. "µm" is a whole number of micrometres; angles are in degrees counter-clockwise on the
/// screen; enumerations hold whatever number the host put. After each field: who writes it; the property
/// record also writes most that is neither font, text nor array.
struct TextSettings {
    std::u16string FontName = u"Arial";            // put, FontStyle
    std::int32_t FontHeight = 5000;                // put; µm, 100 to 50800
    std::int16_t FontCharSet = 1;                  // nobody; its low byte is the font's character set
    std::int16_t FontBold = 0;                     // put; any nonzero value is on
    std::int16_t FontItalic = 0;                   // put
    std::int16_t FontUnderline = 0;                // put
    std::int16_t FontStrikeout = 0;                // put
    std::int32_t FontStyle = TrueType;             // put, FontName; _txtfontstyle
    std::u16string TextData = u"Ovaline";          // put
    std::u16string DatabaseField = u"Fieldname";   // put
    float Width = 0;                               // put, sizes; µm
    float Height = 0;                              // put, sizes; µm
    float StartAngle = 0;                          // put
    float Angle = 0;                               // put, RotateByQuadrant
    std::int32_t TextDirection = Clockwise;        // put; _txtdirection
    std::int32_t PathType = Baseline;              // put; _pathtype
    float CharSpace = 0;                           // put; µm
    std::int32_t ShowAxes = FullAxes;              // put; _axesstyle
    std::int32_t FillStyle = Solid;                // put; _fillstyle
    float FillLineWidth = 30;                      // put; µm
    float FillDistance = 40;                       // put; µm
    float FillLineAngle = 45;                      // put
    float FillCrossAngle = 90;                     // put; relative to FillLineAngle
    std::int32_t Invert = 0;                       // put, InvertColor; -1 for true
    std::int32_t OutlineType = SolidLine;          // put; _outlinestyle
    float TextOutline = 30;                        // put; µm
    float Flatness = 10;                           // put; µm, 1 to 2540
    std::int32_t MirrorHorizontal = 0;             // put, FlipH; -1 for true
    std::int32_t MirrorVertical = 0;               // put, FlipV; -1 for true
    std::int32_t ArrayXDimension = 1;              // put; 1 to 255
    std::int32_t ArrayYDimension = 1;              // put; 1 to 255
    float ArrayXOffset = 10000;                    // put; µm
    float ArrayYOffset = 10000;                    // put; µm
    std::int32_t SerialDirection = Across;         // put; _serialdirection
    std::int16_t SerialNumEnable = 0;              // put
    std::u16string SerialNumPrefix = u"Prefix";    // put
    std::u16string SerNumStart = u"1";             // put
    std::u16string SerNumSuffix = u"Suffix";       // put
    std::int32_t SerNumDecimalPlaces = Four;       // put; _sernumdigits
    std::int32_t SerNumIncrement = 1;              // put
    std::int32_t SerialNumberType = Numerical;     // put; _sernumtypes
    std::int16_t AutoDateEnable = 0;               // put
    std::int32_t AutoDatePosition = BeforePrefix;  // put; _autodatepos
    std::int32_t AutoDateFormat = Format00;        // put; _autodateformat
    std::u16string CustomAutoText;                 // put
    std::int32_t AutoDateOffset = 0;               // put; days
    std::int32_t UpdateFlag = 1;                   // SetUpdateFlag; nonzero: puts rebuild the paths
    std::int32_t Measurement = 0;                  // SetMeasurement; 0 millimetres, else inches
    std::int32_t DisplayInPoint = 0;               // DisplayInPoint; nonzero: FontHeight travels in points
    float ZoomFactor = 1.0f;                       // SetZoomFactor
    float ResolutionInDPI = 15882.62f;             // SetResolutionInDPI; laser dots per inch
    float DotsPerUnit = 625.3f;                    // SetDotsPerUnit; laser dots per host unit
    float DotsPerPixel = 0;                        // construction, SetResolutionInDPI; laser dots per screen pixel
    float UnitFactor = 0;                   // construction, SetResolutionInDPI, SetDotsPerUnit; pixels per host unit
    float ScreenDpi = 96;                   // construction; the display's
    float LeftInDACUnits = 20000;           // SetLeftTopinDACUnits
    float TopInDACUnits = 20000;            // SetLeftTopinDACUnits
    std::uint16_t UnitsPrecision = 3;       // SetUnitsPrecision; decimals that editors show
    float StepSize = 40;                    // SetStepSize; µm
    float ScreenLeft = 0;                   // SetScreenXY, SetScreenSize; pixels
    float ScreenTop = 0;                    // SetScreenXY, SetScreenSize; pixels
    float ScreenWidth = 0;                  // SetScreenSize, regeneration; pixels
    float ScreenHeight = 0;                 // SetScreenSize, regeneration; pixels
    float ActualLeft = 0;                   // SetActualXY, sizes
    float ActualTop = 0;                    // SetActualXY, sizes
    float ResultLeft = 0;                   // regeneration; µm
    float ResultTop = 0;                    // regeneration; µm
    float ResultRight = 0;                  // regeneration; µm, the result's width
    float ResultBottom = 0;                 // regeneration; µm, the result's height
    std::int32_t BackGroundColor = 0;       // SetBackGroundColor
    std::uint32_t FrameColor = 0x00BEBEBE;  // the property record; COLORREF
    std::uint32_t GuideColor = 0x007878FF;  // the property record; COLORREF
    std::int32_t SpareFlag = 0;             // put; no effect
    std::int32_t SpareInt = 1;              // the property record; no effect
    float CharWidth = 0;                    // the property record; µm, no effect
    std::int32_t SpareColor = 0;            // the property record; no effect
    float SpareScaleX = 1.0f;               // the property record; no effect
    float SpareScaleY = 1.0f;               // the property record; no effect

    bool composed() const { return SerialNumEnable != 0 || AutoDateEnable != 0; }
};

/// The settings of a new control on a display of `screenDpi` logical pixels per inch, with the start-up texts of the
/// module's string table.
TextSettings startUpSettings(float screenDpi);

// The fields that a conversion of the units keeps consistent.
void setResolutionInDPI(TextSettings& settings, float dotsPerInch);
void setDotsPerUnit(TextSettings& settings, float dotsPerUnit);

/// Stores the name and makes the style follow it: single-stroke families are known by their name.
void setFontName(TextSettings& settings, std::u16string name);
/// Stores the style and, where the name's style is another, a name that fits it.
void setFontStyle(TextSettings& settings, std::int32_t style);

}  // namespace ovaline
