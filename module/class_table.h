// The classes that the module registers and serves.
#pragma once

#include <span>

#include "platform/com.h"

namespace ovaline {

/// Makes an object of the class and hands out its interface `iid`. May throw std::bad_alloc.
///
/// With an `outer` object the new one is a part of it, and `iid` is that of IUnknown; CLASS_E_NOAGGREGATION where
/// objects of the class are part of none.
using CreateObject = HRESULT (*)(IUnknown* outer, REFIID iid, void** object);

struct ClassEntry {
    CLSID id;
    const char16_t* progId;  ///< of this version of the class
    const char16_t* versionIndependentProgId;
    const char16_t* description;
    bool isControl;  ///< a control, which hosts may list and place; else a property page
    CreateObject create;
};

std::span<const ClassEntry> classTable();

/// The entry of that class; null where the module has none.
const ClassEntry* findClass(REFCLSID id);

}  // namespace ovaline
