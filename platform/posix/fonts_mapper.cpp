#include "platform/posix/fonts_mapper.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <set>

namespace ovaline::platform {

namespace {

constexpr std::size_t kMostCandidates = 8;  // files tried for one request; more than this many are not damaged at once
constexpr std::size_t kLongestFaceName = 31;  // code units of lfFaceName before its terminator
constexpr int kBoldWeight = 550;              // OpenType weight from which a face counts as bold

struct PatternCloser {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using PatternOwner = std::unique_ptr<FcPattern, PatternCloser>;

struct FontSetCloser {
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
using FontSetOwner = std::unique_ptr<FcFontSet, FontSetCloser>;

const FcChar8* bytesOf(const std::string& text) {
    // The mapper's own name for the bytes of UTF-8.
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

std::string textOf(const FcChar8* text) {
    // As above.
    return reinterpret_cast<const char*>(text);
}

/// Text up to its terminator, if any; a code unit that is no character becomes U+FFFD.
std::string utf8Of(std::u16string_view text) {
    std::string utf8;
    text = text.substr(0, text.find(u'\0'));
    for (std::size_t i = 0; i < text.size(); ++i) {
        FcChar32 code = text[i];
        const bool isLead = code >= 0xD800 && code < 0xDC00;
        if (isLead && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - FcChar32{0xDC00});
        } else if (code >= 0xD800 && code < 0xE000) {
            code = 0xFFFD;
        }
        FcChar8 bytes[FC_UTF8_MAX_LEN];
        const int count = FcUcs4ToUtf8(code, bytes);
        utf8.append(bytes, bytes + count);
    }
    return utf8;
}

/// Text up to its first byte that is not UTF-8.
std::u16string utf16Of(const FcChar8* text) {
    std::u16string utf16;
    auto left = static_cast<int>(textOf(text).size());
    FcChar32 code = 0;
    for (int used = 0; left > 0 && (used = FcUtf8ToUcs4(text, &code, left)) > 0; text += used, left -= used) {
        if (code >= 0x10000) {
            code -= 0x10000;
            utf16.push_back(static_cast<char16_t>(0xD800 + (code >> 10)));
            code = 0xDC00 + (code & 0x3FF);
        }
        utf16.push_back(static_cast<char16_t>(code));
    }
    return utf16;
}

int number(const FcPattern* font, const char* object, int otherwise) {
    int value = 0;
    return FcPatternGetInteger(font, object, 0, &value) == FcResultMatch ? value : otherwise;
}

bool isSet(const FcPattern* font, const char* object) {
    FcBool value = FcFalse;
    return FcPatternGetBool(font, object, 0, &value) == FcResultMatch && value == FcTrue;
}

const FcChar8* text(const FcPattern* font, const char* object, int which) {
    FcChar8* value = nullptr;
    return FcPatternGetString(font, object, which, &value) == FcResultMatch ? value : nullptr;
}

/// A variable font is listed instance by instance, and once more for the designs between them, which have no file.
bool hasTrueTypeOutlines(const FcPattern* font) {
    const FcChar8* format = text(font, FC_FONTFORMAT, 0);
    return format && textOf(format) == "TrueType" && isSet(font, FC_OUTLINE) && isSet(font, FC_SCALABLE) &&
           !isSet(font, FC_VARIABLE) && text(font, FC_FILE, 0) && text(font, FC_FAMILY, 0);
}

/// English family names in the font's order; all its names where none is English.
std::vector<const FcChar8*> familyNames(const FcPattern* font) {
    std::vector<const FcChar8*> names;
    std::vector<const FcChar8*> english;
    for (int i = 0; const FcChar8* name = text(font, FC_FAMILY, i); ++i) {
        names.push_back(name);
        const FcChar8* language = text(font, FC_FAMILYLANG, i);
        if (language && textOf(language).starts_with("en")) english.push_back(name);
    }
    return english.empty() ? names : english;
}

std::u16string familyNameFor(const FcPattern* font, const std::string& asked) {
    for (int i = 0; const FcChar8* name = text(font, FC_FAMILY, i); ++i) {
        if (FcStrCmpIgnoreCase(name, bytesOf(asked)) == 0) return utf16Of(name);
    }
    return utf16Of(familyNames(font).front());
}

PatternOwner request(FcConfig* config, const std::string& family, bool bold, bool italic) {
    PatternOwner pattern(FcPatternCreate());
    if (!pattern) return nullptr;
    FcPattern* wanted = pattern.get();
    if (!family.empty()) FcPatternAddString(wanted, FC_FAMILY, bytesOf(family));
    FcPatternAddInteger(wanted, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted, FC_OUTLINE, FcTrue);
    FcPatternAddBool(wanted, FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    return pattern;
}

}  // namespace

FontMapper::FontMapper(const std::vector<std::string>& folders) {
    FcConfig* config = FcInitLoadConfigAndFonts();
    if (!config) return;
    config_ = {config, FcConfigDestroy};
    for (const std::string& folder : folders) FcConfigAppFontAddDir(config, bytesOf(folder));
}

std::vector<FontFile> FontMapper::candidates(std::u16string_view family, bool bold, bool italic) const {
    std::vector<FontFile> files;
    if (!config_) return files;
    const std::string name = utf8Of(family);
    const PatternOwner wanted = request(config_.get(), name, bold, italic);
    if (!wanted) return files;
    FcResult result = FcResultMatch;
    const FontSetOwner found(FcFontSort(config_.get(), wanted.get(), FcFalse, nullptr, &result));
    if (!found) return files;
    for (int i = 0; i < found->nfont && files.size() < kMostCandidates; ++i) {
        const FcPattern* font = found->fonts[i];
        if (!hasTrueTypeOutlines(font)) continue;
        const int weight = FcWeightToOpenType(number(font, FC_WEIGHT, FC_WEIGHT_REGULAR));
        files.push_back({textOf(text(font, FC_FILE, 0)), number(font, FC_INDEX, 0), familyNameFor(font, name),
                         weight >= kBoldWeight, number(font, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN});
    }
    return files;
}

std::vector<std::u16string> FontMapper::families() const {
    std::set<std::u16string> names;
    for (const FcSetName which : {FcSetSystem, FcSetApplication}) {
        const FcFontSet* fonts = config_ ? FcConfigGetFonts(config_.get(), which) : nullptr;
        for (int i = 0; fonts && i < fonts->nfont; ++i) {
            if (!hasTrueTypeOutlines(fonts->fonts[i])) continue;
            for (const FcChar8* name : familyNames(fonts->fonts[i])) {
                std::u16string family = utf16Of(name);
                if (!family.empty() && family.size() <= kLongestFaceName) names.insert(std::move(family));
            }
        }
    }
    return {names.begin(), names.end()};
}

}  // namespace ovaline::platform
