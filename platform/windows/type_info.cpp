#include "platform/type_info.h"

#include <new>

#include "platform/windows/module_handle.h"

namespace ovaline::platform {

namespace {

/// The library is not registered by being loaded. Empty where there is none.
ComPtr<ITypeLib> library() {
    ComPtr<ITypeLib> loaded;
    try {
        const auto path = moduleFile(moduleHandle());
        if (path && FAILED(LoadTypeLibEx(path->c_str(), REGKIND_NONE, loaded.put()))) return {};
    } catch (const std::bad_alloc&) {
        // As without a library.
    }
    return loaded;
}

}  // namespace

bool hasTypeLibrary() {
    return static_cast<bool>(library());
}

HRESULT loadTypeInfo(REFGUID id, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    const ComPtr<ITypeLib> loaded = library();
    return loaded ? loaded->GetTypeInfoOfGuid(id, info) : TYPE_E_CANTLOADLIBRARY;
}

}  // namespace ovaline::platform
