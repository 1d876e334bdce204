#include "host/text_encoding.h"

namespace ovaline::host {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMalformed = 0xFFFFFFFF;

// The smallest code point that needs a sequence of that many bytes; a longer form of a smaller one is not well-formed.
constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};

std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

/// The code point that begins at `bytes[at]`, and `at` moved behind it; kMalformed moves it by one byte.
char32_t nextUtf8(std::string_view bytes, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const std::size_t start = at++;
    const unsigned char lead = byte(start);
    const std::size_t length = sequenceLength(lead);
    if (length == 1) return lead;
    if (length == 0 || bytes.size() - start < length) return kMalformed;
    char32_t codePoint = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(start + i) & 0xC0) != 0x80) return kMalformed;
        codePoint = codePoint << 6 | (byte(start + i) & 0x3F);
    }
    if (codePoint < kSmallest[length] || isSurrogate(codePoint) || codePoint > 0x10FFFF) return kMalformed;
    at = start + length;
    return codePoint;
}

void appendUtf16(std::u16string& out, char32_t codePoint) {
    if (codePoint < 0x10000) {
        out.push_back(static_cast<char16_t>(codePoint));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF)));
}

}  // namespace

std::optional<std::u16string> toUtf16(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t codePoint = nextUtf8(utf8, at);
        if (codePoint == kMalformed) return std::nullopt;
        appendUtf16(text, codePoint);
    }
    return text;
}

std::u16string toUtf16Replacing(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const char32_t codePoint = nextUtf8(bytes, at);
        appendUtf16(text, codePoint == kMalformed ? kReplacement : codePoint);
    }
    return text;
}

char32_t nextCodePoint(std::u16string_view utf16, std::size_t& at) {
    const char16_t unit = utf16[at++];
    if (!isHighSurrogate(unit) || at == utf16.size() || !isLowSurrogate(utf16[at])) return unit;
    const char32_t low = utf16[at++];
    return 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) + (low - 0xDC00);
}

void appendUtf8(std::string& out, char32_t codePoint) {
    const auto continuation = [](char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (codePoint < 0x80) {
        out.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        out.push_back(static_cast<char>(0xC0 | codePoint >> 6));
        out.push_back(continuation(codePoint));
    } else if (codePoint < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | codePoint >> 12));
        out.push_back(continuation(codePoint >> 6));
        out.push_back(continuation(codePoint));
    } else {
        out.push_back(static_cast<char>(0xF0 | codePoint >> 18));
        out.push_back(continuation(codePoint >> 12));
        out.push_back(continuation(codePoint >> 6));
        out.push_back(continuation(codePoint));
    }
}

std::string toUtf8(std::u16string_view utf16) {
    std::string text;
    text.reserve(utf16.size());
    for (std::size_t at = 0; at < utf16.size();) {
        const char32_t codePoint = nextCodePoint(utf16, at);
        appendUtf8(text, isSurrogate(codePoint) ? kReplacement : codePoint);
    }
    return text;
}

}  // namespace ovaline::host
