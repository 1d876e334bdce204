// The gets and puts. Puts store what they are given; those that change the result rebuild it while updates are on.
#include <algorithm>

#include "control/store.h"
#include "output/units.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

constexpr std::int32_t kLowestFontHeight = 100;     // µm
constexpr std::int32_t kHighestFontHeight = 50800;  // µm, 144 points
constexpr std::int32_t kFinestFlatness = 1;         // µm
constexpr std::int32_t kCoarsestFlatness = 2540;    // µm
constexpr LONG kMostCopies = 255;

float storedLength(FLOAT value, const TextSettings& settings) {
    return static_cast<float>(toInternalUnits(value, settings.Measurement));
}

FLOAT shownLength(float stored, const TextSettings& settings) {
    return toUserUnits(truncateToInt32(stored), settings.Measurement);
}

}  // namespace

// One macro a kind of property: the type at the interface, how it is stored and how it is shown.

#define ACCESSORS(name, type, shown, stored)                            \
    HRESULT CNorvel_OvalineCtrl::get_##name(type* value) {              \
        *value = shown;                                                 \
        return S_OK;                                                    \
    }                                                                   \
    HRESULT CNorvel_OvalineCtrl::put_##name(type value) {               \
        return storeAndUpdate([&](TextSettings& settings) { stored; }); \
    }

#define VALUE_PROPERTY(name, type) ACCESSORS(name, type, settings_.name, settings.name = value)
#define ENUMERATION_PROPERTY(name, type) ACCESSORS(name, type, static_cast<type>(settings_.name), settings.name = value)
#define LENGTH_PROPERTY(name) \
    ACCESSORS(name, FLOAT, shownLength(settings_.name, settings_), settings.name = storedLength(value, settings))
// Held as 32 bits, sign-extended, so that a flip is the bitwise complement.
#define WIDE_FLAG_PROPERTY(name) \
    ACCESSORS(name, VARIANT_BOOL, static_cast<VARIANT_BOOL>(settings_.name), settings.name = value)
#define TEXT_PROPERTY(name)                                                                              \
    HRESULT CNorvel_OvalineCtrl::get_##name(BSTR* value) {                                               \
        *value = platform::makeBstr(settings_.name);                                                     \
        return *value ? S_OK : E_OUTOFMEMORY;                                                            \
    }                                                                                                    \
    HRESULT CNorvel_OvalineCtrl::put_##name(BSTR value) {                                                \
        return storeAndUpdate([&](TextSettings& settings) { settings.name = platform::textOf(value); }); \
    }
#define COPIES_PROPERTY(name)                                                          \
    HRESULT CNorvel_OvalineCtrl::get_##name(LONG* value) {                             \
        *value = settings_.name;                                                       \
        return S_OK;                                                                   \
    }                                                                                  \
    HRESULT CNorvel_OvalineCtrl::put_##name(LONG value) {                              \
        if (value < 1 || value > kMostCopies) return S_FALSE;                          \
        return storeAndUpdate([&](TextSettings& settings) { settings.name = value; }); \
    }

VALUE_PROPERTY(FontBold, VARIANT_BOOL)
VALUE_PROPERTY(FontItalic, VARIANT_BOOL)
VALUE_PROPERTY(FontUnderline, VARIANT_BOOL)
VALUE_PROPERTY(FontStrikeout, VARIANT_BOOL)
VALUE_PROPERTY(StartAngle, FLOAT)
VALUE_PROPERTY(Angle, FLOAT)
VALUE_PROPERTY(FillLineAngle, FLOAT)
VALUE_PROPERTY(FillCrossAngle, FLOAT)
VALUE_PROPERTY(SerialNumEnable, VARIANT_BOOL)
VALUE_PROPERTY(AutoDateEnable, VARIANT_BOOL)
VALUE_PROPERTY(AutoDateOffset, INT)

