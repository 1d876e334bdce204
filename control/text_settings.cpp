#include "control/text_settings.h"

#include <utility>

#include "platform/resources.h"

namespace ovaline {

namespace {

// New controls start in this language, whatever the user interface shows.
constexpr std::uint16_t kStartUpLanguage = 1049;

void loadInto(std::u16string& field, std::uint32_t id) {
    if (auto text = platform::loadString(id, kStartUpLanguage)) field = std::move(*text);
}

bool isSingleStrokeFamily(const std::u16string& name) {
    return name.find(u"Filament") != std::u16string::npos;
}

}  // namespace

TextSettings startUpSettings(float screenDpi) {
    TextSettings settings;
    settings.ScreenDpi = screenDpi;
    setResolutionInDPI(settings, settings.ResolutionInDPI);
    loadInto(settings.DatabaseField, 119);
    loadInto(settings.TextData, 200);
    loadInto(settings.SerialNumPrefix, 201);
    loadInto(settings.SerNumStart, 202);
    loadInto(settings.SerNumSuffix, 203);
    return settings;
}

void setResolutionInDPI(TextSettings& settings, float dotsPerInch) {
    settings.ResolutionInDPI = dotsPerInch;
    settings.DotsPerPixel = dotsPerInch / settings.ScreenDpi;
    settings.UnitFactor = settings.DotsPerUnit * settings.ScreenDpi / dotsPerInch;
}

void setDotsPerUnit(TextSettings& settings, float dotsPerUnit) {
    settings.DotsPerUnit = dotsPerUnit;
    settings.UnitFactor = dotsPerUnit / settings.DotsPerPixel;
}

void setFontName(TextSettings& settings, std::u16string name) {
    settings.FontName = std::move(name);
    settings.FontStyle = isSingleStrokeFamily(settings.FontName) ? SingleStroke : TrueType;
}

void setFontStyle(TextSettings& settings, std::int32_t style) {
    settings.FontStyle = style;
    const bool wanted = style == SingleStroke;
    if (isSingleStrokeFamily(settings.FontName) != wanted) settings.FontName = wanted ? u"Filament SanSerif" : u"Arial";
}

}  // namespace ovaline
