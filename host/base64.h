// Base64 with the standard alphabet and padding: how bytes travel in the lines of a run.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ovaline::host {

void appendBase64(std::string& out, std::span<const std::byte> bytes);

/// The bytes; no value where `text` is anything but complete, padded groups of four.
std::optional<std::vector<std::byte>> decodeBase64(std::string_view text);

}  // namespace ovaline::host
