#include "platform/posix/utf8.h"

#include <cstdint>

namespace ovaline::platform {

namespace {

struct Form {
    unsigned char mask, lead;  ///< the lead byte's marking bits
    std::size_t length;
    char32_t least;  ///< a smaller code point has a shorter form
};

constexpr Form kForms[] = {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

constexpr bool isSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

}  // namespace

std::optional<std::u16string> utf16FromUtf8(std::string_view utf8) {
    std::u16string utf16;
    for (std::size_t at = 0; at < utf8.size();) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[at + i]); };
        const Form* form = nullptr;
        for (const Form& candidate : kForms)
            if ((byte(0) & candidate.mask) == candidate.lead) form = &candidate;
        if (!form || form->length > utf8.size() - at) return std::nullopt;
        char32_t code = byte(0) & static_cast<unsigned char>(~form->mask);
        for (std::size_t i = 1; i < form->length; ++i) {
            if ((byte(i) & 0xC0) != 0x80) return std::nullopt;
            code = code << 6 | (byte(i) & 0x3F);
        }
        if (code < form->least || code > 0x10FFFF || isSurrogate(code)) return std::nullopt;
        at += form->length;
        if (code < 0x10000) {
            utf16 += static_cast<char16_t>(code);
        } else {
            utf16 += static_cast<char16_t>(0xD7C0 + (code >> 10));
            utf16 += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
        }
    }
    return utf16;
}

std::optional<std::string> utf8FromUtf16(std::u16string_view utf16) {
    std::string utf8;
    for (std::size_t at = 0; at < utf16.size(); ++at) {
        char32_t code = utf16[at];
        if (isSurrogate(code)) {
            const bool isPair =
                code < 0xDC00 && at + 1 < utf16.size() && utf16[at + 1] >= 0xDC00 && utf16[at + 1] <= 0xDFFF;
            if (!isPair) return std::nullopt;
            code = 0x10000 + ((code - 0xD800) << 10) + (utf16[++at] - 0xDC00U);
        }
        const Form* form = kForms;
        for (const Form& candidate : kForms)
            if (code >= candidate.least) form = &candidate;
        utf8 += static_cast<char>(form->lead | code >> (6 * (form->length - 1)));
        for (std::size_t i = form->length - 1; i-- > 0;) utf8 += static_cast<char>(0x80 | (code >> (6 * i) & 0x3F));
    }
    return utf8;
}

}  // namespace ovaline::platform
