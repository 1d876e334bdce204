// Being interrupted by the user between two steps, so that nothing half-written stays behind.
#pragma once

namespace ovaline::host {

/// From now on an interrupt or a request to end is remembered; a second one ends the program at once.
void watchInterrupts();

/// Throws Failure where the program was interrupted since.
void checkInterrupted();

}  // namespace ovaline::host
