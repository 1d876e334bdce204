#include "platform/paths.h"

namespace ovaline::platform {

std::filesystem::path pathOf(std::string_view utf8) {
    return utf8;
}

std::string pathText(const std::filesystem::path& path) {
    return path.native();
}

std::FILE* createFile(const std::filesystem::path& path) {
    // "x" never opens a file that is there already.
    return std::fopen(path.c_str(), "wbx");
}

}  // namespace ovaline::platform
