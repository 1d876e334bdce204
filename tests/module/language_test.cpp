// The language of the property pages, by the host's setting.
#include "module/language.h"

#include <gtest/gtest.h>

#include "control/interface/host_settings.h"
#include "platform/memory/registry.h"

namespace ovaline {
namespace {

TEST(Language, ResourcesAreInSix) {
    const std::pair<std::uint32_t, std::uint16_t> cases[] = {
        {7, 1031}, {17, 1041}, {21, 1045}, {25, 1049}, {4, 2052},    {9, 1033},
        {3, 1033}, {0, 1033},  {8, 1033},  {26, 1033}, {1031, 1033}, {0xFFFFFFFF, 1033},
    };
    for (const auto& [host, resource] : cases) EXPECT_EQ(ResourceLanguage(host), resource) << host;
}

TEST(Language, HostsSettingIsReadEachTime) {
    platform::MemoryRegistry registry;
    const auto set = [&](platform::RegistryValue value) {
        const platform::RegistryChange change{platform::RegistryChange::Kind::SetValue,
                                              std::u16string(kHostSettingsKey), std::u16string(kHostLanguageName),
                                              std::move(value)};
        ASSERT_EQ(registry.apply({&change, 1}), S_OK);
    };
    EXPECT_EQ(GetHostLanguage(registry), 9u);
    for (const std::uint32_t language : {25u, 3u}) {
        set(language);
        EXPECT_EQ(GetHostLanguage(registry), language);
    }
    set(u"25");  // only a number is a setting
    EXPECT_EQ(GetHostLanguage(registry), 9u);
}

}  // namespace
}  // namespace ovaline
