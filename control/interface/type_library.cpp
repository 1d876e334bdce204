#include "control/interface/type_library.h"

#include <algorithm>
#include <tuple>
#include <type_traits>
#include <utility>

namespace ovaline {

namespace {

#define VALUE(name) \
    EnumValue {     \
#name, name \
    }
constexpr EnumValue kSerialDirection[] = {VALUE(Across), VALUE(Down)};
constexpr EnumValue kFontStyle[] = {VALUE(TrueType), VALUE(SingleStroke)};
constexpr EnumValue kTextDirection[] = {VALUE(Clockwise), VALUE(CounterClockwise)};
constexpr EnumValue kPathType[] = {VALUE(Center), VALUE(Baseline), VALUE(Descender), VALUE(Ascender)};
constexpr EnumValue kAxesStyle[] = {VALUE(FullAxes), VALUE(PartialAxes), VALUE(NoAxesFull), VALUE(NoAxesPartial)};
constexpr EnumValue kFillStyle[] = {VALUE(NoFilling), VALUE(Solid), VALUE(Line), VALUE(Cross)};
constexpr EnumValue kOutlineStyle[] = {VALUE(NoOutline), VALUE(SolidLine), VALUE(Dash),
                                       VALUE(Dots),      VALUE(DashDot),   VALUE(DashDotDot)};
constexpr EnumValue kDigits[] = {VALUE(None),   VALUE(One),      VALUE(Two),      VALUE(Three),
                                 VALUE(Four),   VALUE(Five),     VALUE(Six),      VALUE(Seven),
                                 VALUE(Eight),  VALUE(Nine),     VALUE(Ten),      VALUE(Eleven),
                                 VALUE(Twelve), VALUE(Thirteen), VALUE(Fourteen), VALUE(Fifteen)};
constexpr EnumValue kSerialTypes[] = {VALUE(Numerical), VALUE(Alphanumeric)};
constexpr EnumValue kDatePositions[] = {VALUE(BeforePrefix), VALUE(After_Prefix), VALUE(BeforeSuffix),
                                        VALUE(After_Suffix)};
constexpr EnumValue kDateFormats[] = {
    VALUE(Format00), VALUE(Format01), VALUE(Format02), VALUE(Format03), VALUE(Format04), VALUE(Format05),
    VALUE(Format06), VALUE(Format07), VALUE(Format08), VALUE(Format09), VALUE(Format10), VALUE(Format11),
    VALUE(Format12), VALUE(Format13), VALUE(Format14), VALUE(Format15), VALUE(Custom)};
#undef VALUE

// In the order of EnumerationTypes below.
constexpr Enumeration kEnumerations[] = {
    {"_serialdirection", kSerialDirection},
    {"_txtfontstyle", kFontStyle},
    {"_txtdirection", kTextDirection},
    {"_pathtype", kPathType},
    {"_axesstyle", kAxesStyle},
    {"_fillstyle", kFillStyle},
    {"_outlinestyle", kOutlineStyle},
    {"_sernumdigits", kDigits},
    {"_sernumtypes", kSerialTypes},
    {"_autodatepos", kDatePositions},
    {"_autodateformat", kDateFormats},
};
using EnumerationTypes = std::tuple<_serialdirection, _txtfontstyle, _txtdirection, _pathtype, _axesstyle, _fillstyle,
                                    _outlinestyle, _sernumdigits, _sernumtypes, _autodatepos, _autodateformat>;

template <typename Type, std::size_t I = 0>
constexpr const Enumeration* enumerationOf() {
    if constexpr (std::is_same_v<Type, std::tuple_element_t<I, EnumerationTypes>>)
        return &kEnumerations[I];
    else
        return enumerationOf<Type, I + 1>();
}

// One specialisation a type: its tag and the VARIANT field that carries it.
template <typename Type>
struct Carrier;
template <>
struct Carrier<BSTR> {
    static constexpr VARTYPE vt = VT_BSTR;
    static BSTR& in(VARIANT& v) { return v.bstrVal; }
};
template <>
struct Carrier<FLOAT> {
    static constexpr VARTYPE vt = VT_R4;
    static FLOAT& in(VARIANT& v) { return v.fltVal; }
};
template <>
struct Carrier<VARIANT_BOOL> {
    static constexpr VARTYPE vt = VT_BOOL;
    static VARIANT_BOOL& in(VARIANT& v) { return v.boolVal; }
};
template <>
struct Carrier<USHORT> {
    static constexpr VARTYPE vt = VT_UI2;
    static USHORT& in(VARIANT& v) { return v.uiVal; }
};
template <>
struct Carrier<LONG> {
    static constexpr VARTYPE vt = VT_I4;
    static LONG& in(VARIANT& v) { return v.lVal; }
};
template <typename Integer>
requires(std::is_same_v<Integer, INT> && !std::is_same_v<INT, LONG>) struct Carrier<Integer> {
    static constexpr VARTYPE vt = VT_I4;
    static INT& in(VARIANT& v) { return v.intVal; }
};
template <>
struct Carrier<ULONG> {
    static constexpr VARTYPE vt = VT_UI4;
    static ULONG& in(VARIANT& v) { return v.ulVal; }
};
template <>
struct Carrier<VARIANT> {
    static constexpr VARTYPE vt = VT_VARIANT;
    static VARIANT& in(VARIANT& v) { return v; }
};

template <typename Type>
constexpr ValueType valueType() {
    if constexpr (std::is_enum_v<Type>)
        return {VT_I4, false, enumerationOf<Type>()};
    else if constexpr (std::is_pointer_v<Type> && !std::is_same_v<Type, BSTR>) {
        ValueType type = valueType<std::remove_pointer_t<Type>>();
        type.out = true;
        return type;
    } else
        return {Carrier<Type>::vt, false, nullptr};
}

/// One argument on its way into a slot: the value itself, or a place for what the slot writes.
template <typename Type>
class Passed {
public:
    explicit Passed(VARIANT& carrier) : carrier_(carrier) {}
    Type argument() {
        if constexpr (std::is_enum_v<Type>)
            return static_cast<Type>(carrier_.lVal);
        else
            return Carrier<Type>::in(carrier_);
    }
    void store() {}

private:
    VARIANT& carrier_;
};

template <typename Type>
requires(!std::is_same_v<Type*, BSTR>) class Passed<Type*> {
public:
    explicit Passed(VARIANT& carrier) : carrier_(carrier) {}
    Type* argument() { return &value_; }
    void store() {
        carrier_.vt = valueType<Type>().vt;
        if constexpr (std::is_enum_v<Type>)
            carrier_.lVal = value_;
        else
            Carrier<Type>::in(carrier_) = value_;
    }

private:
    VARIANT& carrier_;
    Type value_{};
};

template <auto Slot>
struct Thunk;
template <typename Interface, typename... Types, HRESULT (STDMETHODCALLTYPE Interface::*Slot)(Types...)>
struct Thunk<Slot> {
    static HRESULT call(INorvel_OvalineCtrlTable& control, std::span<VARIANT> arguments) {
        return callWith(control, arguments, std::index_sequence_for<Types...>());
    }
    static std::vector<ValueType> types() { return {valueType<Types>()...}; }

private:
    template <std::size_t... I>
    static HRESULT callWith(INorvel_OvalineCtrlTable& control, [[maybe_unused]] std::span<VARIANT> arguments,
                            std::index_sequence<I...>) {
        std::tuple<Passed<Types>...> passed{Passed<Types>(arguments[I])...};
        const HRESULT hr = (control.*Slot)(std::get<I>(passed).argument()...);
        (std::get<I>(passed).store(), ...);
        return hr;
    }
};

std::vector<std::string_view> splitNames(std::string_view names) {
    std::vector<std::string_view> parts;
    while (!names.empty()) {
        const std::size_t comma = names.find(',');
        parts.push_back(names.substr(0, comma));
        names = comma == std::string_view::npos ? std::string_view() : names.substr(comma + 1);
    }
    return parts;
}

std::vector<Member> makeMembers() {
    using Table = INorvel_OvalineCtrlTable;
    const auto property = [](DISPID id, std::string_view name, MemberKind kind, ValueType type, SlotCall get,
                             SlotCall put) { return Member{id, name, kind, type, {}, {}, {}, get, put, nullptr}; };
    return {
#define PROPERTY(id, name, type)                                                                   \
    property(id, #name, MemberKind::Property, valueType<type>(), &Thunk<&Table::get_##name>::call, \
             &Thunk<&Table::put_##name>::call),
#define METHOD(id, name, parameters, names, out) \
    Member{id,                                   \
           #name,                                \
           MemberKind::Method,                   \
           {},                                   \
           Thunk<&Table::name>::types(),         \
           splitNames(names),                    \
           MethodResult::out,                    \
           nullptr,                              \
           nullptr,                              \
           &Thunk<&Table::name>::call},
#define TABLE_PROPERTY(name, type)                                                                                  \
    property(DISPID_UNKNOWN, #name, MemberKind::TableProperty, valueType<type>(), &Thunk<&Table::get_##name>::call, \
             &Thunk<&Table::put_##name>::call),
#include "control/interface/members.inc"
#undef PROPERTY
#undef METHOD
#undef TABLE_PROPERTY
    };
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::span<const Enumeration> enumerations() {
    return kEnumerations;
}

std::span<const Member> members() {
    static const std::vector<Member> all = makeMembers();
    return all;
}

const Member* findMember(std::string_view name, bool exactCase) {
    const auto sameLetter = [](char a, char b) { return lowered(a) == lowered(b); };
    for (const Member& member : members()) {
        const bool same = exactCase ? member.name == name : std::ranges::equal(member.name, name, sameLetter);
        if (same) return &member;
    }
    return nullptr;
}

const Member* findMember(DISPID id) {
    for (const Member& member : members())
        if (member.id == id && member.kind != MemberKind::TableProperty) return &member;
    return nullptr;
}

}  // namespace ovaline
