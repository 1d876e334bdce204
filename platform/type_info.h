// Type information of the module's interfaces and classes.
#pragma once

#include "platform/com.h"

namespace ovaline::platform {

/// Whether the platform has type libraries and the module's own file holds one.
bool hasTypeLibrary();

/// The description of an interface or class, from that library. TYPE_E_CANTLOADLIBRARY
/// where there is none.
HRESULT loadTypeInfo(REFGUID id, ITypeInfo** info);

}  // namespace ovaline::platform
