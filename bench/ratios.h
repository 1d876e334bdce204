// The ratios that the project holds itself to, each of two things measured in one run.
#pragma once

namespace ovaline::bench {

/// Prints them on standard output.
void printRatios();

/// Prints what a preview takes, and what share of it the drawing engine has.
void printPreview();

}  // namespace ovaline::bench
