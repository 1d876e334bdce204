#include "pages/ovaline_serial_prop_page.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <utility>

#include "pages/serial_dialog.h"
#include "pages/text_numbers.h"
#include "platform/numbers.h"
#include "text/marking_text.h"
#include "text/numerical_serial.h"

namespace ovaline {

using namespace serial_dialog;

namespace {

constexpr int kNoItem = -1;
constexpr std::int32_t kNoPosition = -1;

/// Longest custom pattern of the preview, in UTF-16 code units. Like the cut by the digit count it counts code units,
/// the unit of the boxes' own limits, and may leave half of a surrogate pair.
constexpr std::size_t kMostCustomPattern = 49;

/// The whole part of the number that the text begins with, the nearest 32-bit one where it is larger.
std::int32_t wholeNumber(std::u16string_view text) {
    return truncateToInt32(leadingNumber(text));
}

/// Lets the control only store what is put, and regenerate once at the end, also where memory runs out in between.
class UpdateBatch {
public:
    explicit UpdateBatch(INorvel_OvalineCtrl& control) : control_(control) { control_.SetUpdateFlag(0); }
    ~UpdateBatch() { control_.SetUpdateFlag(1); }
    UpdateBatch(const UpdateBatch&) = delete;
    UpdateBatch& operator=(const UpdateBatch&) = delete;

private:
    INorvel_OvalineCtrl& control_;
};

}  // namespace

COvalineSerialPropPage* COvalineSerialPropPage::create(const PageServices& services) {
    return new COvalineSerialPropPage(services);
}

COvalineSerialPropPage::COvalineSerialPropPage(const PageServices& services)
    : PropertyPage(services, {.dialog = platform::kSerialPageDialog,
                              .title = platform::kSerialPageTitleString,
                              .helpFile = platform::kSerialPageHelpFileString,
                              .docString = platform::kSerialPageDescriptionString}) {}

// Filling the dialog reports each change; until loaded_ is set, those reports refresh nothing. The reference text and
// the dirty state of an earlier load stay until they are formed anew.
void COvalineSerialPropPage::load() {
    loaded_ = isOfControl_ = false;
    const std::initializer_list<std::span<const int>> hidden = {kSerialControls, kDateControls, kPositions,
                                                                kCustomControls, kPreviewControls};
    for (const auto ids : hidden) show(ids, false);
    for (const auto& [list, strings] : kLists)
        for (std::uint32_t i = 0; i < strings.count; ++i) dialog().addItem(list, string(strings.first + i));
    if (const auto object = control()) showSettings(*object.get());
    buildReference();
    loaded_ = true;
}

void COvalineSerialPropPage::showSettings(INorvel_OvalineCtrl& control) {
    const SerialSettings held = readSerialSettings(control);
    const bool dateWasOn = std::exchange(remembered_, held).dateOn;
    isOfControl_ = true;

    dialog().select(kType, held.type);
    applyTypeRule();
    loadedPattern_ = readCustomPattern(control);
    dialog().setText(kCustomPattern, loadedPattern_);
    dialog().setText(kPrefix, held.prefix);
    dialog().setText(kStart, held.start);
    dialog().setText(kSuffix, held.suffix);
    dialog().select(kDigitCount, held.digitCount);
    applyDigitRule();
    dialog().setText(kIncrement, decimalText(held.increment, 0));
    const bool isFormat = held.dateFormat >= Format00 && held.dateFormat <= Custom;
    dialog().select(kFormat, isFormat ? held.dateFormat - Format00 : kNoItem);
    dialog().setText(kDateOffset, decimalText(held.dateOffset, 0));
    if (std::ranges::count(kPositions, held.datePosition)) dialog().setChecked(held.datePosition, true);

    // The test that the first box runs comes before the second flag is loaded.
    remembered_.dateOn = dateWasOn;
    if (held.serialOn) {
        dialog().setChecked(kSerialEnable, true);
        serialEnableClicked();
    }
    remembered_.dateOn = held.dateOn;
    if (held.dateOn) {
        dialog().setChecked(kDateEnable, true);
        dateEnableClicked();
    }
}

// It holds the date even where dates are off, never their offset, and no alphanumeric number: the preview of such
// settings differs from it for as long as the page is open.
void COvalineSerialPropPage::buildReference() {
    if (position() == kNoPosition) return;
    constexpr std::int32_t kNotShown = -1;
    const std::u16string pattern =
        remembered_.dateFormat == Custom ? loadedPattern_ : string(static_cast<std::uint32_t>(remembered_.dateFormat));
    reference_ =
        ComposeMarkingText(remembered_.prefix, dialog().text(kStart), remembered_.suffix, remembered_.digitCount,
                           pattern, remembered_.datePosition, remembered_.type == Numerical ? Numerical : kNotShown,
                           true, true, 0, *services().clock);
}

// A list without a selection has the item -1, as radio buttons of which none is checked have the position -1.
SerialSettings COvalineSerialPropPage::settingsOfDialog() const {
    return {.serialOn = dialog().isChecked(kSerialEnable),
            .type = dialog().selection(kType),
            .prefix = dialog().text(kPrefix),
            .start = dialog().text(kStart),
            .suffix = dialog().text(kSuffix),
            .increment = dialog().number(kIncrement),
            .dateOffset = dialog().number(kDateOffset),
            .digitCount = dialog().selection(kDigitCount),
            .dateOn = dialog().isChecked(kDateEnable),
            .dateFormat = Format00 + dialog().selection(kFormat),
            .datePosition = position()};
}

void COvalineSerialPropPage::store() {
    {
        const auto object = control();
        // A control that comes after an empty page was opened gets nothing of it.
        if (!object || !isOfControl_) return;
        const UpdateBatch batch(*object.get());
        writeDifferences(*object.get(), settingsOfDialog(), remembered_);
        writeCustomPattern(*object.get(), customPattern_);
    }
    setDirty(false);
}

void COvalineSerialPropPage::textChanged(int id) {
    switch (id) {
        case kCustomPattern:
            customPattern_ = dialog().text(kCustomPattern);
            break;
        case kPrefix:
        case kStart:
        case kSuffix:
        case kIncrement:
        case kDateOffset:
            break;
        default:
            return;
    }
    if (loaded_) refreshPreview();
}

void COvalineSerialPropPage::selectionChanged(int id) {
    if (id == kType) applyTypeRule();
    if (id == kDigitCount) applyDigitRule();
    if (!loaded_) return;
    if (id == kFormat) applyCustomVisibility();
    refreshPreview();
}

void COvalineSerialPropPage::clicked(int id) {
    if (id == kSerialEnable) {
        serialEnableClicked();
    } else if (id == kDateEnable) {
        dateEnableClicked();
    } else if (loaded_) {
        refreshPreview();
    }
}

void COvalineSerialPropPage::doubleClicked(int id) {
    const int item = dialog().selection(id);
    if (id != kHelper || item == kNoItem) return;
    // The box reports its new text, which becomes the custom pattern.
    dialog().setText(kCustomPattern,
                     dialog().text(kCustomPattern).append(kHelperCodes.at(static_cast<std::size_t>(item))));
}

void COvalineSerialPropPage::serialEnableClicked() {
    applyVisibility();
    if (dialog().isChecked(kSerialEnable))
        for (const int list : {kType, kDigitCount})
            if (dialog().selection(list) == kNoItem) dialog().select(list, 0);
    if (isAnyEnabled()) refreshPreview();
    testDirty();
}

void COvalineSerialPropPage::dateEnableClicked() {
    dialog().setText(kPreview, {});
    applyVisibility();
    if (isAnyEnabled()) refreshPreview();
    testDirty();
}

void COvalineSerialPropPage::show(std::span<const int> ids, bool visible) {
    for (const int id : ids) dialog().show(id, visible);
}

void COvalineSerialPropPage::applyVisibility() {
    const bool serial = dialog().isChecked(kSerialEnable), date = dialog().isChecked(kDateEnable);
    show(kSerialControls, serial);
    show(kDateControls, date);
    show(kPositions, serial && date);
    applyCustomVisibility();
    show(kPreviewControls, serial || date);
}

void COvalineSerialPropPage::applyCustomVisibility() {
    show(kCustomControls, dialog().isChecked(kDateEnable) && isCustomSelected());
}

void COvalineSerialPropPage::applyTypeRule() {
    dialog().setDigitsOnly(kStart, dialog().selection(kType) == Numerical);
}

void COvalineSerialPropPage::applyDigitRule() {
    const int digits = dialog().selection(kDigitCount);
    if (digits == kNoItem) return;
    const std::u16string start = dialog().text(kStart);
    const auto most = static_cast<std::size_t>(digits);
    if (digits > 0 && start.size() > most) dialog().setText(kStart, start.substr(0, most));
    dialog().setTextLimit(kStart, digits);
}

void COvalineSerialPropPage::refreshPreview() {
    dialog().setText(kPreview, {});
    if (dialog().selection(kFormat) == kNoItem) dialog().select(kFormat, 0);
    if (isCustomSelected()) customPattern_ = dialog().text(kCustomPattern).substr(0, kMostCustomPattern);
    const std::u16string pattern = isCustomSelected()
                                       ? customPattern_
                                       : string(static_cast<std::uint32_t>(Format00 + dialog().selection(kFormat)));
    dialog().setText(kPreview,
                     ComposeMarkingText(dialog().text(kPrefix), dialog().text(kStart), dialog().text(kSuffix),
                                        dialog().selection(kDigitCount), pattern, position(), dialog().selection(kType),
                                        dialog().isChecked(kSerialEnable), dialog().isChecked(kDateEnable),
                                        wholeNumber(dialog().text(kDateOffset)), *services().clock));
    testDirty();
}

void COvalineSerialPropPage::testDirty() {
    setDirty(dialog().text(kPreview) != reference_ || dialog().number(kIncrement) != remembered_.increment ||
             dialog().isChecked(kSerialEnable) != remembered_.serialOn ||
             dialog().isChecked(kDateEnable) != remembered_.dateOn || dialog().selection(kType) != remembered_.type);
}

bool COvalineSerialPropPage::isAnyEnabled() const {
    return dialog().isChecked(kSerialEnable) || dialog().isChecked(kDateEnable);
}

bool COvalineSerialPropPage::isCustomSelected() const {
    return dialog().selection(kFormat) == kCustomFormatItem;
}

std::int32_t COvalineSerialPropPage::position() const {
    const auto checked = std::ranges::find_if(kPositions, [this](int id) { return dialog().isChecked(id); });
    return checked == kPositions.end() ? kNoPosition : *checked;
}

}  // namespace ovaline
