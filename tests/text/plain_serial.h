// The reference for serial numbers: one step at a time, the rules in the order in which they are given.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace ovaline {

/// How often the alphanumeric exceptions were met: a random test that never met one would prove little.
struct ExceptionCount {
    int lastNineBehindLetters = 0;
    int allNines = 0;
};

inline std::u16string plainAlphanumericStep(std::u16string code, ExceptionCount& met) {
    if (code.empty()) return code;
    char16_t& last = code.back();
    if (std::all_of(code.begin(), code.end() - 1, [](char16_t c) { return c == u'Z'; }) && last == u'9') {
        last = u'@';
        ++met.lastNineBehindLetters;
    }
    if (std::all_of(code.begin(), code.end(), [](char16_t c) { return c == u'9'; })) {
        std::fill(code.begin() + 1, code.end(), u'0');
        last = u'/';
        code.front() = u'A';
        ++met.allNines;
    }
    ++last;
    for (std::size_t i = code.size(); i-- > 0;) {
        if (code[i] == u':') {
            code[i] = u'0';
        } else if (code[i] == u'[') {
            code[i] = u'A';
        } else {
            break;
        }
        if (i > 0) ++code[i - 1];
    }
    return code;
}

/// Reads by the C library, whose white space, signs and saturation are the ones wanted.
inline std::int64_t plainSerialValue(const std::u16string& text) {
    std::string narrow;
    for (const char16_t c : text) narrow.push_back(c > 0 && c < 128 ? static_cast<char>(c) : '?');
    return std::strtoll(narrow.c_str(), nullptr, 10);
}

inline std::u16string plainNumericalStep(const std::u16string& text, std::int32_t digits) {
    std::uint64_t value = static_cast<std::uint64_t>(plainSerialValue(text)) + 1;
    long double limit = 1;
    for (std::int32_t i = 0; i < std::min(digits, 30); ++i) limit *= 10;
    if (digits > 0 && static_cast<long double>(value) >= limit) value = 0;
    const std::string narrow = std::to_string(static_cast<std::int64_t>(value));
    return {narrow.begin(), narrow.end()};
}

inline std::u16string plainStep(const std::u16string& text, std::int32_t type, std::int32_t digits,
                                ExceptionCount& met) {
    return type == 0 ? plainNumericalStep(text, digits) : plainAlphanumericStep(text, met);
}

}  // namespace ovaline
