// The property record: the settings that one call moves between a control and a caller's buffer.
#pragma once

#include <cstddef>

namespace ovaline {

/// Bytes of a record: fields at fixed offsets, little-endian, singles and 32-bit integers but for one of 16 bits.
inline constexpr std::size_t kPropertyRecordSize = 272;

/// Where each field begins. Lengths are micrometres, but for those marked "unit", which are in the unit of
/// `Measurement`. What lies between the fields is reserved.
namespace record_offset {
inline constexpr std::size_t PathType = 0x00;
inline constexpr std::size_t StartAngle = 0x04;  ///< single, degrees
inline constexpr std::size_t FillStyle = 0x08;
inline constexpr std::size_t FillLineWidth = 0x0C;   ///< single
inline constexpr std::size_t FillDistance = 0x10;    ///< single
inline constexpr std::size_t FillLineAngle = 0x14;   ///< single, degrees
inline constexpr std::size_t FillCrossAngle = 0x18;  ///< single, degrees
inline constexpr std::size_t OutlineType = 0x1C;
inline constexpr std::size_t TextOutline = 0x20;  ///< single
inline constexpr std::size_t MirrorHorizontal = 0x24;
inline constexpr std::size_t MirrorVertical = 0x28;
inline constexpr std::size_t ShowAxes = 0x2C;
inline constexpr std::size_t StepSize = 0x30;    ///< single
inline constexpr std::size_t CharSpace = 0x40;   ///< single
inline constexpr std::size_t Angle = 0x44;       ///< single, degrees
inline constexpr std::size_t ActualLeft = 0x48;  ///< single, unit
inline constexpr std::size_t ActualTop = 0x4C;   ///< single, unit
inline constexpr std::size_t Width = 0x50;       ///< single, unit
inline constexpr std::size_t Height = 0x54;      ///< single, unit
inline constexpr std::size_t SpareFlag = 0x58;
inline constexpr std::size_t Flatness = 0x5C;  ///< single
inline constexpr std::size_t SpareInt = 0x60;
inline constexpr std::size_t ZoomFactor = 0x64;       ///< single
inline constexpr std::size_t ResolutionInDPI = 0x68;  ///< single
inline constexpr std::size_t DotsPerUnit = 0x70;      ///< single
inline constexpr std::size_t UnitFactor = 0x74;       ///< single
inline constexpr std::size_t LeftInDACUnits = 0x78;   ///< single
inline constexpr std::size_t TopInDACUnits = 0x7C;    ///< single
inline constexpr std::size_t UnitsPrecision = 0x80;   ///< unsigned, 16 bits
inline constexpr std::size_t CharWidth = 0x84;        ///< single
inline constexpr std::size_t FrameColor = 0x88;       ///< COLORREF
inline constexpr std::size_t GuideColor = 0x8C;       ///< COLORREF
inline constexpr std::size_t SpareColor = 0x90;
inline constexpr std::size_t TextDirection = 0xF0;
inline constexpr std::size_t SpareScaleX = 0x104;  ///< single
inline constexpr std::size_t SpareScaleY = 0x108;  ///< single
inline constexpr std::size_t Invert = 0x10C;
}  // namespace record_offset

}  // namespace ovaline
