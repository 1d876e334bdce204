#include "pages/norvel_ovaline_prop_page.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <utility>

#include "pages/text_controls.h"
#include "pages/text_numbers.h"
#include "platform/drawing.h"
#include "platform/numbers.h"

namespace ovaline {

using namespace text_controls;
using platform::Dialog;

namespace {

constexpr double kMillimetreStep = 0.1;
constexpr double kInchStep = 0.01;
constexpr int kAngleDecimals = 1;

/// Single-stroke families are known by their name.
bool isSingleStroke(std::u16string_view family) {
    return family.find(u"Filament") != std::u16string_view::npos;
}

bool isListed(std::u16string_view family, std::int32_t fontStyle) {
    if (fontStyle == SingleStroke) return isSingleStroke(family);
    return fontStyle != TrueType || !isSingleStroke(family);
}

const TextEdit* findEdit(int TextEdit::*member, int id) {
    const TextEdit* const found = std::ranges::find(kTextEdits, id, member);
    return found == std::end(kTextEdits) ? nullptr : found;
}

void showAll(Dialog& dialog, std::initializer_list<int> ids, bool visible) {
    for (const int id : ids) dialog.show(id, visible);
}

double step(Dialog& dialog, int edit, double by, double least, double most) {
    return std::clamp(leadingNumber(dialog.text(edit)) + by, least, most);
}

}  // namespace

CNorvel_OvalinePropPage* CNorvel_OvalinePropPage::create(const PageServices& services) {
    return new CNorvel_OvalinePropPage(services);
}

CNorvel_OvalinePropPage::CNorvel_OvalinePropPage(const PageServices& services)
    : PropertyPage(services, {.dialog = platform::kTextPageDialog,
                              .title = platform::kTextPageTitleString,
                              .helpFile = platform::kTextPageHelpFileString,
                              .docString = platform::kTextPageDescriptionString}) {}

void CNorvel_OvalinePropPage::load() {
    initialised_ = loaded_ = false;
    settings_ = {};
    fontItems_ = {};
    // Whatever was changed in an earlier dialog went with it.
    resetDirty();
    setSpinRanges();
    fillList(kFillStyle, platform::kFillStyleStrings);
    fillList(kOutlineStyle, platform::kOutlineStyleStrings);
    fillList(kFontStyle, platform::kFontStyleStrings);
    const auto object = control();
    if (auto read = object ? readTextPageSettings(*object.get()) : std::nullopt) {
        settings_ = std::move(*read);
        loaded_ = true;
        showSettings();
    }
    initialised_ = true;
}

void CNorvel_OvalinePropPage::setSpinRanges() {
    for (const TextEdit& edit : kTextEdits) dialog().setSpinRange(edit.spin, edit.rangeLeast, edit.rangeMost);
}

void CNorvel_OvalinePropPage::fillList(int id, const platform::StringRange& strings) {
    for (std::uint32_t i = 0; i < strings.count; ++i) dialog().addItem(id, string(strings.first + i));
}

void CNorvel_OvalinePropPage::showSettings() {
    dialog().setText(kText, settings_.text);
    for (const TextEdit& edit : kTextEdits)
        dialog().setText(edit.edit, fixedText(settings_.field<float>(edit.field), decimals(edit.angle)));
    dialog().select(kFillStyle, settings_.field<std::int32_t>(record_offset::FillStyle));
    dialog().select(kOutlineStyle, settings_.field<std::int32_t>(record_offset::OutlineType));
    dialog().select(kFontStyle, settings_.fontStyle);
    fillFontList();
    showFont();
    const FontSizeLimits limits = fontSizeLimits();
    dialog().setSpinRange(kFontSizeSpin, truncateToInt32(limits.least), truncateToInt32(limits.most));
}

void CNorvel_OvalinePropPage::fillFontList() {
    dialog().clearItems(kFont);
    for (const platform::FontFamily& family : services().fonts->families()) {
        if (isListed(family.name, settings_.fontStyle)) dialog().addItem(kFont, family.name);
    }
}

void CNorvel_OvalinePropPage::showFont() {
    dialog().selectByPrefix(kFont, settings_.fontName);
    takeFont();
    dialog().setChecked(kBold, settings_.fontBold != VARIANT_FALSE);
    dialog().setChecked(kItalic, settings_.fontItalic != VARIANT_FALSE);
    dialog().setChecked(kUnderline, settings_.fontUnderline);
    dialog().setChecked(kStrikeout, settings_.fontStrikeout);
    dialog().setText(kFontSize, generalText(settings_.fontHeight));
    takeFont();
}

void CNorvel_OvalinePropPage::store() {
    const auto object = control();
    if (object && loaded_) writeTextPageSettings(settings_, *object.get());
    resetDirty();
}

void CNorvel_OvalinePropPage::textChanged(int id) {
    if (id == kText) return takeText();
    if (!initialised_) return;
    if (id == kFontSize) return takeFontSize();
    if (const TextEdit* const edit = findEdit(&TextEdit::edit, id)) takeNumber(*edit);
}

void CNorvel_OvalinePropPage::selectionChanged(int id) {
    if (id == kFont) return takeFont();
    if (id == kFontStyle) return takeFontStyle();
    if (!initialised_) return;
    if (id == kFillStyle) takeFillStyle();
    if (id == kOutlineStyle) takeOutlineStyle();
}

void CNorvel_OvalinePropPage::clicked(int id) {
    if (id == kBold || id == kItalic || id == kUnderline || id == kStrikeout) takeFlag(id);
}

void CNorvel_OvalinePropPage::spun(int id, int delta) {
    if (!initialised_) return;
    const double by = delta * (settings_.measurement == 0 ? kMillimetreStep : kInchStep);
    if (id == kFontSizeSpin) {
        const FontSizeLimits limits = fontSizeLimits();
        const double size = step(dialog(), kFontSize, by, limits.least, limits.most);
        dialog().setText(kFontSize, fixedText(size, decimals(false)));
    } else if (const TextEdit* const edit = findEdit(&TextEdit::spin, id)) {
        const double value = step(dialog(), edit->edit, by, edit->least, edit->most);
        dialog().setText(edit->edit, fixedText(value, decimals(edit->angle)));
    }
}

void CNorvel_OvalinePropPage::paint(int id, HDC dc, const RECT& area) {
    if (id != kPreview) return;
    if (const auto canvas = platform::makeCanvas(dc)) preview_.draw(settings_, *services().fonts, *canvas, area);
}

void CNorvel_OvalinePropPage::takeText() {
    std::u16string text = dialog().text(kText);
    if (text == settings_.text) return;
    settings_.text = std::move(text);
    changed();
}

void CNorvel_OvalinePropPage::takeNumber(const TextEdit& edit) {
    const float value = nearestSingle(leadingNumber(dialog().text(edit.edit)));
    if (edit.positiveOnly && !(value > 0)) return;
    if (edit.edit == kHeight && value > kMostHeight)
        return dialog().showMessage(string(platform::kHeightMessageString));
    takeField(edit.field, value);
}

void CNorvel_OvalinePropPage::takeFontSize() {
    const float size = nearestSingle(leadingNumber(dialog().text(kFontSize)));
    const FontSizeLimits limits = fontSizeLimits();
    if (size < static_cast<float>(limits.least) || size > static_cast<float>(limits.most)) return;
    settings_.fontHeight = size;
    changed();
}

void CNorvel_OvalinePropPage::takeFont() {
    // A control's font that is not installed here has no item, and stays.
    if (const int item = dialog().selection(kFont); item >= 0) {
        settings_.fontName = dialog().itemText(kFont, item);
        settings_.fontStyle = isSingleStroke(settings_.fontName) ? SingleStroke : TrueType;
    }
    changed();
}

void CNorvel_OvalinePropPage::takeFontStyle() {
    const int style = dialog().selection(kFontStyle);
    if (style < 0) return;
    if (const int item = dialog().selection(kFont); item >= 0) fontItems_[settings_.fontStyle] = item;
    settings_.fontStyle = style;
    fillFontList();
    dialog().select(kFont, fontItems_[style]);
    showFont();
}

void CNorvel_OvalinePropPage::takeFillStyle() {
    const int style = dialog().selection(kFillStyle);
    if (style < 0) return;
    const bool hatched = style == Line || style == Cross;
    showAll(dialog(),
            {kLineWidthLabel, kLineWidth, kLineWidthSpin, kDistanceLabel, kDistance, kDistanceSpin, kLineAngleLabel,
             kLineAngle, kLineAngleSpin},
            hatched);
    showAll(dialog(), {kCrossAngleLabel, kCrossAngle, kCrossAngleSpin}, style == Cross);
    takeField<std::int32_t>(record_offset::FillStyle, style);
}

void CNorvel_OvalinePropPage::takeOutlineStyle() {
    const int style = dialog().selection(kOutlineStyle);
    if (style < 0) return;
    showAll(dialog(), {kOutlineWidthLabel, kOutlineWidth, kOutlineWidthSpin}, style != NoOutline);
    takeField<std::int32_t>(record_offset::OutlineType, style);
}

void CNorvel_OvalinePropPage::takeFlag(int box) {
    const bool checked = dialog().isChecked(box);
    if (box == kBold) settings_.fontBold = checked ? VARIANT_TRUE : VARIANT_FALSE;
    if (box == kItalic) settings_.fontItalic = checked ? VARIANT_TRUE : VARIANT_FALSE;
    if (box == kUnderline) settings_.fontUnderline = checked;
    if (box == kStrikeout) settings_.fontStrikeout = checked;
    changed();
}

template <typename Value>
void CNorvel_OvalinePropPage::takeField(std::size_t field, Value value) {
    const bool differs = value != settings_.field<Value>(field);
    if (differs) settings_.setField(field, value);
    setDirty(differs);
    dialog().redraw(kPreview);
}

void CNorvel_OvalinePropPage::changed() {
    setDirty(true);
    dialog().redraw(kPreview);
}

FontSizeLimits CNorvel_OvalinePropPage::fontSizeLimits() const {
    if (settings_.displayInPoint != 0) return kPointLimits;
    return settings_.measurement != 0 ? kInchLimits : kMillimetreLimits;
}

int CNorvel_OvalinePropPage::decimals(bool angle) const {
    if (angle) return kAngleDecimals;
    return std::min<int>(settings_.field<std::uint16_t>(record_offset::UnitsPrecision), kMostDecimals);
}

}  // namespace ovaline
