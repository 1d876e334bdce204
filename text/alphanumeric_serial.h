// Serial numbers that are codes of digits and capital letters.
#pragma once

#include <cstdint>
#include <string>

namespace ovaline {

/// Advances `code` by `steps` alphanumeric steps (serial_number.h gives the rules), in a time that depends on its
/// length alone. An empty code stays empty.
void advanceAlphanumericSerial(std::u16string& code, std::uint64_t steps);

}  // namespace ovaline
