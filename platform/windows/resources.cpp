#include "platform/resources.h"

#include <limits>
#include <span>

#include "platform/windows/module_handle.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

namespace {

// Strings are kept in blocks of sixteen, the first of which has the number 1.
constexpr std::uint32_t kBlockSize = 16;

/// The string of that number in a block: each is its length and so many code units. A length of 0 is no string.
std::optional<std::u16string> stringOfBlock(std::span<const wchar_t> block, std::uint32_t number) {
    for (; !block.empty(); --number) {
        const std::size_t length = block.front();
        if (length >= block.size()) break;
        if (number == 0 && length == 0) break;
        if (number == 0) return std::u16string(utf16({&block[1], length}));
        block = block.subspan(1 + length);
    }
    return std::nullopt;
}

std::optional<std::u16string> stringIn(std::uint32_t id, WORD language) {
    // Blocks have numbers of 16 bits.
    const std::uint32_t number = id / kBlockSize + 1;
    if (number > std::numeric_limits<WORD>::max()) return std::nullopt;
    const HINSTANCE module = moduleHandle();
    const auto* name = MAKEINTRESOURCEW(number);
    const HRSRC found = FindResourceExW(module, RT_STRING, name, language);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const auto* block = loaded ? static_cast<const wchar_t*>(LockResource(loaded)) : nullptr;
    if (!block) return std::nullopt;
    return stringOfBlock({block, SizeofResource(module, found) / sizeof(wchar_t)}, id % kBlockSize);
}

}  // namespace

std::optional<std::u16string> loadString(std::uint32_t id, std::uint16_t languageId) {
    return stringIn(id, languageId);
}

std::optional<std::u16string> loadString(std::uint32_t id) {
    // The platform's own order: the thread's language, the user's, the system's, English.
    return stringIn(id, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL));
}

}  // namespace ovaline::platform
