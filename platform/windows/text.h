// Text on its way to and from the platform, whose UTF-16 code units are of type wchar_t.
#pragma once

#include <string>
#include <string_view>

namespace ovaline::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// The same text under the platform's type. The build lets the two types refer to the same memory.
inline const wchar_t* wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}
inline wchar_t* wide(char16_t* text) {
    return reinterpret_cast<wchar_t*>(text);
}
inline const wchar_t* wide(const std::u16string& text) {
    return wide(text.c_str());
}
inline std::u16string_view utf16(std::wstring_view text) {
    return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

/// UTF-8 of any text; a surrogate without its partner becomes U+FFFD.
std::string utf8(std::wstring_view text);

/// UTF-16 of any bytes; what is not UTF-8 becomes U+FFFD.
std::wstring fromUtf8(std::string_view text);

/// The platform's words for one of its error codes, without an end of line.
std::string errorText(unsigned long error);

}  // namespace ovaline::platform
