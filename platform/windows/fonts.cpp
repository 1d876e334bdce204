#include "platform/windows/fonts.h"

#include <set>
#include <string>

#include "platform/module_path.h"
#include "platform/windows/fonts_gdi.h"

namespace ovaline::platform {

namespace {

constexpr std::size_t kMostFonts = 64;  // realised fonts kept; a document shows a few

/// Folders with the fonts that the product ships: the one beside the module.
std::vector<std::filesystem::path> shippedFolders() {
    const std::optional<std::u16string> module = modulePath();
    if (!module) return {};
    return {std::filesystem::path(*module).parent_path() / "fonts"};
}

using Names = std::set<std::u16string>;

/// Faces turned for vertical lines are listed under the family's name behind this sign.
constexpr WCHAR kVerticalFace = L'@';

int CALLBACK collectFamily(const LOGFONTW* font, const TEXTMETRICW*, DWORD kind, LPARAM names) {
    const WCHAR* const name = font->lfFaceName;
    if ((kind & TRUETYPE_FONTTYPE) == 0 || *name == 0 || *name == kVerticalFace) return 1;
    try {
        reinterpret_cast<Names*>(names)->emplace(name, name + wcsnlen(name, LF_FACESIZE));
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;  // ends the listing; no exception may cross it
    }
}

}  // namespace

GdiFontService::GdiFontService(const std::vector<std::filesystem::path>& folders)
    : privateFonts_(std::make_shared<PrivateFonts>(folders)), fonts_(kMostFonts) {}

std::shared_ptr<const Font> GdiFontService::createFont(const LogFont& description) {
    if (const std::shared_ptr<const Font>* kept = fonts_.find(description)) return *kept;
    std::shared_ptr<const Font> font = makeGdiFont(description, privateFonts_);
    if (font) fonts_.keep(description, font);
    return font;
}

std::vector<FontFamily> GdiFontService::families() {
    const ScreenDc screen;
    if (!screen) return {};
    // No name and the default character set: every family, once for each character set.
    LOGFONTW everything{};
    everything.lfCharSet = DEFAULT_CHARSET;
    Names names;
    EnumFontFamiliesExW(screen.get(), &everything, collectFamily, reinterpret_cast<LPARAM>(&names), 0);
    std::vector<FontFamily> families;
    families.reserve(names.size());
    while (!names.empty()) families.push_back({std::move(names.extract(names.begin()).value())});
    return families;
}

FontService& systemFonts() {
    static GdiFontService service(shippedFolders());
    return service;
}

}  // namespace ovaline::platform
