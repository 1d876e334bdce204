// Prints what the font service says about one font, for an independent program to compare:
// dump_font FAMILY HEIGHT WEIGHT ITALIC FLIP [FOLDER...] < character codes, in decimal
#include <charconv>
#include <cstdint>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "tests/platform/fonts_backend.h"

namespace {

using namespace ovaline::platform;

int numberOf(const std::string& text) {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

void printHex(const std::vector<std::byte>& bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    for (const std::byte byte : bytes) {
        std::cout << kDigits[std::to_integer<unsigned>(byte) >> 4] << kDigits[std::to_integer<unsigned>(byte) & 15];
    }
}

std::string asciiOf(const std::u16string& text) {
    std::string ascii;
    for (const char16_t unit : text) ascii.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
    return ascii;
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    if (words.size() < 5) return 2;
    LogFont description;
    description.lfFaceName.assign(words[0].begin(), words[0].end());
    description.lfHeight = numberOf(words[1]);
    description.lfWeight = numberOf(words[2]);
    description.lfItalic = words[3] == "1";
    const bool flip = words[4] == "1";
    const auto service = makePlatformFonts({words.begin() + 5, words.end()});
    const auto font = service->createFont(description);
    if (!font) {
        std::cout << "none\n";
        return 0;
    }
    const TextMetrics metrics = font->textMetrics();
    std::cout << "family " << asciiOf(font->familyName()) << '\n';
    std::cout << "metrics " << metrics.tmAscent << ' ' << metrics.tmDescent << '\n';
    for (unsigned code = 0; std::cin >> code;) {
        const std::optional<NativeOutline> glyph = font->glyphOutline(static_cast<char16_t>(code), flip);
        std::cout << "glyph " << code << ' ';
        if (glyph) {
            std::cout << glyph->gmCellIncX << ' ' << glyph->gmCellIncY << ' ';
            printHex(glyph->polygons);
        } else {
            std::cout << "error";
        }
        std::cout << '\n';
    }
    for (const KerningPair& pair : font->kerningPairs()) {
        std::cout << "pair " << unsigned{pair.wFirst} << ' ' << unsigned{pair.wSecond} << ' ' << pair.iKernAmount
                  << '\n';
    }
}
