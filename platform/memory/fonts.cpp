#include "platform/memory/fonts.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <utility>

#include "platform/native_outline_writer.h"

namespace ovaline::platform {

namespace {

constexpr double kFixedOne = 65536;
constexpr std::int64_t kLargestHeight = 0xFFFF;

std::int32_t fixedOf(double dots) {
    return static_cast<std::int32_t>(std::lround(dots * kFixedOne));
}

FixedPoint fixedPointOf(NativeOutlineBuilder::Point point, bool flip) {
    return {fixedOf(point.x), fixedOf(flip ? -point.y : point.y)};
}

bool isMapped(char16_t code) {
    return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z') || (code >= u'a' && code <= u'z') ||
           code == u'-';
}

std::optional<NativeOutline> defaultGlyph(char16_t code, std::int32_t height, bool flip) {
    const std::int32_t advance = height / 2;
    if (code == u' ') return NativeOutlineBuilder().finish(advance);
    const double right = height * (isMapped(code) ? 0.4 : 0.2);
    const double top = height * 0.7;
    if (top > std::numeric_limits<std::int16_t>::max()) return std::nullopt;
    return NativeOutlineBuilder().begin(0, 0).line({{0, top}, {right, top}, {right, 0}}).finish(advance, flip);
}

}  // namespace

NativeOutlineBuilder& NativeOutlineBuilder::begin(double x, double y) {
    contours_.push_back({{x, y}, {}});
    return *this;
}

NativeOutlineBuilder& NativeOutlineBuilder::line(std::vector<Point> points) {
    contours_.back().segments.push_back({false, std::move(points)});
    return *this;
}

NativeOutlineBuilder& NativeOutlineBuilder::qspline(std::vector<Point> points) {
    contours_.back().segments.push_back({true, std::move(points)});
    return *this;
}

NativeOutline NativeOutlineBuilder::finish(std::int32_t advance, bool flip) const {
    NativeOutlineWriter writer;
    std::vector<FixedPoint> points;
    for (const Contour& contour : contours_) {
        writer.beginContour(fixedPointOf(contour.start, flip));
        for (const Segment& segment : contour.segments) {
            points.clear();
            for (const Point point : segment.points) points.push_back(fixedPointOf(point, flip));
            if (segment.isCurve) {
                writer.qspline(points);
            } else {
                writer.line(points);
            }
        }
        writer.endContour();
    }
    return {writer.take(), advance, 0};
}

struct MemoryFontService::State {
    struct Glyph {
        NativeOutlineBuilder shape;
        std::int32_t advance = 0;
        std::optional<NativeOutline> raw;
        bool fails = false;
    };
    bool refuses = false;
    std::optional<TextMetrics> metrics;
    std::map<char16_t, Glyph> glyphs;
    std::vector<KerningPair> pairs;
    std::vector<std::u16string> families{u"Memory"};
    FontCalls calls;
};

namespace {

class MemoryFont final : public Font {
public:
    MemoryFont(std::shared_ptr<MemoryFontService::State> state, const LogFont& description)
        : state_(std::move(state)), faceName_(description.lfFaceName), height_(std::abs(description.lfHeight)) {}

    TextMetrics textMetrics() const override {
        const std::int32_t ascent = height_ * 8 / 10;
        return state_->metrics.value_or(TextMetrics{ascent, height_ - ascent});
    }

    std::vector<KerningPair> kerningPairs() const override {
        ++state_->calls.kerningPairs;
        return state_->pairs;
    }

    std::optional<NativeOutline> glyphOutline(char16_t code, bool flip) const override {
        ++state_->calls.glyphOutline;
        const auto found = state_->glyphs.find(code);
        if (found == state_->glyphs.end()) return defaultGlyph(code, height_, flip);
        const MemoryFontService::State::Glyph& glyph = found->second;
        if (glyph.fails) return std::nullopt;
        return glyph.raw ? *glyph.raw : glyph.shape.finish(glyph.advance, flip);
    }

    std::u16string familyName() const override {
        const std::vector<std::u16string>& names = state_->families;
        return std::ranges::find(names, faceName_) != names.end() ? faceName_ : names.front();
    }

private:
    std::shared_ptr<MemoryFontService::State> state_;
    std::u16string faceName_;
    std::int32_t height_ = 0;
};

}  // namespace

MemoryFontService::MemoryFontService() : state_(std::make_shared<State>()) {}

std::shared_ptr<const Font> MemoryFontService::createFont(const LogFont& description) {
    ++state_->calls.createFont;
    const std::int64_t height = std::abs(std::int64_t{description.lfHeight});
    if (state_->refuses || height == 0 || height > kLargestHeight) return nullptr;
    const auto known = std::ranges::find(cache_, description, &Cached::description);
    if (known != cache_.end()) return known->font;
    cache_.push_back({description, std::make_shared<MemoryFont>(state_, description)});
    return cache_.back().font;
}

std::vector<FontFamily> MemoryFontService::families() {
    std::vector<std::u16string> names = state_->families;
    std::ranges::sort(names);
    names.erase(std::ranges::unique(names).begin(), names.end());
    std::vector<FontFamily> families;
    for (std::u16string& name : names) families.push_back({std::move(name)});
    return families;
}

void MemoryFontService::setMetrics(TextMetrics metrics) {
    state_->metrics = metrics;
}

void MemoryFontService::setGlyph(char16_t code, NativeOutlineBuilder shape, std::int32_t advance) {
    state_->glyphs[code] = {std::move(shape), advance, std::nullopt, false};
}

void MemoryFontService::setRawGlyph(char16_t code, NativeOutline outline) {
    state_->glyphs[code] = {{}, 0, std::move(outline), false};
}

void MemoryFontService::failGlyph(char16_t code) {
    state_->glyphs[code] = {{}, 0, std::nullopt, true};
}

void MemoryFontService::setKerningPairs(std::vector<KerningPair> pairs) {
    state_->pairs = std::move(pairs);
}

void MemoryFontService::setFamilies(std::vector<std::u16string> names) {
    state_->families = std::move(names);
}

void MemoryFontService::refuseFonts(bool refuse) {
    state_->refuses = refuse;
}

const FontCalls& MemoryFontService::calls() const {
    return state_->calls;
}

void MemoryFontService::resetCalls() {
    state_->calls = {};
}

}  // namespace ovaline::platform
