// The host's settings for the user, as far as the module reads them.
#pragma once

#include <string_view>

namespace ovaline {

/// The registry key of the settings.
inline constexpr std::u16string_view kHostSettingsKey = u"HKEY_CURRENT_USER\\Software\\Norvel\\Host";

/// Its number (REG_DWORD) that chooses the language of the property pages: a primary language number.
inline constexpr std::u16string_view kHostLanguageName = u"Lang";

}  // namespace ovaline
