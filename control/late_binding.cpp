#include "control/late_binding.h"

#include <algorithm>
#include <string>
#include <vector>

#include "control/interface/type_library.h"

namespace ovaline {

namespace {

std::string asciiName(const OLECHAR* name) {
    std::string ascii;
    for (const char16_t unit : platform::viewOf(name)) {
        // A character outside ASCII is part of no name; any that no name contains keeps the search honest.
        ascii.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
    }
    return ascii;
}

DISPID parameterId(const Member& member, const std::string& name) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    const auto same = [&](std::string_view candidate) { return std::ranges::equal(candidate, name, {}, lower, lower); };
    const auto found = std::ranges::find_if(member.parameterNames, same);
    return found == member.parameterNames.end() ? DISPID_UNKNOWN
                                                : static_cast<DISPID>(found - member.parameterNames.begin());
}

/// Arguments in the order of the declaration, with what they need afterwards.
class Arguments {
public:
    ~Arguments() {
        // A VARIANT that was handed over whole stays the caller's.
        for (std::size_t i = 0; i < owned_.size(); ++i)
            if (owned_[i]) VariantClear(&values_[i]);
    }

    /// Takes one in argument, converted to `type`.
    HRESULT addIn(const VARIANT& given, const ValueType& type) {
        const bool whole = type.vt == VT_VARIANT;
        // In place first, then filled: what a conversion allocates always has an owner.
        values_.push_back(whole ? given : VARIANT{});
        owned_.push_back(!whole);
        if (whole) return S_OK;
        VARIANT source = given;  // some platforms' declaration wants a source that could be written to
        return VariantChangeType(&values_.back(), &source, 0, type.vt);
    }

    void addOut() {
        values_.push_back(VARIANT{});
        owned_.push_back(true);
    }

    std::span<VARIANT> values() { return values_; }
    /// Gives a result away.
    VARIANT take(std::size_t i) {
        owned_[i] = false;
        return values_[i];
    }

private:
    std::vector<VARIANT> values_;
    std::vector<bool> owned_;
};

bool acceptsOut(const VARIANT& reference, VARTYPE type) {
    if (!reference.byref || !(reference.vt & VT_BYREF)) return false;
    const VARTYPE target = reference.vt & VT_TYPEMASK;
    return target == type || target == VT_VARIANT || (type == VT_I4 && target == VT_INT);
}

void storeOut(const VARIANT& reference, const VARIANT& value) {
    if ((reference.vt & VT_TYPEMASK) == VT_VARIANT) {
        VariantClear(reference.pvarVal);
        *reference.pvarVal = value;
    } else {
        *reference.plVal = value.lVal;  // the out parameters are LONG, INT, ULONG and FLOAT, all of 32 bits
    }
}

HRESULT invokeGet(INorvel_OvalineCtrlTable& control, const Member& member, const DISPPARAMS& parameters,
                  VARIANT* result) {
    if (parameters.cArgs != 0) return DISP_E_BADPARAMCOUNT;
    Arguments arguments;
    arguments.addOut();
    const HRESULT hr = member.get(control, arguments.values());
    if (SUCCEEDED(hr) && result) *result = arguments.take(0);
    return FAILED(hr) ? hr : S_OK;
}

HRESULT invokePut(INorvel_OvalineCtrlTable& control, const Member& member, const DISPPARAMS& parameters,
                  UINT* argumentError) {
    if (parameters.cArgs != 1) return DISP_E_BADPARAMCOUNT;
    Arguments arguments;
    if (const HRESULT hr = arguments.addIn(parameters.rgvarg[0], member.type); FAILED(hr)) {
        if (argumentError) *argumentError = 0;
        return hr;
    }
    const HRESULT hr = member.put(control, arguments.values());
    return FAILED(hr) ? hr : S_OK;
}

/// For each parameter the index of its argument: named arguments come first, the others follow in reverse order.
HRESULT orderArguments(const DISPPARAMS& parameters, std::size_t expected, std::vector<UINT>& order) {
    if (parameters.cArgs != expected || parameters.cNamedArgs > parameters.cArgs) return DISP_E_BADPARAMCOUNT;
    constexpr UINT kMissing = ~UINT{0};
    order.assign(expected, kMissing);
    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    for (UINT i = 0; i < positional; ++i) order[i] = parameters.cArgs - 1 - i;
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        const DISPID id = parameters.rgdispidNamedArgs[i];
        if (id < static_cast<DISPID>(positional) || id >= static_cast<DISPID>(expected)) return DISP_E_PARAMNOTFOUND;
        order[static_cast<std::size_t>(id)] = i;
    }
    return std::ranges::find(order, kMissing) == order.end() ? S_OK : DISP_E_PARAMNOTOPTIONAL;
}

HRESULT invokeMethod(INorvel_OvalineCtrlTable& control, const Member& member, const DISPPARAMS& parameters,
                     VARIANT* result, UINT* argumentError) {
    const bool returns = member.result == MethodResult::Retval;
    std::vector<UINT> order;
    if (const HRESULT hr = orderArguments(parameters, member.parameters.size() - returns, order); FAILED(hr)) return hr;
    Arguments arguments;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const VARIANT& given = parameters.rgvarg[order[i]];
        HRESULT hr = S_OK;
        if (!member.parameters[i].out)
            hr = arguments.addIn(given, member.parameters[i]);
        else if (acceptsOut(given, member.parameters[i].vt))
            arguments.addOut();
        else
            hr = DISP_E_TYPEMISMATCH;
        if (FAILED(hr)) {
            if (argumentError) *argumentError = order[i];
            return hr;
        }
    }
    if (returns) arguments.addOut();
    const HRESULT hr = member.call(control, arguments.values());
    if (FAILED(hr)) return hr;
    for (std::size_t i = 0; i < order.size(); ++i)
        if (member.parameters[i].out) storeOut(parameters.rgvarg[order[i]], arguments.values()[i]);
    if (returns && result) *result = arguments.take(order.size());
    return S_OK;
}

}  // namespace

HRESULT lateIdsOfNames(std::span<LPOLESTR> names, DISPID* ids) {
    std::fill_n(ids, names.size(), DISPID_UNKNOWN);
    const Member* member = findMember(asciiName(names[0]), false);
    if (!member || member->kind == MemberKind::TableProperty) return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    HRESULT hr = S_OK;
    for (std::size_t i = 1; i < names.size(); ++i) {
        ids[i] = parameterId(*member, asciiName(names[i]));
        if (ids[i] == DISPID_UNKNOWN) hr = DISP_E_UNKNOWNNAME;
    }
    return hr;
}

HRESULT lateInvoke(INorvel_OvalineCtrlTable& control, DISPID id, WORD flags, const DISPPARAMS& parameters,
                   VARIANT* result, UINT* argumentError) {
    const Member* member = findMember(id);
    if (!member) return DISP_E_MEMBERNOTFOUND;
    if (member->kind == MemberKind::Method)
        return flags & DISPATCH_METHOD ? invokeMethod(control, *member, parameters, result, argumentError)
                                       : DISP_E_MEMBERNOTFOUND;
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))
        return invokePut(control, *member, parameters, argumentError);
    return flags & DISPATCH_PROPERTYGET ? invokeGet(control, *member, parameters, result) : DISP_E_MEMBERNOTFOUND;
}

}  // namespace ovaline
