#include "platform/module_loader.h"

#include <bit>
#include <type_traits>

#include "platform/paths.h"
#include "platform/windows/module_handle.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

std::filesystem::path programFolder() {
    return std::filesystem::path(moduleFile(nullptr).value_or(L"")).parent_path();
}

std::string moduleFileName() {
    return "Norvel_Ovaline.dll";
}

std::variant<ModuleExports, std::string> loadModule(const std::filesystem::path& path) {
    // An absolute path keeps the loader from searching its own folders for a file of the same name.
    std::error_code failed;
    const std::filesystem::path file = std::filesystem::absolute(path, failed);
    if (failed) return failed.message();
    const HINSTANCE module = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module) return pathText(file) + ": " + errorText(GetLastError());
    ModuleExports exports{};
    const char* missing = nullptr;
    const auto find = [&](auto& function, const char* name) {
        const FARPROC address = GetProcAddress(module, name);
        if (!address) missing = name;
        function = std::bit_cast<std::remove_reference_t<decltype(function)>>(address);
    };
    find(exports.getClassObject, "DllGetClassObject");
    find(exports.registerServer, "DllRegisterServer");
    find(exports.unregisterServer, "DllUnregisterServer");
    if (missing) return pathText(file) + " has no " + missing;
    return exports;
}

}  // namespace ovaline::platform
