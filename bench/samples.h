// What the benchmarks measure on, and how they time.
#pragma once

#include <chrono>
#include <span>
#include <string>
#include <vector>

#include "control/regenerate.h"
#include "output/hatch_crossing.h"

namespace ovaline::bench {

/// The default case: "Ovaline", 5 mm high, on a circle of 20 mm, solid fill.
TextSettings defaultSettings();

/// The outline edges and solid hatch lines of `side` × `side` copies of a 7-letter text.
struct FillSample {
    std::vector<Segment> edges;
    std::vector<Segment> hatch;
};
FillSample copiesOfText(int side, float hatchAngle);

/// Seconds of the fastest of `runs` calls: what the code needs, without what else the machine did meanwhile.
template <typename Work>
double fastest(int runs, Work&& work) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        if (taken.count() < best) best = taken.count();
    }
    return best;
}

}  // namespace ovaline::bench
