#include "platform/program.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <string>
#include <vector>

#include "platform/com.h"
#include "platform/windows/text.h"

namespace {

/// Makes the console that the program shares with others take UTF-8, and gives it back as it was.
class ConsoleGuard {
public:
    ConsoleGuard() : input_(GetConsoleCP()), output_(GetConsoleOutputCP()) {
        SetConsoleCP(CP_UTF8);
        SetConsoleOutputCP(CP_UTF8);
        if (GetConsoleMode(error_, &mode_)) SetConsoleMode(error_, mode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
    ~ConsoleGuard() {
        if (mode_ != 0) SetConsoleMode(error_, mode_);
        if (output_ != 0) SetConsoleOutputCP(output_);
        if (input_ != 0) SetConsoleCP(input_);
    }
    ConsoleGuard(const ConsoleGuard&) = delete;
    ConsoleGuard& operator=(const ConsoleGuard&) = delete;

private:
    HANDLE error_ = GetStdHandle(STD_ERROR_HANDLE);
    UINT input_, output_;  // code pages; 0 without a console
    DWORD mode_ = 0;
};

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const ConsoleGuard console;
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::vector<std::string> texts;
    for (int i = 0; i < argc; ++i) texts.push_back(ovaline::platform::utf8(argv[i]));
    std::vector<const char*> arguments;
    for (const std::string& text : texts) arguments.push_back(text.c_str());
    arguments.push_back(nullptr);
    return ovaline::platform::runProgram(argc, arguments.data());
}
