// UTF-8, the encoding of everything that the program reads and writes, and UTF-16, that of the control.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ovaline::host {

/// UTF-16 of well-formed UTF-8; no value where the bytes are not well-formed.
std::optional<std::u16string> toUtf16(std::string_view utf8);

/// UTF-16 of any bytes; each byte that is no part of well-formed UTF-8 becomes U+FFFD.
std::u16string toUtf16Replacing(std::string_view bytes);

/// UTF-8 of any UTF-16; a surrogate without its partner becomes U+FFFD.
std::string toUtf8(std::u16string_view utf16);

/// The code point that begins at `utf16[at]`, and `at` moved behind it. A surrogate without its partner is returned as
/// it is.
char32_t nextCodePoint(std::u16string_view utf16, std::size_t& at);

/// Whether `codePoint` is a surrogate, which alone is no character.
constexpr bool isSurrogate(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}
constexpr bool isHighSurrogate(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t codePoint) {
    return codePoint >= 0xDC00 && codePoint <= 0xDFFF;
}

/// Appends a code point that is not a surrogate.
void appendUtf8(std::string& out, char32_t codePoint);

}  // namespace ovaline::host
