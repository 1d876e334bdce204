// CNorvel_OvalinePropPage: the page of the text, the font, the ellipse, the outline and the fill.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>

#include "pages/property_page.h"
#include "pages/text_edits.h"
#include "pages/text_page_settings.h"
#include "pages/text_preview.h"
#include "platform/resource_ids.h"

namespace ovaline {

/// Edits a copy of the control's settings, of which it shows a preview, and writes them all back at Apply. It is dirty
/// as soon as it has opened.
class CNorvel_OvalinePropPage final : public PropertyPage {
public:
    /// Holds one reference for the caller. May throw std::bad_alloc.
    static CNorvel_OvalinePropPage* create(const PageServices& services);

private:
    explicit CNorvel_OvalinePropPage(const PageServices& services);
    ~CNorvel_OvalinePropPage() = default;

    void load() override;
    void store() override;
    void textChanged(int id) override;
    void selectionChanged(int id) override;
    void clicked(int id) override;
    void spun(int id, int delta) override;
    void paint(int id, HDC dc, const RECT& area) override;

    // Filling the dialog.
    void setSpinRanges();
    void fillList(int id, const platform::StringRange& strings);
    void showSettings();
    void fillFontList();
    /// Selects the font in its list and takes it, and shows its flags and size.
    void showFont();

    // What a person changed.
    void takeText();
    void takeNumber(const TextEdit& edit);
    void takeFontSize();
    void takeFont();
    void takeFontStyle();
    void takeFillStyle();
    void takeOutlineStyle();
    void takeFlag(int box);
    /// The page becomes dirty with a new value, and clean with the one that it has.
    template <typename Value>
    void takeField(std::size_t field, Value value);
    /// The page becomes dirty, whatever the value was before.
    void changed();

    FontSizeLimits fontSizeLimits() const;
    int decimals(bool angle) const;

    TextPageSettings settings_;
    bool loaded_ = false;                    // settings_ came from a control
    bool initialised_ = false;               // the dialog is filled; until then its reports of numbers are no changes
    std::map<std::int32_t, int> fontItems_;  // by font style: the item of the font list that was chosen last
    TextPreview preview_;
};

}  // namespace ovaline
