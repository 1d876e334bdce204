#include "platform/posix/letter_case.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>

namespace ovaline::platform {

namespace {

char16_t lowerCase(char16_t unit) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
    if (unit < 0x80 || !unicode) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
    const wint_t lower = towlower_l(unit, unicode);
    return lower <= 0xFFFF ? static_cast<char16_t>(lower) : unit;
}

}  // namespace

std::u16string lowerCase(std::u16string_view text) {
    std::u16string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char16_t unit) { return lowerCase(unit); });
    return lower;
}

bool alphabetically(std::u16string_view first, std::u16string_view second) {
    const int order = lowerCase(first).compare(lowerCase(second));
    return order != 0 ? order < 0 : first < second;
}

}  // namespace ovaline::platform
