#include "platform/module_loader.h"

#include <dlfcn.h>

#include <type_traits>

namespace ovaline::platform {

std::filesystem::path programFolder() {
    std::error_code ignored;
    // Empty where the system has no such link; the module is then looked for in the working folder.
    return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

std::string moduleFileName() {
    return "Norvel_Ovaline.so";
}

std::variant<ModuleExports, std::string> loadModule(const std::filesystem::path& path) {
    // An absolute path keeps the loader from searching its own folders for a file of the same name.
    std::error_code failed;
    const std::filesystem::path file = std::filesystem::absolute(path, failed);
    if (failed) return failed.message();
    void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module) return std::string(dlerror());
    ModuleExports exports{};
    const char* missing = nullptr;
    const auto find = [&](auto& function, const char* name) {
        void* symbol = dlsym(module, name);
        if (!symbol) missing = name;
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(symbol);
    };
    find(exports.getClassObject, "DllGetClassObject");
    find(exports.registerServer, "DllRegisterServer");
    find(exports.unregisterServer, "DllUnregisterServer");
    if (missing) return file.string() + " has no " + missing;
    return exports;
}

}  // namespace ovaline::platform
