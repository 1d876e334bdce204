#include "pages/serial_settings.h"

#include "pages/owned_text.h"

namespace ovaline {

namespace {

template <typename Value>
using Getter = HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*)(Value*);
template <typename Value>
using Putter = HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*)(Value);

template <typename Value>
Value valueOf(INorvel_OvalineCtrl& control, Getter<Value> get) {
    Value value{};
    (control.*get)(&value);
    return value;
}

std::u16string textOf(INorvel_OvalineCtrl& control, Getter<BSTR> get) {
    OwnedText text;
    (control.*get)(text.put());
    return platform::textOf(text.get());
}

/// Puts what has changed and remembers it.
class Differences {
public:
    explicit Differences(INorvel_OvalineCtrl& control) : control_(control) {}

    /// Flags travel as 1 or 0.
    void write(Putter<VARIANT_BOOL> put, bool wanted, bool& remembered) {
        if (wanted == remembered) return;
        remembered = wanted;
        (control_.*put)(wanted ? 1 : 0);
    }
    template <typename Value>
    void write(Putter<Value> put, std::int32_t wanted, std::int32_t& remembered) {
        if (wanted == remembered) return;
        remembered = wanted;
        (control_.*put)(static_cast<Value>(wanted));
    }
    void write(Putter<BSTR> put, const std::u16string& wanted, std::u16string& remembered) {
        if (wanted == remembered) return;
        const OwnedText text(wanted);
        remembered = wanted;
        (control_.*put)(text.get());
    }

private:
    INorvel_OvalineCtrl& control_;
};

}  // namespace

SerialSettings readSerialSettings(INorvel_OvalineCtrl& control) {
    using Control = INorvel_OvalineCtrl;
    return {.serialOn = valueOf(control, &Control::get_SerialNumEnable) != 0,
            .type = valueOf(control, &Control::get_SerialNumberType),
            .prefix = textOf(control, &Control::get_SerialNumPrefix),
            .start = textOf(control, &Control::get_SerNumStart),
            .suffix = textOf(control, &Control::get_SerNumSuffix),
            .increment = valueOf(control, &Control::get_SerNumIncrement),
            .dateOffset = valueOf(control, &Control::get_AutoDateOffset),
            .digitCount = valueOf(control, &Control::get_SerNumDecimalPlaces),
            .dateOn = valueOf(control, &Control::get_AutoDateEnable) != 0,
            .dateFormat = valueOf(control, &Control::get_AutoDateFormat),
            .datePosition = valueOf(control, &Control::get_AutoDatePosition)};
}

void writeDifferences(INorvel_OvalineCtrl& control, const SerialSettings& wanted, SerialSettings& remembered) {
    using Control = INorvel_OvalineCtrl;
    Differences differences(control);
    differences.write(&Control::put_SerialNumEnable, wanted.serialOn, remembered.serialOn);
    differences.write(&Control::put_SerialNumberType, wanted.type, remembered.type);
    differences.write(&Control::put_SerialNumPrefix, wanted.prefix, remembered.prefix);
    differences.write(&Control::put_SerNumStart, wanted.start, remembered.start);
    differences.write(&Control::put_SerNumSuffix, wanted.suffix, remembered.suffix);
    differences.write(&Control::put_SerNumIncrement, wanted.increment, remembered.increment);
    differences.write(&Control::put_AutoDateOffset, wanted.dateOffset, remembered.dateOffset);
    differences.write(&Control::put_SerNumDecimalPlaces, wanted.digitCount, remembered.digitCount);
    differences.write(&Control::put_AutoDateEnable, wanted.dateOn, remembered.dateOn);
    differences.write(&Control::put_AutoDateFormat, wanted.dateFormat, remembered.dateFormat);
    differences.write(&Control::put_AutoDatePosition, wanted.datePosition, remembered.datePosition);
}

std::u16string readCustomPattern(INorvel_OvalineCtrl& control) {
    return textOf(control, &INorvel_OvalineCtrl::get_CustomAutoText);
}

void writeCustomPattern(INorvel_OvalineCtrl& control, std::u16string_view pattern) {
    control.put_CustomAutoText(OwnedText(pattern).get());
}

}  // namespace ovaline
