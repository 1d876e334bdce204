// The module's dialog templates, looked up by language.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/com.h"
#include "platform/dialog_actions.h"

namespace ovaline::platform {

struct ControlTemplate {
    ControlKind kind;
    int id;
    bool hidden;       ///< at first
    bool digitsOnly;   ///< of an edit, at first
    bool readOnly;     ///< of an edit
    bool sorted;       ///< of a drop-down list
    bool beginsGroup;  ///< of a radio button
    SIZE size;         ///< pixels
    const char16_t* text;
};

struct DialogTemplate {
    SIZE size;  ///< pixels
    std::vector<ControlTemplate> controls;
};

/// No value where there is no such template in that language.
std::optional<DialogTemplate> findDialogTemplate(std::uint32_t id, std::uint16_t languageId);

}  // namespace ovaline::platform
