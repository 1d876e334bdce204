// The ratios that the project holds itself to, each of two things measured in one run.
#pragma once

namespace ovaline::bench {

/// Prints them on standard output.
void printRatios();

}  // namespace ovaline::bench
