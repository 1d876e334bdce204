// The terminal service: what a program asks before it writes for a person's eyes.
#pragma once

namespace ovaline::platform {

/// Whether standard error is shown on a terminal, so that a line may be overwritten in place.
bool errorIsTerminal();

}  // namespace ovaline::platform
