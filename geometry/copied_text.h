// Texts for many copies that differ in a few characters and in their place.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "geometry/text_on_path.h"

namespace ovaline {

/// What all copies share.
struct CopyTransform {
    Matrix rotation;               ///< of each copy, before it is moved
    std::optional<Matrix> mirror;  ///< of all copies, after they are moved
    bool singleStroke = false;     ///< the text is opened and put on whole dots after it was moved
    float flatness = 0;            ///< dots, of the finished text
    float farthest = 0;            ///< dots, the largest distance that a copy is moved by along an axis
};

/// Appends texts as if each were laid out, rotated, moved, mirrored and flattened by itself: every point that a glyph
/// stores is the same, bit for bit, and vertices inside a flattened curve are within the flatness of it. A glyph that
/// stands in the same place of several copies is placed and flattened once.
class CopiedText {
public:
    /// `run` outlives this object.
    CopiedText(TextOnPath& run, const CopyTransform& transform) : run_(run), transform_(transform) {}

    /// Appends `text`, moved by `offset` dots, to `target`.
    void append(std::u16string_view text, PointF offset, GraphicsPath& target);

    /// Extent of all that was appended, before it was mirrored.
    const Extent& extent() const { return extent_; }
    /// Extent of all that was appended, curves included.
    Extent mirroredExtent() const;

private:
    struct Key {
        float t;        ///< path parameter
        float advance;  ///< kerning included
        char16_t code;

        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    struct Placed {
        float next;
        GraphicsPath path;  ///< rotated; flattened too, unless single strokes are still to be put on whole dots
        Extent extent;
    };

    const Placed& placed(char16_t code, char16_t next, float t);
    void appendMoved(const GraphicsPath& glyph, PointF offset, GraphicsPath& target) const;
    void finishStrokes(GraphicsPath& strokes, GraphicsPath& target);

    TextOnPath& run_;
    CopyTransform transform_;
    std::unordered_map<Key, Placed, KeyHash> cache_;
    std::size_t cachedPoints_ = 0;
    Extent extent_;
};

}  // namespace ovaline
