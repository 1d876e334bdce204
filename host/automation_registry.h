// The lines of the automation protocol that are about the registry and not about a control.
#pragma once

#include <string>
#include <string_view>

#include "host/json_text.h"
#include "platform/registry.h"

namespace ovaline::host {

/// Whether lines of that verb are answered here: lang, registry and register.
bool isRegistryVerb(std::string_view verb);

/// The answer to a line of such a verb. Throws Failure where the line is not understood or the registry can't be read.
std::string answerRegistryLine(std::string_view verb, const Json& request, platform::Registry& registry);

}  // namespace ovaline::host
