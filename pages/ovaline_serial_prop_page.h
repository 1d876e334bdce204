// COvalineSerialPropPage: the page of the serial number and AutoDate settings.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "pages/property_page.h"
#include "pages/serial_settings.h"

namespace ovaline {

/// Shows, after every change, the text that the settings compose today. What a person changes is put to the control at
/// Apply alone: the settings that differ, as one batch with one regeneration.
class COvalineSerialPropPage final : public PropertyPage {
public:
    /// Holds one reference for the caller. May throw std::bad_alloc.
    static COvalineSerialPropPage* create(const PageServices& services);

private:
    explicit COvalineSerialPropPage(const PageServices& services);
    ~COvalineSerialPropPage() = default;

    void load() override;
    void store() override;
    void textChanged(int id) override;
    void selectionChanged(int id) override;
    void clicked(int id) override;
    void doubleClicked(int id) override;

    void showSettings(INorvel_OvalineCtrl& control);
    /// Of what was loaded, whatever the enable boxes say.
    void buildReference();
    SerialSettings settingsOfDialog() const;

    void serialEnableClicked();
    void dateEnableClicked();

    void show(std::span<const int> ids, bool visible);
    void applyVisibility();
    void applyCustomVisibility();
    void applyTypeRule();
    void applyDigitRule();

    void refreshPreview();
    /// Whether anything has changed since the settings were loaded, as far as the page's state goes.
    void testDirty();

    bool isAnyEnabled() const;
    bool isCustomSelected() const;
    /// The position of the first checked radio button, -1 where none is checked.
    std::int32_t position() const;

    bool loaded_ = false;       // until it is set, the dialog's reports refresh nothing
    bool isOfControl_ = false;  // what was loaded came from a control
    std::u16string customPattern_;
    SerialSettings remembered_;     // as last loaded from the control or written to it
    std::u16string loadedPattern_;  // the control's own pattern, however long, at loading
    std::u16string reference_;      // the composed text at loading, with which the preview is compared
};

}  // namespace ovaline
