#include "platform/drawing_cut.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ovaline::platform {

namespace {

/// How far a chord may be from its curve, in pixels.
constexpr double kTolerance = 1.0 / 16;
/// After so many halvings the largest curve's chords are as exact as its numbers.
constexpr int kMostHalvings = 32;
/// A line that is just long enough for a corner before it, in pixels.
constexpr double kStub = 1.0 / 16;

BoxSides sidesOf(const Sides& box) {
    return {{{&Place::x, &Place::y, box.left, true},
             {&Place::x, &Place::y, box.right, false},
             {&Place::y, &Place::x, box.top, true},
             {&Place::y, &Place::x, box.bottom, false}}};
}

double distance(Place a, Place b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

Place middle(Place a, Place b) {
    return {(a.x + b.x) / 2, (a.y + b.y) / 2};
}

struct Cubic {
    Place start, control1, control2, end;

    std::pair<Cubic, Cubic> halves() const {
        const Place a = middle(start, control1), b = middle(control1, control2), c = middle(control2, end);
        const Place ab = middle(a, b), bc = middle(b, c), centre = middle(ab, bc);
        return {{start, a, ab, centre}, {centre, bc, c, end}};
    }

    /// False only where no part of it is in the box.
    bool reaches(const Sides& box) const {
        const auto [left, right] = std::minmax({start.x, control1.x, control2.x, end.x});
        const auto [top, bottom] = std::minmax({start.y, control1.y, control2.y, end.y});
        return right >= box.left && left <= box.right && bottom >= box.top && top <= box.bottom;
    }

    bool isFlat() const {
        const auto bend = [](Place a, Place b, Place c) {
            return std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
        };
        // A curve leaves its chord by an eighth of its second derivative, which is six times these.
        return std::max(bend(start, control1, control2), bend(control1, control2, end)) * 6 / 8 <= kTolerance;
    }

    double length() const {
        const double around = distance(start, control1) + distance(control1, control2) + distance(control2, end);
        return (around + distance(start, end)) / 2;
    }
};

/// Visits pieces of a curve one after the other with whether they reach into the box. Those that do are flat.
template <typename Visit>
void flatten(const Cubic& curve, const Sides& box, const Visit& visit, int halvings = 0) {
    const bool isSeen = curve.reaches(box);
    if (!isSeen || curve.isFlat() || halvings == kMostHalvings) return visit(curve, isSeen);
    const auto [first, second] = curve.halves();
    flatten(first, box, visit, halvings + 1);
    flatten(second, box, visit, halvings + 1);
}

/// Visits equal pieces of a curve, short enough for their `length` to be exact.
template <typename Visit>
void divide(const Cubic& curve, const Visit& visit, int halvings = 4) {
    if (halvings == 0) return visit(curve);
    const auto [first, second] = curve.halves();
    divide(first, visit, halvings - 1);
    divide(second, visit, halvings - 1);
}

}  // namespace

Place BoxSide::meets(Place a, Place b) const {
    Place p;
    p.*across = at;
    p.*along = a.*along + (b.*along - a.*along) * ((at - a.*across) / (b.*across - a.*across));
    return p;
}

AreaCutter::AreaCutter(FigureSink& to, const Sides& box) : to_(to), box_(box), sides_(sidesOf(box)) {}

void AreaCutter::moveTo(Place start) {
    finish();
    polygon_.push_back(start);
}

void AreaCutter::curveTo(Place control1, Place control2, Place end) {
    // A piece outside lies on one side of the box, and so does its chord: no point of the box is between them.
    flatten({polygon_.back(), control1, control2, end}, box_,
            [this](const Cubic& piece, bool) { polygon_.push_back(piece.end); });
}

void AreaCutter::finish() {
    std::vector<Place> polygon = std::exchange(polygon_, {});
    for (const BoxSide& side : sides_) {
        std::vector<Place> kept;
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Place from = polygon[i == 0 ? polygon.size() - 1 : i - 1];
            const Place to = polygon[i];
            if (side.keeps(from) != side.keeps(to)) kept.push_back(side.meets(from, to));
            if (side.keeps(to)) kept.push_back(to);
        }
        polygon = std::move(kept);
    }
    if (polygon.empty()) return;
    to_.moveTo(polygon.front());
    for (std::size_t i = 1; i < polygon.size(); ++i) to_.lineTo(polygon[i]);
    to_.close();
}

