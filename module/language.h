// The language in which the module shows its property pages: the one that the host is set to.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/dialogs.h"
#include "platform/registry.h"

namespace ovaline {

/// The host's language, a primary language number; 9, English, where the host has none. Read anew each time, so that a
/// change counts when the next page opens.
std::uint32_t GetHostLanguage(const platform::Registry& registry);

/// The language of the resources for a host's language: 1031, 1033, 1041, 1045, 1049 or 2052. English (1033) serves
/// every language that the resources are not in.
std::uint16_t ResourceLanguage(std::uint32_t hostLanguage);

/// A modeless dialog of the module's template in the language of the resources for the host's language as it is set
/// now. See platform::makeDialog.
std::unique_ptr<platform::Dialog> CreateDialogInLanguage(std::uint32_t templateId, platform::DialogEvents& events,
                                                         HWND parent);

}  // namespace ovaline
