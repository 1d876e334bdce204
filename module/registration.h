// The module's entries in the registry: what a host needs to find its classes.
#pragma once

#include <string_view>

#include "platform/registry.h"

namespace ovaline {

/// Writes the entries of the module, of each class and of the type library. Stops at the first of these that fails and
/// returns its status. `modulePath` is the module's file.
HRESULT registerServer(platform::Registry& registry, std::u16string_view modulePath);

/// Removes the classes and the type library, then, if that succeeded, the module's own entries.
///
/// Keys that a GUID of ours names go whole. Of a ProgID and of the module's own entries the values that registration
/// writes go, and a key that then holds nothing else; what other programs keep there stays, and so does a ProgID that
/// now leads to another class.
HRESULT unregisterServer(platform::Registry& registry);

}  // namespace ovaline
