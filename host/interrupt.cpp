#include "host/interrupt.h"

#include <csignal>

#include "host/failure.h"

namespace ovaline::host {

namespace {

volatile std::sig_atomic_t interrupted = 0;

void remember(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

}  // namespace

void watchInterrupts() {
    std::signal(SIGINT, remember);
    std::signal(SIGTERM, remember);
}

void checkInterrupted() {
    if (interrupted) throw Failure("interrupted, nothing was written");
}

}  // namespace ovaline::host
