#include "platform/com.h"

#include <limits>

#include "platform/windows/text.h"

namespace ovaline::platform {

std::u16string textOf(BSTR text) {
    return text ? std::u16string(utf16({text, SysStringLen(text)})) : std::u16string();
}

std::u16string_view viewOf(const OLECHAR* text) {
    return text ? utf16(text) : std::u16string_view();
}

BSTR makeBstr(std::u16string_view text) {
    if (text.size() > std::numeric_limits<UINT>::max()) return nullptr;
    return SysAllocStringLen(wide(text.data()), static_cast<UINT>(text.size()));
}

}  // namespace ovaline::platform
