// The registry's form of a GUID.
#pragma once

#include <string>

#include "platform/com.h"

namespace ovaline::platform {

/// In braces, upper case: "{6F0E2C44-9B7D-4E53-A164-3C58D2907E11}".
inline std::u16string guidText(const GUID& guid) {
    std::u16string text = u"{";
    const auto append = [&](std::uint32_t number, int digits) {
        while (digits-- > 0) text += u"0123456789ABCDEF"[number >> (4 * digits) & 0xF];
    };
    append(guid.Data1, 8);
    text += u'-';
    append(guid.Data2, 4);
    text += u'-';
    append(guid.Data3, 4);
    for (int i = 0; i < 8; ++i) {
        if (i == 0 || i == 2) text += u'-';
        append(guid.Data4[i], 2);
    }
    return text += u'}';
}

}  // namespace ovaline::platform
