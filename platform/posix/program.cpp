#include "platform/program.h"

int main(int argc, char** argv) {
    return ovaline::platform::runProgram(argc, argv);
}
