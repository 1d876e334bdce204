// What the type library says of the interface, as tables: late binding, the host program and its listings read them.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "control/interface/norvel_ovaline_ctrl.h"

namespace ovaline {

/// One value of an enumeration.
struct EnumValue {
    std::string_view name;
    std::int32_t value;
};

struct Enumeration {
    std::string_view name;
    std::span<const EnumValue> values;
};

/// The eleven enumerations of the type library.
std::span<const Enumeration> enumerations();

/// How a parameter or property travels. Enumerations travel as VT_I4, INT as VT_I4.
struct ValueType {
    VARTYPE vt = VT_EMPTY;                     ///< VT_VARIANT: handed over whole, whatever its tag
    bool out = false;                          ///< the callee writes it
    const Enumeration* enumeration = nullptr;  ///< for enumeration types
};

enum class MemberKind { Property, Method, TableProperty };
/// What a method's parameters give back, as `members.inc` lists it. Restricted is Out, kept from scripts.
enum class MethodResult { In, Out, Restricted, Retval };

/// Calls one slot. `arguments` are in the order of the declaration and have exactly the types that the member's
/// parameters have; an out argument is overwritten.
using SlotCall = HRESULT (*)(INorvel_OvalineCtrlTable& control, std::span<VARIANT> arguments);

struct Member {
    DISPID id;  ///< DISPID_UNKNOWN for a table property
    std::string_view name;
    MemberKind kind;
    ValueType type;                     ///< of a property
    std::vector<ValueType> parameters;  ///< of a method
    std::vector<std::string_view> parameterNames;
    MethodResult result = MethodResult::In;
    SlotCall get = nullptr;
    SlotCall put = nullptr;
    SlotCall call = nullptr;
};

/// Every member in the order of the table of operations.
std::span<const Member> members();

/// The member of that name (late binding ignores the case of ASCII letters, `exactCase` does not); null if none.
const Member* findMember(std::string_view name, bool exactCase);

/// The property or method with that dispatch identifier; null if none.
const Member* findMember(DISPID id);

}  // namespace ovaline
