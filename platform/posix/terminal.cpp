#include "platform/terminal.h"

#include <unistd.h>

namespace ovaline::platform {

bool errorIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace ovaline::platform
