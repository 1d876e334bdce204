#include "pages/text_page_settings.h"

#include "pages/owned_text.h"

namespace ovaline {

namespace {

constexpr float kMicrometresPerMillimetre = 1000;
constexpr float kMillimetresPerInch = 25.4f;

// What the record holds in micrometres.
constexpr std::size_t kMicrometreFields[] = {record_offset::FillLineWidth, record_offset::FillDistance,
                                             record_offset::TextOutline,   record_offset::Flatness,
                                             record_offset::CharWidth,     record_offset::CharSpace};

template <typename Convert>
void convertLengths(TextPageSettings& settings, Convert&& convert) {
    for (const std::size_t offset : kMicrometreFields)
        settings.setField(offset, convert(settings.field<float>(offset), settings.measurement != 0));
}

float displayLength(float micrometres, bool inches) {
    const float millimetres = micrometres / kMicrometresPerMillimetre;
    return inches ? millimetres / kMillimetresPerInch : millimetres;
}

/// Not rounded: a length may come back a little below the whole micrometre that it was.
float recordLength(float length, bool inches) {
    const float thousands = length * kMicrometresPerMillimetre;
    return inches ? thousands * kMillimetresPerInch : thousands;
}

VARIANT addressOf(TextPageSettings& settings) {
    VARIANT argument{};
    argument.vt = VT_BYREF | VT_UI1;
    argument.byref = settings.record.data();
    return argument;
}

}  // namespace

std::optional<TextPageSettings> readTextPageSettings(INorvel_OvalineCtrl& control) {
    TextPageSettings settings;
    OwnedText fontName, text;
    LONG displayInPoint = 0;
    _txtfontstyle fontStyle = TrueType;
    for (const HRESULT hr : {control.GetDisplayInPoint(&displayInPoint), control.get_FontName(fontName.put()),
                             control.get_FontHeight(&settings.fontHeight), control.get_FontBold(&settings.fontBold),
                             control.get_FontItalic(&settings.fontItalic),
                             control.GetMeasurement(&settings.measurement), control.GetProperty(addressOf(settings)),
                             control.get_TextData(text.put()), control.get_FontStyle(&fontStyle)}) {
        if (FAILED(hr)) return std::nullopt;
    }
    settings.displayInPoint = displayInPoint;
    settings.fontName = platform::textOf(fontName.get());
    settings.text = platform::textOf(text.get());
    settings.fontStyle = fontStyle;
    convertLengths(settings, displayLength);
    return settings;
}

void writeTextPageSettings(const TextPageSettings& settings, INorvel_OvalineCtrl& control) {
    // What needs memory comes first, so that the control is never left with its update flag cleared.
    const OwnedText text(settings.text);
    const OwnedText fontName(settings.fontName);
    TextPageSettings inMicrometres = settings;
    convertLengths(inMicrometres, recordLength);

    control.SetUpdateFlag(0);
    control.put_TextData(text.get());
    control.put_FontStyle(static_cast<_txtfontstyle>(settings.fontStyle));
    control.put_Height(settings.field<float>(record_offset::Height));
    control.put_Width(settings.field<float>(record_offset::Width));
    control.SetUpdateFlag(1);
    control.SetProperty(addressOf(inMicrometres));
    control.put_FontName(fontName.get());
    control.put_FontHeight(settings.fontHeight);
    control.put_FontBold(settings.fontBold);
    control.put_FontItalic(settings.fontItalic);
}

}  // namespace ovaline