ENUMERATION_PROPERTY(SerialDirection, _serialdirection)
ENUMERATION_PROPERTY(TextDirection, _txtdirection)
ENUMERATION_PROPERTY(PathType, _pathtype)
ENUMERATION_PROPERTY(ShowAxes, _axesstyle)
ENUMERATION_PROPERTY(FillStyle, _fillstyle)
ENUMERATION_PROPERTY(OutlineType, _outlinestyle)
ENUMERATION_PROPERTY(SerNumDecimalPlaces, _sernumdigits)
ENUMERATION_PROPERTY(SerialNumberType, _sernumtypes)
ENUMERATION_PROPERTY(AutoDatePosition, _autodatepos)
ENUMERATION_PROPERTY(AutoDateFormat, _autodateformat)

LENGTH_PROPERTY(Width)
LENGTH_PROPERTY(Height)
LENGTH_PROPERTY(CharSpace)
LENGTH_PROPERTY(FillLineWidth)
LENGTH_PROPERTY(FillDistance)
LENGTH_PROPERTY(TextOutline)
LENGTH_PROPERTY(ArrayXOffset)
LENGTH_PROPERTY(ArrayYOffset)

WIDE_FLAG_PROPERTY(Invert)
WIDE_FLAG_PROPERTY(MirrorHorizontal)
WIDE_FLAG_PROPERTY(MirrorVertical)
WIDE_FLAG_PROPERTY(SpareFlag)

TEXT_PROPERTY(TextData)
TEXT_PROPERTY(SerialNumPrefix)
TEXT_PROPERTY(SerNumStart)
TEXT_PROPERTY(SerNumSuffix)
TEXT_PROPERTY(CustomAutoText)

COPIES_PROPERTY(ArrayXDimension)
COPIES_PROPERTY(ArrayYDimension)

ACCESSORS(FontStyle, _txtfontstyle, static_cast<_txtfontstyle>(settings_.FontStyle), setFontStyle(settings, value))

HRESULT CNorvel_OvalineCtrl::get_FontName(BSTR* value) {
    *value = platform::makeBstr(settings_.FontName);
    return *value ? S_OK : E_OUTOFMEMORY;
}

HRESULT CNorvel_OvalineCtrl::put_FontName(BSTR value) {
    return storeAndUpdate([&](TextSettings& settings) { setFontName(settings, platform::textOf(value)); });
}

HRESULT CNorvel_OvalineCtrl::get_FontHeight(FLOAT* value) {
    *value = settings_.DisplayInPoint != 0 ? micrometresToPoints(settings_.FontHeight)
                                           : toUserUnits(settings_.FontHeight, settings_.Measurement);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::put_FontHeight(FLOAT value) {
    return storeAndUpdate([&](TextSettings& settings) {
        const std::int32_t height =
            settings.DisplayInPoint != 0 ? pointsToMicrometres(value) : toInternalUnits(value, settings.Measurement);
        settings.FontHeight = std::clamp(height, kLowestFontHeight, kHighestFontHeight);
    });
}

HRESULT CNorvel_OvalineCtrl::get_Flatness(FLOAT* value) {
    *value = shownLength(settings_.Flatness, settings_);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::put_Flatness(FLOAT value) {
    return storeAndUpdate([&](TextSettings& settings) {
        const std::int32_t flatness = toInternalUnits(value, settings.Measurement);
        settings.Flatness = static_cast<float>(std::clamp(flatness, kFinestFlatness, kCoarsestFlatness));
    });
}

// These two are stored and never rebuild: the increment counts from the next regeneration on.

HRESULT CNorvel_OvalineCtrl::get_SerNumIncrement(LONG* value) {
    *value = settings_.SerNumIncrement;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::put_SerNumIncrement(LONG value) {
    return storeOnly([&](TextSettings& settings) { settings.SerNumIncrement = value; });
}

HRESULT CNorvel_OvalineCtrl::get_DatabaseField(BSTR* value) {
    *value = platform::makeBstr(settings_.DatabaseField);
    return *value ? S_OK : E_OUTOFMEMORY;
}

HRESULT CNorvel_OvalineCtrl::put_DatabaseField(BSTR value) {
    return storeOnly([&](TextSettings& settings) { settings.DatabaseField = platform::textOf(value); });
}

}  // namespace ovaline
