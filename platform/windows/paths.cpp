#include "platform/paths.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include "platform/windows/text.h"

namespace ovaline::platform {

std::filesystem::path pathOf(std::string_view text) {
    return fromUtf8(text);
}

std::string pathText(const std::filesystem::path& path) {
    return utf8(path.native());
}

std::FILE* createFile(const std::filesystem::path& path) {
    // The runtime's own modes have none for a file that must not exist yet.
    const int descriptor = _wopen(path.c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY, _S_IREAD | _S_IWRITE);
    if (descriptor < 0) return nullptr;
    std::FILE* file = _fdopen(descriptor, "wb");
    if (!file) _close(descriptor);
    return file;
}

}  // namespace ovaline::platform
