#include "host/messages.h"

#include <algorithm>
#include <cstdio>

namespace ovaline::host {

void tell(std::string message) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
    std::ranges::replace_if(message, isControl, ' ');
    std::fprintf(stderr, "ovaline: %s\n", message.c_str());
}

}  // namespace ovaline::host
