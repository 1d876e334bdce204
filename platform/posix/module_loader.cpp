#include "platform/module_loader.h"

#include <dlfcn.h>

namespace ovaline::platform {

std::filesystem::path programFolder() {
    std::error_code ignored;
    // Empty where the system has no such link; the module is then looked for in the working folder.
    return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

std::string moduleFileName() {
    return "Norvel_Ovaline.so";
}

std::variant<GetClassObject, std::string> loadModule(const std::filesystem::path& path) {
    // An absolute path keeps the loader from searching its own folders for a file of the same name.
    std::error_code failed;
    const std::filesystem::path file = std::filesystem::absolute(path, failed);
    if (failed) return failed.message();
    void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module) return std::string(dlerror());
    void* symbol = dlsym(module, "DllGetClassObject");
    if (!symbol) return file.string() + " has no DllGetClassObject";
    return reinterpret_cast<GetClassObject>(symbol);
}

}  // namespace ovaline::platform
