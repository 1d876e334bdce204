#include "platform/terminal.h"

#include "platform/com.h"

namespace ovaline::platform {

bool errorIsTerminal() {
    // Without the sequences that erase a line, a console is as good as a file.
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) && (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

}  // namespace ovaline::platform
