#include "host/base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace ovaline::host {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 64;

constexpr std::array<std::uint8_t, 256> makeDigits() {
    std::array<std::uint8_t, 256> digits{};
    digits.fill(kNoDigit);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i)
        digits[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
    return digits;
}
constexpr std::array<std::uint8_t, 256> kDigits = makeDigits();

}  // namespace

void appendBase64(std::string& out, std::span<const std::byte> bytes) {
    out.reserve(out.size() + (bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8 | (i < count ? std::to_integer<std::uint32_t>(bytes[at + i]) : 0u);
        for (std::size_t i = 0; i < 4; ++i) out.push_back(i <= count ? kAlphabet[group >> (18 - 6 * i) & 0x3F] : '=');
    }
}

std::optional<std::vector<std::byte>> decodeBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;
    std::vector<std::byte> bytes;
    bytes.reserve(text.size() / 4 * 3);
    for (std::size_t at = 0; at < text.size(); at += 4) {
        const std::size_t digits = at + 4 == text.size() ? 4 - padding : 4;
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            const std::uint8_t digit = i < digits ? kDigits[static_cast<unsigned char>(text[at + i])] : std::uint8_t{0};
            if (digit == kNoDigit) return std::nullopt;
            group = group << 6 | digit;
        }
        for (std::size_t i = 0; i + 1 < digits; ++i) bytes.push_back(static_cast<std::byte>(group >> (16 - 8 * i)));
    }
    return bytes;
}

}  // namespace ovaline::host
