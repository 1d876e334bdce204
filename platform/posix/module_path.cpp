#include "platform/module_path.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/posix/utf8.h"

namespace ovaline::platform {

std::optional<std::u16string> modulePath() {
    // Any object of the module leads to its file.
    static const char kHere = 0;
    Dl_info module{};
    if (dladdr(&kHere, &module) == 0 || !module.dli_fname) return std::nullopt;
    std::error_code failed;
    const std::filesystem::path path = std::filesystem::absolute(module.dli_fname, failed);
    if (failed) return std::nullopt;
    return utf16FromUtf8(path.lexically_normal().native());
}

}  // namespace ovaline::platform
