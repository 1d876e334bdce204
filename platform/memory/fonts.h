// A font service in memory: a font whose numbers a reader computes by hand, for tests of what uses fonts.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/fonts.h"

namespace ovaline::platform {

/// A glyph described contour by contour, coordinates in dots, y upward. A contour closes by itself with a straight
/// segment where its last point is not its first.
///
///     NativeOutlineBuilder().begin(0, 0).line({{0, 7}, {4, 7}}).qspline({{4, 0}, {0, 0}}).finish(5)
class NativeOutlineBuilder {
public:
    struct Point {
        double x = 0;  ///< rounded to the nearest 1/65536 dot, within [-32768, 32768)
        double y = 0;
    };

    NativeOutlineBuilder& begin(double x, double y);
    NativeOutlineBuilder& line(std::vector<Point> points);
    /// Control points, then the point the spline ends in.
    NativeOutlineBuilder& qspline(std::vector<Point> points);

    /// The glyph with the horizontal advance `advance` in dots; with `flip` all y are negated.
    NativeOutline finish(std::int32_t advance, bool flip = false) const;

private:
    struct Segment {
        bool isCurve = false;
        std::vector<Point> points;
    };
    struct Contour {
        Point start;
        std::vector<Segment> segments;
    };
    std::vector<Contour> contours_;
};

/// How often the service and all fonts it made were called.
struct FontCalls {
    int createFont = 0;
    int glyphOutline = 0;
    int kerningPairs = 0;
};

/// The service has one face, in sizes up to 65535. Unless set otherwise, at a height of h = |lfHeight| dots:
///   tmAscent  h * 8 / 10 rounded down, tmDescent h - tmAscent;
///   letters, digits and '-' are a box from (0, 0) to (0.4 h, 0.7 h), drawn clockwise from (0, 0);
///   the .notdef glyph is a box from (0, 0) to (0.2 h, 0.7 h); the space has no outline;
///   every advance is h / 2 rounded down; no kerning pairs; one family, "Memory".
/// What is set counts at once and at every height, also for fonts made before.
class MemoryFontService final : public FontService {
public:
    MemoryFontService();

    std::shared_ptr<const Font> createFont(const LogFont& description) override;
    std::vector<FontFamily> families() override;

    void setMetrics(TextMetrics metrics);
    void setGlyph(char16_t code, NativeOutlineBuilder shape, std::int32_t advance);
    /// `outline` is handed out as it is, whatever `flip` asks for; it need not be well formed.
    void setRawGlyph(char16_t code, NativeOutline outline);
    /// Asking for the glyph reports an error of the font engine.
    void failGlyph(char16_t code);
    /// Handed out in this order, duplicates included.
    void setKerningPairs(std::vector<KerningPair> pairs);
    /// Names in any order; the first also is what an unknown family name gets. At least one.
    void setFamilies(std::vector<std::u16string> names);
    /// While set, no font can be made.
    void refuseFonts(bool refuse);

    const FontCalls& calls() const;
    void resetCalls();

    /// What fonts share with the service that made them, so that they outlive it.
    struct State;

private:
    struct Cached {
        LogFont description;
        std::shared_ptr<const Font> font;
    };
    std::shared_ptr<State> state_;
    std::vector<Cached> cache_;
};

}  // namespace ovaline::platform