LineCutter::LineCutter(FigureSink& to, const Sides& box, double period)
    : to_(to), box_(box), sides_(sidesOf(box)), period_(period) {}

void LineCutter::moveTo(Place start) {
    finish();
    start_ = at_ = start;
    run_ = {start};
    isFirst_ = true;
    position_ = 0;
}

void LineCutter::lineTo(Place end) {
    const Place from = std::exchange(at_, end);
    Place seenFrom = from, seenTo = end;
    if (!cut(seenFrom, seenTo)) return skip(from, end, distance(from, end));
    if (seenFrom != from) skip(from, seenFrom, distance(from, seenFrom));
    run_.push_back(seenTo);
    isSeen_ = true;
    if (period_ > 0) position_ = std::fmod(position_ + distance(seenFrom, seenTo), period_);
    if (seenTo != end) skip(seenTo, end, distance(seenTo, end));
}

void LineCutter::curveTo(Place control1, Place control2, Place end) {
    flatten({at_, control1, control2, end}, box_, [this](const Cubic& piece, bool isSeen) {
        if (isSeen) return lineTo(piece.end);
        divide(piece, [this](const Cubic& part) { skip(part.start, part.end, part.length()); });
        at_ = piece.end;
    });
}

void LineCutter::close() {
    lineTo(start_);
    if (isSeen_ && isFirst_) {
        // Never interrupted.
        run_.pop_back();
        append(run_);
        to_.close();
        isSeen_ = false;
    } else if (isSeen_ && !first_.empty() && period_ == 0) {
        run_.insert(run_.end(), first_.begin() + 1, first_.end());
        first_.clear();
    } else if (isSeen_ && !first_.empty()) {
        // The first dash is drawn already, but for the corner with a last one that reaches it.
        const double length = distance(start_, first_[1]), share = length > kStub ? kStub / length : 0;
        run_.push_back({start_.x + (first_[1].x - start_.x) * share, start_.y + (first_[1].y - start_.y) * share});
    }
    finish();
}

void LineCutter::finish() {
    endRun();
    append(std::exchange(first_, {}));
}

/// Leaves of a line what is in the box; false where that is nothing.
bool LineCutter::cut(Place& from, Place& to) const {
    for (const BoxSide& side : sides_) {
        if (!side.keeps(from) && !side.keeps(to)) return false;
        if (!side.keeps(from)) from = side.meets(from, to);
        if (!side.keeps(to)) to = side.meets(from, to);
    }
    return true;
}

/// Counts a length outside of the box. What has been run through is complete where a new period begins.
void LineCutter::skip(Place from, Place to, double length) {
    position_ += length;
    if (position_ < period_) return run_.push_back(to);
    endRun();
    if (period_ > 0 && length > 0) {
        position_ = std::fmod(position_, period_);
        const double share = position_ / length;
        run_.push_back({to.x + (from.x - to.x) * share, to.y + (from.y - to.y) * share});
    }
    run_.push_back(to);
}

void LineCutter::endRun() {
    if (isSeen_ && isFirst_)
        first_ = run_;
    else if (isSeen_)
        append(run_);
    run_.clear();
    isSeen_ = isFirst_ = false;
}

void LineCutter::append(const std::vector<Place>& run) {
    if (run.empty()) return;
    to_.moveTo(run.front());
    for (std::size_t i = 1; i < run.size(); ++i) to_.lineTo(run[i]);
}

}  // namespace ovaline::platform
