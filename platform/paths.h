// File names: UTF-8 in this system's programs, whatever the platform stores.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace ovaline::platform {

/// The path that UTF-8 text names. Where the platform's names are UTF-16, bytes that are not UTF-8 become U+FFFD.
std::filesystem::path pathOf(std::string_view utf8);

/// The path in UTF-8, for a person or for `pathOf`. Where the platform's names are UTF-16, a surrogate without its
/// partner becomes U+FFFD.
std::string pathText(const std::filesystem::path& path);

/// Makes a file and opens it for writing bytes. Null, with the reason in errno (EEXIST where there is one already),
/// where that fails.
std::FILE* createFile(const std::filesystem::path& path);

}  // namespace ovaline::platform
