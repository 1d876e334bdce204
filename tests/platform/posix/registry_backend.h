// The registry that the platform keeps in a file, in a folder of its own.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "platform/posix/registry_file.h"

namespace ovaline::platform {

/// A folder of the test's own, which goes with it.
struct TemporaryFolder {
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "ovaline-registry-XXXXXX").string();
        path = mkdtemp(name.data()) ? name : "";
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::filesystem::path path;
};

struct PlatformBackend {
    TemporaryFolder folder;
    FileRegistry registry{folder.path / "made" / "by" / "it.reg"};
};

}  // namespace ovaline::platform
