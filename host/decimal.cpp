#include "host/decimal.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace ovaline::host {

void appendSingle(std::string& out, float value) {
    if (std::isnan(value)) {
        out += "\"NaN\"";
        return;
    }
    if (std::isinf(value)) {
        out += value < 0 ? "\"-Infinity\"" : "\"Infinity\"";
        return;
    }
    char digits[32];
    const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    const std::string_view text(digits, static_cast<std::size_t>(end - digits));
    out += text;
    if (text.find_first_of(".e") == std::string_view::npos) out += ".0";
}

void appendMillimetres(std::string& out, double millimetres) {
    constexpr int kDecimals = 4;
    constexpr std::uint64_t kScale = 10000;
    const std::int64_t scaled = std::llround(millimetres * static_cast<double>(kScale));
    if (scaled < 0) out.push_back('-');
    const std::uint64_t magnitude = static_cast<std::uint64_t>(scaled < 0 ? -scaled : scaled);
    char digits[24];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, magnitude / kScale).ptr);
    std::uint64_t fraction = magnitude % kScale;
    if (fraction == 0) return;
    out.push_back('.');
    for (int i = 0; i < kDecimals && fraction != 0; ++i) {
        fraction *= 10;
        out.push_back(static_cast<char>('0' + fraction / kScale));
        fraction %= kScale;
    }
}

void appendRounded(std::string& out, double value, int decimals) {
    // The longest double has 309 digits before the point.
    char digits[400];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr);
}

}  // namespace ovaline::host
