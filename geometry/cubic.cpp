#include "geometry/cubic.h"

#include <algorithm>
#include <limits>

namespace ovaline {

int extrema(double a, double b, double c, double (&parameters)[2]) {
    int count = 0;
    const auto keep = [&](double t) {
        if (t > 0 && t < 1) parameters[count++] = t;
    };
    // q / (3a) and c / q are the two roots without cancellation (Press et al., "Numerical Recipes", 5.6).
    const double discriminant = b * b - 3 * a * c;
    if (!(discriminant >= 0)) return 0;
    const double q = -(b + std::copysign(std::sqrt(discriminant), b));
    if (a != 0) keep(q / (3 * a));
    if (q != 0) keep(c / q);
    return count;
}

namespace {

// A step this small no longer moves a single-precision vertex by a useful amount; it bounds the vertices of a curve.
constexpr double kShortestStep = 1.0 / 32768;

// A chord whose error bound reaches this share of the squared tolerance is long enough to be taken.
constexpr double kCloseEnough = 0.93;

constexpr int kMostTrials = 12;

double cross(PointD u, PointD v) {
    return u.x * v.y - u.y * v.x;
}
double dot(PointD u, PointD v) {
    return u.x * v.x + u.y * v.y;
}

}  // namespace

ChordStepper::ChordStepper(const Cubic& curve, double flatness) : curve_(curve) {
    const double spacing = curve.magnitude * static_cast<double>(std::numeric_limits<float>::epsilon());
    // A vertex is off the curve by up to half a spacing in each coordinate, which the chord's own error must leave room
    // for.
    const double tolerance = flatness > 2 * spacing ? flatness - spacing : spacing;
    squaredTolerance_ = tolerance * tolerance;
}

double ChordStepper::squaredError(double t0, PointD start, PointD slope, double t1) const {
    const double third = (t1 - t0) / 3;
    const PointD chord = curve_.at(t1) - start;
    const PointD v1 = third * slope;
    const PointD v2 = chord - third * curve_.slopeAt(t1);
    const double squaredLength = dot(chord, chord);
    const double s1 = dot(chord, v1), s2 = dot(chord, v2);
    const bool besideChord = s1 >= 0 && s1 <= squaredLength && s2 >= 0 && s2 <= squaredLength && squaredLength > 0;
    if (besideChord) {
        const double d1 = cross(chord, v1), d2 = cross(chord, v2);
        const double factor = d1 * d2 >= 0 ? 0.75 : 4.0 / 9.0;
        const double farther = factor * std::max(std::abs(d1), std::abs(d2));
        return farther * farther / squaredLength;
    }
    // The piece may reach beyond the chord's ends. It lies within the hull of its control points, and the distance
    // from a segment is convex, so the farther control point bounds it.
    const auto squaredDistance = [&](PointD v, double s) {
        const double share = squaredLength > 0 ? std::clamp(s / squaredLength, 0.0, 1.0) : 0.0;
        const PointD off = v - share * chord;
        return dot(off, off);
    };
    return std::max(squaredDistance(v1, s1), squaredDistance(v2, s2));
}

double ChordStepper::next(double t) {
    const PointD start = curve_.at(t);
    const PointD slope = curve_.slopeAt(t);
    const double rest = 1 - t;
    double fits = 0;
    double tooLong = rest;
    // Where the rest is clearly longer than the last chord, one like that is the better first guess.
    double step = rest <= 1.5 * lastStep_ ? rest : lastStep_;
    for (int trial = 0; trial < kMostTrials; ++trial) {
        const double error = squaredError(t, start, slope, t + step);
        if (error <= squaredTolerance_) {
            fits = step;
            if (step >= rest) return 1;
            if (error >= kCloseEnough * squaredTolerance_) break;
        } else {
            tooLong = step;
            if (step <= kShortestStep) {
                fits = step;
                break;
            }
        }
        // The error of a smooth curve grows with the square of the step.
        const double aimed = step * std::sqrt(std::sqrt(0.97 * squaredTolerance_ / std::max(error, 1e-300)));
        const double inside = fits > 0 ? std::min(aimed, fits * 4) : aimed;
        const bool bracketed = inside > fits && inside < tooLong;
        step = bracketed ? inside : (fits + tooLong) / 2;
        if (tooLong == rest && inside >= rest) step = rest;
        step = std::max(step, kShortestStep);
        if (step == fits) break;
    }
    lastStep_ = fits > 0 ? fits : std::max(kShortestStep, std::min(step, tooLong) / 2);
    return t + lastStep_ < 1 ? t + lastStep_ : 1;
}

Status GdipFlattenPath(GraphicsPath& path, float flatness) {
    const std::vector<PointF> points = std::move(path.points_);
    const std::vector<std::uint8_t> types = std::move(path.types_);
    path.points_.clear();
    path.types_.clear();
    path.points_.reserve(points.size());
    path.types_.reserve(points.size());
    const auto add = [&path](PointF point, std::uint8_t type) {
        path.points_.push_back(point);
        path.types_.push_back(type);
    };
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!isCurve(types, i)) {
            add(points[i], types[i]);
            continue;
        }
        const Cubic curve = Cubic::from(&points[i - 1]);
        if (std::isfinite(curve.magnitude)) {
            ChordStepper stepper(curve, static_cast<double>(flatness));
            double t = stepper.next(0);
            while (t < 1) {
                add(narrowed(curve.at(t)), PathPointTypeLine);
                t = stepper.next(t);
            }
        }
        i += 2;
        add(points[i], static_cast<std::uint8_t>(PathPointTypeLine | (types[i] & PathPointTypeCloseSubpath)));
    }
    return Ok;
}

}  // namespace ovaline
