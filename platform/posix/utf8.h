// UTF-8, the encoding of file names and of the registry's file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ovaline::platform {

/// No value where the bytes are not well-formed.
std::optional<std::u16string> utf16FromUtf8(std::string_view utf8);

/// No value where there is a surrogate without its partner.
std::optional<std::string> utf8FromUtf16(std::u16string_view utf16);

}  // namespace ovaline::platform
