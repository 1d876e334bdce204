// Fonts that are there for this process alone.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ovaline::platform {

/// Makes the TrueType files of some folders known to this process, without installing them, for as long as it lives.
class PrivateFonts {
public:
    /// Folders that do not exist and files that are no fonts are passed over.
    explicit PrivateFonts(const std::vector<std::filesystem::path>& folders);
    ~PrivateFonts();
    PrivateFonts(const PrivateFonts&) = delete;
    PrivateFonts& operator=(const PrivateFonts&) = delete;

private:
    void addFolder(const std::filesystem::path& folder);

    std::vector<std::wstring> files_;
};

}  // namespace ovaline::platform
