#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "platform/com.h"

namespace {

using ovaline::platform::makeBstr;
using ovaline::platform::textOf;

/// A number on its way from one type to another. Every integer type of a VARIANT fits `long double` exactly.
using Number = long double;

struct Source {
    HRESULT status = S_OK;
    Number number = 0;
    bool isText = false;
    bool isFlag = false;
    std::u16string text;
};

/// The decimal number that is all of `text` but surrounding spaces.
std::optional<Number> parseNumber(const std::u16string& text) {
    std::string ascii;
    for (const char16_t unit : text) {
        if (unit > 0x7E) return std::nullopt;
        ascii.push_back(static_cast<char>(unit));
    }
    const std::size_t first = ascii.find_first_not_of(" \t");
    if (first == std::string::npos) return std::nullopt;
    const std::size_t last = ascii.find_last_not_of(" \t");
    const char* begin = ascii.data() + first;
    const char* end = ascii.data() + last + 1;
    if (*begin == '+' && end - begin > 1 && begin[1] != '-') ++begin;
    double value = 0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

/// The value behind a reference. A reference to a VARIANT is followed once, as published: it never leads to another.
VARIANT dereferenced(const VARIANT& given) {
    const bool indirect = given.vt == (VT_BYREF | VT_VARIANT);
    if (indirect && !given.pvarVal) return VARIANT{};
    const VARIANT& variant = indirect ? *given.pvarVal : given;
    if (!(variant.vt & VT_BYREF)) return variant;
    VARIANT value{};
    value.vt = variant.vt & VT_TYPEMASK;
    if (!variant.byref) return VARIANT{};
    switch (value.vt) {
        case VT_I1:
        case VT_UI1:
            value.bVal = *variant.pbVal;
            break;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            value.iVal = *variant.piVal;
            break;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            value.lVal = *variant.plVal;
            break;
        case VT_BSTR:
            value.bstrVal = *variant.pbstrVal;
            break;
        default:
            std::memcpy(&value.llVal, variant.byref, sizeof value.llVal);
    }
    return value;
}

Source readSource(const VARIANT& given) {
    const VARIANT variant = dereferenced(given);
    const auto number = [](Number value) { return Source{S_OK, value, false, false, {}}; };
    switch (variant.vt) {
        case VT_EMPTY:
            return number(0);
        case VT_I1:
            return number(variant.cVal);
        case VT_UI1:
            return number(variant.bVal);
        case VT_I2:
            return number(variant.iVal);
        case VT_UI2:
            return number(variant.uiVal);
        case VT_I4:
        case VT_INT:
            return number(variant.lVal);
        case VT_UI4:
        case VT_UINT:
            return number(variant.ulVal);
        case VT_I8:
            return number(variant.llVal);
        case VT_UI8:
            return number(static_cast<Number>(variant.ullVal));
        case VT_R4:
            return number(variant.fltVal);
        case VT_R8:
        case VT_DATE:
            return number(variant.dblVal);
        case VT_BOOL: {
            Source flag = number(variant.boolVal);
            flag.isFlag = true;
            return flag;
        }
        case VT_BSTR: {
            Source text;
            text.isText = true;
            text.text = textOf(variant.bstrVal);
            return text;
        }
        default:
            return Source{DISP_E_TYPEMISMATCH, 0, false, false, {}};
    }
}

/// Nearest integer, halves to even; no value outside the type.
template <typename Integer>
std::optional<Integer> rounded(Number value) {
    const Number nearest = std::nearbyint(value);
    if (!(nearest >= static_cast<Number>(std::numeric_limits<Integer>::min()) &&
          nearest <= static_cast<Number>(std::numeric_limits<Integer>::max())))
        return std::nullopt;
    return static_cast<Integer>(nearest);
}

template <typename Integer>
HRESULT storeInteger(Number value, Integer& field) {
    const std::optional<Integer> integer = rounded<Integer>(value);
    if (!integer) return DISP_E_OVERFLOW;
    field = *integer;
    return S_OK;
}

HRESULT storeText(const Source& source, VARIANT& result, VARTYPE sourceType) {
    std::u16string text = source.text;
    if (source.isFlag) {
        text = source.number != 0 ? u"True" : u"False";
    } else if (!source.isText && sourceType != VT_EMPTY) {
        char digits[64];
        const auto end = sourceType == VT_R4
                             ? std::to_chars(digits, digits + sizeof digits, static_cast<float>(source.number)).ptr
                             : std::to_chars(digits, digits + sizeof digits, static_cast<double>(source.number)).ptr;
        text.assign(digits, end);
    }
    result.bstrVal = makeBstr(text);
    return result.bstrVal ? S_OK : E_OUTOFMEMORY;
}

HRESULT convert(const Source& source, VARTYPE sourceType, VARTYPE type, VARIANT& result) {
    result.vt = type;
    if (type == VT_BSTR) return storeText(source, result, sourceType);
    Number value = source.number;
    if (source.isText) {
        if (type == VT_BOOL && (source.text == u"True" || source.text == u"False")) {
            result.boolVal = source.text == u"True" ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        }
        const std::optional<Number> parsed = parseNumber(source.text);
        if (!parsed) return DISP_E_TYPEMISMATCH;
        value = *parsed;
    }
    switch (type) {
        case VT_BOOL:
            result.boolVal = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        case VT_UI1:
            return storeInteger(value, result.bVal);
        case VT_I2:
            return storeInteger(value, result.iVal);
        case VT_UI2:
            return storeInteger(value, result.uiVal);
        case VT_I4:
        case VT_INT:
            return storeInteger(value, result.lVal);
        case VT_UI4:
        case VT_UINT:
            return storeInteger(value, result.ulVal);
        case VT_R4: {
            // A finite number that single precision cannot hold is an overflow; an infinity or NaN passes as it is.
            const float single = static_cast<float>(value);
            if (std::isinf(single) && std::isfinite(value)) return DISP_E_OVERFLOW;
            result.fltVal = single;
            return S_OK;
        }
        case VT_R8:
            result.dblVal = static_cast<double>(value);
            return S_OK;
        default:
            return DISP_E_BADVARTYPE;
    }
}

}  // namespace

void VariantInit(VARIANT* variant) {
    *variant = VARIANT{};
}

HRESULT VariantClear(VARIANT* variant) {
    if (variant->vt == VT_BSTR) SysFreeString(variant->bstrVal);
    if ((variant->vt == VT_DISPATCH || variant->vt == VT_UNKNOWN) && variant->punkVal) variant->punkVal->Release();
    *variant = VARIANT{};
    return S_OK;
}

HRESULT VariantChangeType(VARIANT* target, const VARIANT* source, USHORT, VARTYPE type) {
    const Source from = readSource(*source);
    if (FAILED(from.status)) return from.status;
    VARIANT result{};
    const HRESULT hr = convert(from, dereferenced(*source).vt, type, result);
    if (FAILED(hr)) return hr;
    VariantClear(target);
    *target = result;
    return S_OK;
}
