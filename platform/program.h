// How a program begins. The library `ovaline_program` holds the platform's entry point, which calls what is declared
// here.
#pragma once

namespace ovaline::platform {

/// The program's work: its arguments are UTF-8, its own name the first of them, a null pointer behind the last. Returns
/// the exit status. Standard input and output are bytes as they are, and a terminal shows them as UTF-8.
/// Each program defines it.
int runProgram(int argc, const char* const* argv);

}  // namespace ovaline::platform
