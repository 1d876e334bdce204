#include "platform/com.h"

#include <cstdlib>
#include <limits>

void* CoTaskMemAlloc(std::size_t size) {
    return std::malloc(size);
}

void CoTaskMemFree(void* memory) {
    std::free(memory);
}

// A BSTR points behind its length in bytes and is followed by a terminating zero that the length does not count.
BSTR SysAllocStringLen(const OLECHAR* text, UINT count) {
    constexpr UINT kLongest = (std::numeric_limits<UINT>::max() - 16) / sizeof(OLECHAR);
    if (count > kLongest) return nullptr;
    const std::size_t bytes = count * sizeof(OLECHAR);
    // The prefix takes 8 bytes so that the block keeps the alignment of a pointer; the length is the 4 before the text.
    auto* block = static_cast<unsigned char*>(std::malloc(8 + bytes + sizeof(OLECHAR)));
    if (!block) return nullptr;
    const auto length = static_cast<std::uint32_t>(bytes);
    std::memcpy(block + 4, &length, sizeof length);
    unsigned char* content = block + 8;
    if (text)
        std::memcpy(content, text, bytes);
    else
        std::memset(content, 0, bytes);
    std::memset(content + bytes, 0, sizeof(OLECHAR));
    return reinterpret_cast<BSTR>(content);
}

void SysFreeString(BSTR text) {
    if (text) std::free(reinterpret_cast<unsigned char*>(text) - 8);
}

UINT SysStringLen(BSTR text) {
    if (!text) return 0;
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const unsigned char*>(text) - 4, sizeof bytes);
    return static_cast<UINT>(bytes / sizeof(OLECHAR));
}

namespace ovaline::platform {

std::u16string textOf(BSTR text) {
    return std::u16string(text ? text : u"", SysStringLen(text));
}

std::u16string_view viewOf(const OLECHAR* text) {
    return text ? std::u16string_view(text) : std::u16string_view();
}

BSTR makeBstr(std::u16string_view text) {
    if (text.size() > std::numeric_limits<UINT>::max()) return nullptr;
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

}  // namespace ovaline::platform
