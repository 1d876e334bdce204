#include "control/settings_slices.h"

#include "platform/extended_precision.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

constexpr std::size_t kLongestFaceName = 31;
constexpr std::int32_t kBold = 700;
constexpr std::int32_t kRegular = 400;
constexpr float kSolidPitch = 30;  // µm

/// Height in dots on a display of 96 pixels per inch, in extended precision and in this order.
std::int32_t cellHeight(std::int32_t fontHeight, float scale) {
    const ExtendedPrecisionGuard extendedPrecision;
    const long double height = static_cast<long double>(fontHeight) * static_cast<long double>(scale);
    return truncateToInt32(height / 25400.0L * 96.0L);
}

}  // namespace

Units unitsOf(const TextSettings& settings) {
    return {settings.Measurement, settings.DotsPerUnit};
}

RectF layoutBoxOf(const TextSettings& settings) {
    const Units units = unitsOf(settings);
    return {0, 0, units.dots(settings.Width), units.dots(settings.Height)};
}

float fontScaleOf(const TextSettings& settings) {
    return settings.DotsPerUnit / settings.UnitFactor;
}

platform::LogFont logFontOf(const TextSettings& settings) {
    platform::LogFont font;
    font.lfHeight = cellHeight(settings.FontHeight, fontScaleOf(settings));
    font.lfWeight = settings.FontBold != 0 ? kBold : kRegular;
    font.lfItalic = static_cast<std::uint8_t>(settings.FontItalic);
    font.lfUnderline = static_cast<std::uint8_t>(settings.FontUnderline);
    font.lfStrikeOut = static_cast<std::uint8_t>(settings.FontStrikeout);
    font.lfCharSet = static_cast<std::uint8_t>(settings.FontCharSet);
    font.lfFaceName = settings.FontName.substr(0, kLongestFaceName);
    return font;
}

LayoutInput layoutInputOf(const TextSettings& settings) {
    LayoutInput input;
    input.font = logFontOf(settings);
    input.box = layoutBoxOf(settings);
    input.startAngle = settings.StartAngle;
    input.direction = settings.TextDirection;
    input.pathType = settings.PathType;
    input.spacing = static_cast<float>(settings.CharSpace / 1000.0);
    input.dotsPerPixel = fontScaleOf(settings);
    return input;
}

CopyTexts copyTextsOf(const TextSettings& settings) {
    CopyTexts texts;
    texts.prefix = settings.SerialNumPrefix;
    texts.serialStart = settings.SerNumStart;
    texts.suffix = settings.SerNumSuffix;
    texts.digitCount = settings.SerNumDecimalPlaces;
    texts.serialType = settings.SerialNumberType;
    texts.increment = settings.SerNumIncrement;
    texts.serialOn = settings.SerialNumEnable != 0;
    texts.dateOn = settings.AutoDateEnable != 0;
    texts.dateFormat = settings.AutoDateFormat;
    texts.customDate = settings.CustomAutoText;
    texts.datePosition = settings.AutoDatePosition;
    texts.dateOffset = settings.AutoDateOffset;
    texts.columns = settings.ArrayXDimension;
    texts.rows = settings.ArrayYDimension;
    texts.direction = settings.SerialDirection;
    return texts;
}

CopyGrid copyGridOf(const TextSettings& settings) {
    const Units units = unitsOf(settings);
    return {settings.ArrayXDimension, settings.ArrayYDimension, units.pitchDots(settings.ArrayXOffset),
            units.pitchDots(settings.ArrayYOffset)};
}

HatchInput hatchInputOf(const TextSettings& settings) {
    const Units units = unitsOf(settings);
    HatchInput input;
    input.fontStyle = settings.FontStyle;
    input.fillStyle = settings.FillStyle;
    input.spacing = units.pitchDots(settings.FillDistance);
    input.solidSpacing = units.pitchDots(kSolidPitch);
    input.lineAngle = settings.FillLineAngle;
    input.crossAngle = settings.FillCrossAngle;
    input.angle = settings.Angle;
    return input;
}

VectorJob vectorJobOf(const TextSettings& settings, const KeptPaths& paths) {
    VectorJob job{paths.TextPath, paths.FillPath, frameExtent(paths).rectangle()};
    job.showAxes = settings.ShowAxes;
    job.outlineType = settings.OutlineType;
    job.fontStyle = settings.FontStyle;
    job.fillStyle = settings.FillStyle;
    job.stepDistance = truncateToInt32(settings.StepSize);
    return job;
}

RasterJob rasterJobOf(const TextSettings& settings, const KeptPaths& paths) {
    RasterJob job{paths.TextPath, paths.FillPath, frameExtent(paths)};
    job.scale = rasterScale(settings.StepSize, settings.Width, unitsOf(settings));
    job.showAxes = settings.ShowAxes;
    job.outlineType = settings.OutlineType;
    job.fontStyle = settings.FontStyle;
    job.fillStyle = settings.FillStyle;
    job.outlined = settings.TextOutline != 0;
    job.invert = settings.Invert != 0;
    job.lightInk = settings.BackGroundColor != 0;
    return job;
}

PreviewJob previewJobOf(const TextSettings& settings, const KeptPaths& paths, float pixelsPerInch) {
    const Units units = unitsOf(settings);
    PreviewJob job{paths.TextPath, paths.FillPath, paths.FramePath, paths.GuidePath};
    job.kept = paths.grid;
    job.array = copyGridOf(settings);
    job.composed = settings.composed();
    job.boxesOverlap = (settings.ArrayXDimension > 1 && settings.Width > settings.ArrayXOffset) ||
                       (settings.ArrayYDimension > 1 && settings.Height > settings.ArrayYOffset);
    job.pixelsPerDot = pixelsPerInch * settings.ZoomFactor / settings.ResolutionInDPI;
    job.style.lightInk = settings.BackGroundColor != 0;
    job.style.frameColour = settings.FrameColor;
    job.style.guideColour = settings.GuideColor;
    job.style.showAxes = settings.ShowAxes;
    job.style.fontStyle = settings.FontStyle;
    job.style.fillStyle = settings.FillStyle;
    job.style.outlineType = settings.OutlineType;
    job.style.invert = settings.Invert != 0;
    job.style.outlined = settings.TextOutline != 0;
    job.style.fillLineWidth = units.dots(settings.FillLineWidth);
    job.style.outlineWidth = units.dots(settings.TextOutline);
    return job;
}

}  // namespace ovaline
