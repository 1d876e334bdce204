#include "platform/module_path.h"

#include "platform/windows/module_handle.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

HINSTANCE moduleHandle() {
    // Any object of the module leads to it.
    static const char kHere = 0;
    HINSTANCE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&kHere), &module);
    return module;
}

std::optional<std::wstring> moduleFile(HINSTANCE module) {
    constexpr std::size_t kLongestPath = 32768;
    for (std::wstring path(MAX_PATH, L'\0'); path.size() <= kLongestPath; path.resize(2 * path.size())) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return std::nullopt;
        if (length < path.size()) return path.substr(0, length);
    }
    return std::nullopt;
}

std::optional<std::u16string> modulePath() {
    const auto path = moduleFile(moduleHandle());
    return path ? std::optional<std::u16string>(utf16(*path)) : std::nullopt;
}

}  // namespace ovaline::platform
