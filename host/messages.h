// What the program tells a person.
#pragma once

#include <string>

namespace ovaline::host {

/// Writes one line to standard error, whatever the names in the message hold.
void tell(std::string message);

}  // namespace ovaline::host
