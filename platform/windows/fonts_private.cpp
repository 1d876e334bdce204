#include "platform/windows/fonts_private.h"

#include <memory>

#include "platform/com.h"

namespace ovaline::platform {

namespace {

struct SearchCloser {
    void operator()(HANDLE search) const { FindClose(search); }
};
using Search = std::unique_ptr<void, SearchCloser>;

}  // namespace

PrivateFonts::PrivateFonts(const std::vector<std::filesystem::path>& folders) {
    for (const std::filesystem::path& folder : folders) addFolder(folder);
}

PrivateFonts::~PrivateFonts() {
    for (const std::wstring& file : files_) RemoveFontResourceExW(file.c_str(), FR_PRIVATE, nullptr);
}

void PrivateFonts::addFolder(const std::filesystem::path& folder) {
    WIN32_FIND_DATAW found{};
    const HANDLE first = FindFirstFileW((folder / L"*.ttf").c_str(), &found);
    if (first == INVALID_HANDLE_VALUE) return;
    const Search search(first);
    do {
        std::wstring file = (folder / found.cFileName).native();
        files_.reserve(files_.size() + 1);  // what is added is also noted
        if (AddFontResourceExW(file.c_str(), FR_PRIVATE, nullptr) > 0) files_.push_back(std::move(file));
    } while (FindNextFileW(search.get(), &found));
}

}  // namespace ovaline::platform
