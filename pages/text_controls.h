// The controls of the text settings dialog.
#pragma once

namespace ovaline::text_controls {

inline constexpr int kPreview = 1201;
inline constexpr int kText = 201;

inline constexpr int kFontStyle = 266;
inline constexpr int kFont = 1004;
inline constexpr int kFontSize = 207;
inline constexpr int kFontSizeSpin = 208;
inline constexpr int kBold = 205;
inline constexpr int kItalic = 206;
inline constexpr int kStrikeout = 1001;  // hidden
inline constexpr int kUnderline = 1002;  // hidden

inline constexpr int kWidth = 1213;
inline constexpr int kWidthSpin = 1222;
inline constexpr int kHeight = 1214;
inline constexpr int kHeightSpin = 1223;
inline constexpr int kAngle = 1212;
inline constexpr int kAngleSpin = 1221;
inline constexpr int kCharSpace = 1216;
inline constexpr int kCharSpaceSpin = 1230;
inline constexpr int kStartAngle = 1241;
inline constexpr int kStartAngleSpin = 1242;
inline constexpr int kCharWidth = 1239;  // hidden
inline constexpr int kCharWidthSpin = 1240;

inline constexpr int kOutlineStyle = 1205;
inline constexpr int kOutlineWidthLabel = 1229;
inline constexpr int kOutlineWidth = 1206;
inline constexpr int kOutlineWidthSpin = 1215;

inline constexpr int kFillStyle = 1204;
inline constexpr int kLineWidthLabel = 1231;
inline constexpr int kLineWidth = 1208;
inline constexpr int kLineWidthSpin = 1217;
inline constexpr int kDistanceLabel = 1232;
inline constexpr int kDistance = 1209;
inline constexpr int kDistanceSpin = 1218;
inline constexpr int kLineAngleLabel = 1233;
inline constexpr int kLineAngle = 1210;
inline constexpr int kLineAngleSpin = 1219;
inline constexpr int kCrossAngleLabel = 1234;
inline constexpr int kCrossAngle = 1211;
inline constexpr int kCrossAngleSpin = 1220;

}  // namespace ovaline::text_controls
