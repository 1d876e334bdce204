#include "platform/windows/text.h"

#include <limits>
#include <memory>
#include <new>

#include "platform/com.h"

namespace ovaline::platform {

namespace {

int lengthOf(std::size_t size) {
    if (size > std::size_t{std::numeric_limits<int>::max()}) throw std::bad_alloc();
    return static_cast<int>(size);
}

struct FreeLocal {
    void operator()(wchar_t* memory) const { LocalFree(memory); }
};

}  // namespace

std::string utf8(std::wstring_view text) {
    const int length = lengthOf(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string converted(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, converted.data(), size, nullptr, nullptr);
    return converted;
}

std::wstring fromUtf8(std::string_view text) {
    const int length = lengthOf(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring converted(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, converted.data(), size);
    return converted;
}

std::string errorText(unsigned long error) {
    wchar_t* made = nullptr;
    constexpr DWORD kOneLine = FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | kOneLine, nullptr,
        error, 0, reinterpret_cast<wchar_t*>(&made), 0, nullptr);
    const std::unique_ptr<wchar_t, FreeLocal> text(made);
    if (length == 0) return "error " + std::to_string(error);
    std::wstring_view line(text.get(), length);
    while (!line.empty() && (line.back() <= L' ' || line.back() == L'.')) line.remove_suffix(1);
    return utf8(line);
}

}  // namespace ovaline::platform
