// What stops a command.
#pragma once

#include <stdexcept>

namespace ovaline::host {

/// One line for a person: what went wrong, where, what to do. It ends a command with exit status 2, and answers the
/// line of a run that it belongs to.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace ovaline::host
