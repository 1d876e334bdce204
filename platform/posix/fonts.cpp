#include "platform/posix/fonts.h"

// dladdr1, which finds this module, is a GNU extension; the compiler enables it by itself.
#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/posix/fonts_face.h"
#include "platform/posix/fonts_mapper.h"
#include "platform/posix/fonts_scaling.h"
#include "platform/recent_cache.h"

namespace ovaline::platform {

namespace {

constexpr std::size_t kMostFonts = 64;  // realised fonts kept; a document shows a few
constexpr std::size_t kMostFaces = 64;  // opened faces kept
constexpr int kBoldWeight = 550;        // lfWeight from which a bold face is asked for

/// What the mapper is asked.
struct FaceRequest {
    std::u16string family;
    bool isBold = false;
    bool isItalic = false;
    bool operator==(const FaceRequest&) const = default;
};

/// What the mapper's answer became.
struct MappedFace {
    std::string path;
    int index = 0;
    std::shared_ptr<FontFace> face;
    MadeUpStyle style;
    std::u16string family;
};

class RealisedFont final : public Font {
public:
    RealisedFont(const MappedFace& mapped, std::int32_t ppem)
        : face_(mapped.face), style_(mapped.style), family_(mapped.family), ppem_(ppem) {}

    TextMetrics textMetrics() const override {
        const CellUnits& cell = face_->cell();
        return {cellDots(cell.ascent, ppem_, cell.unitsPerEm), cellDots(cell.descent, ppem_, cell.unitsPerEm)};
    }

    std::vector<KerningPair> kerningPairs() const override {
        const std::vector<UnitKerningPair>& units = face_->kerningPairs();
        std::vector<KerningPair> pairs;
        pairs.reserve(units.size());
        for (const UnitKerningPair& pair : units) {
            pairs.push_back({pair.first, pair.second, kerningDots(pair.amount, ppem_, face_->cell().unitsPerEm)});
        }
        return pairs;
    }

    std::optional<NativeOutline> glyphOutline(char16_t code, bool flip) const override {
        return face_->outline(code, ppem_, style_, flip);
    }

    std::u16string familyName() const override { return family_; }

private:
    std::shared_ptr<FontFace> face_;
    MadeUpStyle style_;
    std::u16string family_;
    std::int32_t ppem_ = 0;
};

/// Folder of the module that holds this code; empty where the system does not tell.
std::filesystem::path moduleFolder() {
    static const char kInThisModule = 0;
    Dl_info info{};
    void* entry = nullptr;
    if (dladdr1(&kInThisModule, &info, &entry, RTLD_DL_LINKMAP) == 0) return {};
    const std::filesystem::path module = static_cast<const link_map*>(entry)->l_name;
    std::error_code error;
    // The linker's list has no name for the program itself.
    return std::filesystem::canonical(module.empty() ? "/proc/self/exe" : module, error).parent_path();
}

/// Folders with the fonts that the product ships: beside the module, and where an installation places them.
std::vector<std::string> shippedFolders() {
    const std::filesystem::path folder = moduleFolder();
    if (folder.empty()) return {};
    return {folder / "fonts", folder.parent_path() / "share" / "ovaline" / "fonts"};
}

}  // namespace

/// Maps requests to opened faces. A request that was answered neither searches nor opens a file again.
class PosixFontService::Faces {
public:
    explicit Faces(const std::vector<std::string>& folders) : engine_(startFontEngine()), mapper_(folders) {}

    std::optional<MappedFace> find(const FaceRequest& request) {
        if (const MappedFace* kept = kept_.find(request)) return *kept;
        if (!engine_) return std::nullopt;
        for (FontFile& file : mapper_.candidates(request.family, request.isBold, request.isItalic)) {
            std::shared_ptr<FontFace> face = open(file);
            if (!face) continue;
            const MadeUpStyle style{request.isBold && !file.isBold, request.isItalic && !file.isItalic};
            MappedFace mapped{std::move(file.path), file.index, std::move(face), style, std::move(file.family)};
            kept_.keep(request, mapped);
            return mapped;
        }
        return std::nullopt;
    }

    std::vector<FontFamily> families() const {
        std::vector<FontFamily> families;
        for (std::u16string& name : mapper_.families()) families.push_back({std::move(name)});
        return families;
    }

private:
    /// The face of the file, shared among the requests that it answers.
    std::shared_ptr<FontFace> open(const FontFile& file) {
        const auto isSame = [&file](const MappedFace& kept) {
            return kept.index == file.index && kept.path == file.path;
        };
        const MappedFace* kept = kept_.findIf(isSame);
        return kept ? kept->face : FontFace::open(engine_, file.path, file.index);
    }

    FontEngine engine_;
    FontMapper mapper_;
    RecentCache<FaceRequest, MappedFace> kept_{kMostFaces};
};

class PosixFontService::Fonts : public RecentCache<LogFont, std::shared_ptr<const Font>> {
    using RecentCache::RecentCache;
};

PosixFontService::PosixFontService(const std::vector<std::string>& folders)
    : faces_(std::make_unique<Faces>(folders)), fonts_(std::make_unique<Fonts>(kMostFonts)) {}

PosixFontService::~PosixFontService() = default;

std::shared_ptr<const Font> PosixFontService::createFont(const LogFont& description) {
    if (const std::shared_ptr<const Font>* kept = fonts_->find(description)) return *kept;
    if (description.lfHeight == 0) return nullptr;
    const bool isBold = description.lfWeight >= kBoldWeight;
    const std::optional<MappedFace> mapped = faces_->find({description.lfFaceName, isBold, description.lfItalic != 0});
    if (!mapped) return nullptr;
    const std::optional<std::int32_t> ppem = dotsPerEm(description.lfHeight, mapped->face->cell());
    if (!ppem) return nullptr;
    auto font = std::make_shared<RealisedFont>(*mapped, *ppem);
    fonts_->keep(description, font);
    return font;
}

std::vector<FontFamily> PosixFontService::families() {
    return faces_->families();
}

FontService& systemFonts() {
    static PosixFontService service(shippedFolders());
    return service;
}

}  // namespace ovaline::platform
