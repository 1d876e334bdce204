#include "host/json_values.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <nlohmann/json.hpp>
#include <optional>

#include "host/decimal.h"
#include "host/failure.h"
#include "host/suggestion.h"

namespace ovaline::host {

namespace {

[[noreturn]] void refuse(std::string_view what, const std::string& expected) {
    throw Failure(std::string(what) + " takes " + expected);
}

/// The integer that a JSON number is; no value for fractions and for what 64 bits cannot hold.
std::optional<std::int64_t> integerOf(const Json& value) {
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) return std::nullopt;
        return static_cast<std::int64_t>(number);
    }
    if (value.is_number_integer()) return value.get<std::int64_t>();
    if (!value.is_number_float()) return std::nullopt;
    constexpr double kExactIntegers = 9007199254740992.0;  // 2^53
    const double number = value.get<double>();
    if (std::trunc(number) != number || std::abs(number) > kExactIntegers) return std::nullopt;
    return static_cast<std::int64_t>(number);
}

float singleOf(const Json& value, std::string_view what) {
    if (value.is_number()) return static_cast<float>(value.get<double>());
    if (value == "NaN") return std::numeric_limits<float>::quiet_NaN();
    if (value == "Infinity") return std::numeric_limits<float>::infinity();
    if (value == "-Infinity") return -std::numeric_limits<float>::infinity();
    refuse(what, "a number");
}

std::int32_t enumerationValue(const Json& value, const Enumeration& enumeration, std::string_view what) {
    constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    const std::optional<std::int64_t> number = integerOf(value);
    if (number && *number >= kLeast && *number <= kMost) return static_cast<std::int32_t>(*number);
    std::vector<std::string_view> names;
    for (const EnumValue& known : enumeration.values) {
        if (value == known.name) return known.value;
        names.push_back(known.name);
    }
    std::string expected = "one of";
    for (const std::string_view name : names) expected += (name == names.front() ? " " : ", ") + std::string(name);
    expected += " or its number";
    if (value.is_string()) expected += suggestion(value.get_ref<const std::string&>(), names);
    refuse(what, expected);
}

}  // namespace

Arguments::~Arguments() {
    for (VARIANT& value : values_) VariantClear(&value);
}

std::string_view typeName(const ValueType& type) {
    if (type.enumeration) return type.enumeration->name;
    switch (type.vt) {
        case VT_BSTR:
            return "BSTR";
        case VT_R4:
            return "R4";
        case VT_BOOL:
            return "BOOL";
        case VT_I4:
            return "I4";
        case VT_UI2:
            return "UI2";
        case VT_UI4:
            return "UI4";
        default:
            return "VARIANT";
    }
}

std::int64_t wholeNumber(const Json& value, std::int64_t least, std::int64_t most, std::string_view what) {
    const std::optional<std::int64_t> number = integerOf(value);
    if (number && *number >= least && *number <= most) return *number;
    refuse(what, "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
}

void store(const Json& value, const ValueType& type, std::string_view what, VARIANT& target) {
    const auto integer = [&]<typename Integer>(Integer& field) {
        using Limits = std::numeric_limits<Integer>;
        field = static_cast<Integer>(wholeNumber(value, Limits::min(), Limits::max(), what));
    };
    VARIANT converted{};
    converted.vt = type.vt;
    switch (type.vt) {
        case VT_BSTR:
            if (!value.is_string()) refuse(what, "a text");
            converted.bstrVal = platform::makeBstr(textOf(value));
            if (!converted.bstrVal) throw std::bad_alloc();
            break;
        case VT_R4:
            converted.fltVal = singleOf(value, what);
            break;
        case VT_BOOL:
            if (value.is_boolean())
                converted.boolVal = value.get<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
            else if (value.is_number())
                integer(converted.boolVal);
            else
                refuse(what, "true, false or a 16-bit number");
            break;
        case VT_UI2:
            integer(converted.uiVal);
            break;
        case VT_UI4:
            integer(converted.ulVal);
            break;
        case VT_I4:
            if (type.enumeration)
                converted.lVal = enumerationValue(value, *type.enumeration, what);
            else
                integer(converted.lVal);
            break;
        default:
            refuse(what, "a buffer");
    }
    target = converted;
}

void storeText(std::string_view utf8, const ValueType& type, std::string_view what, VARIANT& target) {
    const Json text = jsonOf(utf8);
    if (type.vt == VT_BSTR) return store(text, type, what, target);
    // What is no JSON number or flag stays a text: the name of a value, or something that `store` refuses.
    Json value = Json::parse(utf8, nullptr, false);
    if (value.is_discarded() || value.is_structured() || value.is_null() || value.is_string()) value = text;
    store(value, type, what, target);
}

void appendValue(std::string& out, const VARIANT& value) {
    switch (value.vt) {
        case VT_BSTR:
            return appendJsonText(out, platform::textOf(value.bstrVal));
        case VT_R4:
            return appendSingle(out, value.fltVal);
        case VT_BOOL:
            out += std::to_string(value.boolVal);
            return;
        case VT_UI2:
            out += std::to_string(value.uiVal);
            return;
        case VT_UI4:
            out += std::to_string(value.ulVal);
            return;
        default:
            out += std::to_string(value.lVal);
    }
}

}  // namespace ovaline::host
