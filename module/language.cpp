#include "module/language.h"

#include "control/interface/host_settings.h"

namespace ovaline {

namespace {

constexpr std::uint32_t kEnglish = 9;

}  // namespace

std::uint32_t GetHostLanguage(const platform::Registry& registry) {
    const auto held = registry.value(kHostSettingsKey, kHostLanguageName);
    const auto* language = held ? std::get_if<std::uint32_t>(&*held) : nullptr;
    return language ? *language : kEnglish;
}

std::uint16_t ResourceLanguage(std::uint32_t hostLanguage) {
    switch (hostLanguage) {
        case 4:
            return 2052;  // Chinese, Simplified
        case 7:
            return 1031;  // German
        case 17:
            return 1041;  // Japanese
        case 21:
            return 1045;  // Polish
        case 25:
            return 1049;  // Russian
        default:
            return 1033;
    }
}

std::unique_ptr<platform::Dialog> CreateDialogInLanguage(std::uint32_t templateId, platform::DialogEvents& events,
                                                         HWND parent) {
    return platform::makeDialog(templateId, ResourceLanguage(GetHostLanguage(platform::systemRegistry())), parent,
                                events);
}

}  // namespace ovaline
