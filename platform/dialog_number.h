// How every backend of the dialog service reads a number.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

namespace ovaline::platform {

/// What `Dialog::number` makes of a text.
inline std::int32_t leadingNumber(std::u16string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(u" \t\n\v\f\r"), text.size()));
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) text.remove_prefix(1);
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    for (const char16_t digit : text) {
        if (digit < u'0' || digit > u'9') break;
        number = number * 10 + (digit - u'0');
        if (number > kMost + (negative ? 1 : 0)) return 0;
    }
    return static_cast<std::int32_t>(negative ? -number : number);
}

}  // namespace ovaline::platform
