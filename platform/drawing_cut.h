// Cuts figures of any size to a box. What is made of them outside of it, along its sides, is not theirs: the box has to
// be larger than what is seen.
#pragma once

#include <array>
#include <vector>

#include "platform/drawing_path.h"

namespace ovaline::platform {

/// A side of a box.
struct BoxSide {
    double Place::*across;
    double Place::*along;
    double at;
    bool isLower;  ///< the box lies beyond `at`, else before it

    bool keeps(Place p) const { return isLower ? p.*across >= at : p.*across <= at; }
    /// Where the line from `a` to `b`, which are on different sides, meets this one.
    Place meets(Place a, Place b) const;
};
using BoxSides = std::array<BoxSide, 4>;

/// Hands on polygons with the same even-odd area within the box. The figure before is handed on when the next one
/// begins, or at `finish`.
class AreaCutter final : public FigureSink {
public:
    AreaCutter(FigureSink& to, const Sides& box);

    void moveTo(Place start) override;
    void lineTo(Place end) override { polygon_.push_back(end); }
    void curveTo(Place control1, Place control2, Place end) override;
    void close() override { finish(); }
    void finish();

private:
    FigureSink& to_;
    Sides box_;
    BoxSides sides_;
    std::vector<Place> polygon_;
};

/// Hands on the lines within the box and their corners. Dashes stay where they are: each piece begins with a period of
/// dashes, if need be outside of the box. The figure before is complete when the next one begins, or at `finish`.
class LineCutter final : public FigureSink {
public:
    /// `period` of the dashes in pixels, 0 for solid lines.
    LineCutter(FigureSink& to, const Sides& box, double period);

    void moveTo(Place start) override;
    void lineTo(Place end) override;
    void curveTo(Place control1, Place control2, Place end) override;
    void close() override;
    void finish();

private:
    bool cut(Place& from, Place& to) const;
    void skip(Place from, Place to, double length);
    void endRun();
    void append(const std::vector<Place>& run);

    FigureSink& to_;
    Sides box_;
    BoxSides sides_;
    double period_;
    double position_ = 0;  ///< in the period
    Place start_, at_;
    std::vector<Place> run_;    ///< since the last period began outside of the box
    bool isSeen_ = false;       ///< some of `run_` is in the box
    bool isFirst_ = false;      ///< `run_` begins where the figure does
    std::vector<Place> first_;  ///< that run, which the last one may join
};

}  // namespace ovaline::platform
