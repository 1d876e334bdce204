#include "host/job_warnings.h"

#include <algorithm>
#include <cmath>

#include "host/control_reader.h"
#include "host/control_settings.h"
#include "host/glyph_count.h"
#include "host/text_encoding.h"
#include "host/vector_stream.h"
#include "output/vector_record.h"
#include "platform/fonts.h"

namespace ovaline::host {

namespace {

std::string jsonOfValue(const VARIANT& value) {
    std::string text;
    appendValue(text, value);
    return text;
}

/// A length is held in whole micrometres and comes back rounded to 3 decimals, or 4 in inches.
bool isHeld(const VARIANT& given, const VARIANT& held, bool inches) {
    if (given.vt != VT_R4) return jsonOfValue(given) == jsonOfValue(held);
    const float rounding = inches ? 0.00015f : 0.0025f;
    return std::abs(given.fltVal - held.fltVal) <= std::max(rounding, std::abs(given.fltVal) * 1e-6f);
}

/// The font that the control's settings choose, in a size of its own: what it draws is the same in every size.
std::shared_ptr<const platform::Font> fontOf(INorvel_OvalineCtrlTable& control) {
    VARIANT_BOOL bold = VARIANT_FALSE;
    VARIANT_BOOL italic = VARIANT_FALSE;
    require(control.get_FontBold(&bold), "getting FontBold");
    require(control.get_FontItalic(&italic), "getting FontItalic");
    platform::LogFont description;
    constexpr std::size_t kLongestFaceName = 31;
    constexpr std::int32_t kAnyHeight = 1000;
    constexpr std::int32_t kBold = 700;
    description.lfFaceName = readText(control, &INorvel_OvalineCtrl::get_FontName, "FontName");
    description.lfFaceName.resize(std::min(description.lfFaceName.size(), kLongestFaceName));
    description.lfHeight = kAnyHeight;
    if (bold) description.lfWeight = kBold;
    description.lfItalic = italic ? 1 : 0;
    return platform::systemFonts().createFont(description);
}

/// An ellipse on which every glyph has the room of some three times its height; nothing else that takes room or time.
void makeRoom(INorvel_OvalineCtrlTable& control) {
    constexpr std::size_t kOtherGlyphs = 64;  // of a serial number and a date, which stand in the text's place
    const std::size_t glyphs = readText(control, &INorvel_OvalineCtrl::get_TextData, "TextData").size() +
                               readText(control, &INorvel_OvalineCtrl::get_SerialNumPrefix, "SerialNumPrefix").size() +
                               readText(control, &INorvel_OvalineCtrl::get_SerNumStart, "SerNumStart").size() +
                               readText(control, &INorvel_OvalineCtrl::get_SerNumSuffix, "SerNumSuffix").size() +
                               readText(control, &INorvel_OvalineCtrl::get_CustomAutoText, "CustomAutoText").size();
    FLOAT height = 0;
    require(control.get_FontHeight(&height), "getting FontHeight");
    const FLOAT size = static_cast<FLOAT>(glyphs + kOtherGlyphs) * height;
    require(control.put_Width(size), "putting Width");
    require(control.put_Height(size), "putting Height");
    require(control.put_CharSpace(0), "putting CharSpace");
    require(control.put_FillStyle(NoFilling), "putting FillStyle");
}

}  // namespace

std::vector<std::string> heldOtherwise(INorvel_OvalineCtrlTable& control, const Job& job) {
    std::vector<std::string> warnings;
    for (const Setting& setting : job.settings) {
        Arguments held(1);
        const std::string name(setting.property->name);
        require(setting.property->get(control, held.all()), "getting " + name);
        if (!isHeld(setting.value[0], held[0], job.inches))
            warnings.push_back(setting.origin + ": " + name + " " + jsonOfValue(setting.value[0]) +
                               " was asked for, the control holds " + jsonOfValue(held[0]));
    }
    return warnings;
}

std::string fontWarning(INorvel_OvalineCtrlTable& control) {
    const std::u16string asked = readText(control, &INorvel_OvalineCtrl::get_FontName, "FontName");
    const auto font = fontOf(control);
    if (!font) return "no font can be opened for " + toUtf8(asked) + ", the text marks nothing";
    const auto lowered = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
    if (std::ranges::equal(font->familyName(), asked, {}, lowered, lowered)) return {};
    return "the font " + toUtf8(asked) + " is not installed, " + toUtf8(font->familyName()) + " is marked instead";
}

std::optional<std::size_t> glyphsOf(INorvel_OvalineCtrlTable& control) {
    const auto font = fontOf(control);
    if (!isStaticText(control) || !font) return std::nullopt;
    const std::u16string text = readText(control, &INorvel_OvalineCtrl::get_TextData, "TextData");
    return markedGlyphs(*font, text, figuresOf(control));
}

std::size_t figuresOf(INorvel_OvalineCtrlTable& control) {
    const VectorStream stream = readVectorStream(control, &INorvel_OvalineCtrl::GetOutlineData, "GetOutlineData");
    std::size_t figures = 0;
    for (std::size_t at = 0; at + kVectorRecordSize <= stream.bytes().size(); at += kVectorRecordSize)
        if (decode(stream.bytes().data() + at).code == 'u') ++figures;
    return figures;
}

std::string roomWarning(platform::GetClassObject module, Job& job, std::size_t figures) {
    HostedControl roomy(module);
    putSettings(roomy.table(), job);
    makeRoom(roomy.table());
    require(roomy.table().SetUpdateFlag(1), "SetUpdateFlag");
    const std::size_t all = figuresOf(roomy.table());
    if (figures >= all) return {};
    return "the text has no room on the ellipse, " + std::to_string(all - figures) + " of its " + std::to_string(all) +
           " outline figures are left out";
}

}  // namespace ovaline::host
