// The serial number and AutoDate page on a control with numbers and dates.
#pragma once

#include "pages/ovaline_serial_prop_page.h"
#include "tests/pages/page_fixture.h"

namespace ovaline {

class SerialPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        put(kBoth, u"");
    }

    static inline const SerialSettings kBoth = {.serialOn = true,
                                                .type = Numerical,
                                                .prefix = u"SN-",
                                                .start = u"42",
                                                .suffix = u"/A",
                                                .increment = 1,
                                                .dateOffset = 0,
                                                .digitCount = 4,
                                                .dateOn = true,
                                                .dateFormat = Format13,
                                                .datePosition = After_Suffix};
    static SerialSettings with(auto change) {
        SerialSettings settings = kBoth;
        change(settings);
        return settings;
    }

    /// Puts the settings and forgets what the container was told.
    void put(const SerialSettings& to, std::u16string_view customPattern) {
        control->SetUpdateFlag(0);
        control->put_SerialNumEnable(to.serialOn ? VARIANT_TRUE : VARIANT_FALSE);
        control->put_SerialNumberType(static_cast<_sernumtypes>(to.type));
        control->put_SerialNumPrefix(Text(to.prefix));
        control->put_SerNumStart(Text(to.start));
        control->put_SerNumSuffix(Text(to.suffix));
        control->put_SerNumIncrement(to.increment);
        control->put_AutoDateOffset(to.dateOffset);
        control->put_SerNumDecimalPlaces(static_cast<_sernumdigits>(to.digitCount));
        control->put_AutoDateEnable(to.dateOn ? VARIANT_TRUE : VARIANT_FALSE);
        control->put_AutoDateFormat(static_cast<_autodateformat>(to.dateFormat));
        control->put_AutoDatePosition(static_cast<_autodatepos>(to.datePosition));
        control->put_CustomAutoText(Text(customPattern));
        control->SetUpdateFlag(1);
        container.events.clear();
    }

    void open(IUnknown* object = nullptr) { openPage<COvalineSerialPropPage>(object); }
    std::u16string preview() const { return textOf(263); }

    /// What is to be seen is what the two boxes and the format list say.
    void expectVisibility() const {
        const bool serial = isChecked(241), date = isChecked(255);
        const std::pair<std::vector<int>, bool> sets[] = {
            {{241, 255}, true},
            {{242, 243, 251, 244, 249, 252, 245, 253, 247, 254, 248, 250, 246}, serial},
            {{256, 257, 264, 265}, date},
            {{258, 259, 260, 261}, serial && date},
            {{206, 205, 274, 273}, date && selected(257) == 16},
            {{262, 263}, serial || date},
        };
        std::size_t count = 0;
        for (const auto& [ids, visible] : sets) {
            for (const int id : ids) EXPECT_EQ(state(id).visible, visible) << id;
            count += ids.size();
        }
        EXPECT_EQ(frame->controls().size(), count);
    }
};

}  // namespace ovaline
