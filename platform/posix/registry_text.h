// The text form of registry entries: a header, then each key in brackets and its values, a line each.
//
//     Windows Registry Editor Version 5.00
//
//     [HKEY_CURRENT_USER\Software\Norvel\Host]
//     @="the default value"
//     "Lang"=dword:00000019
//
// In quotes a backslash stands before a backslash or a quote; a line end there is part of the text.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "platform/registry_tree.h"

namespace ovaline::platform {

std::string registryText(const RegistryTree& tree);

/// The tree that the text describes, or one line that says what is wrong where. Lines may end in a carriage return;
/// those that begin with a semicolon are skipped. A text of white space is an empty tree.
std::variant<RegistryTree, std::string> readRegistryText(std::string_view utf8);

}  // namespace ovaline::platform
