// The property pages as the module hands them out, in the language that the host is set to.
#include "module/page_services.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "control/interface/class_ids.h"
#include "control/interface/host_settings.h"
#include "module/class_table.h"
#include "platform/dialog_driver.h"
#include "platform/registry.h"

namespace ovaline {
namespace {

TEST(PageServices, PagesOpenInTheHostsLanguage) {
    const auto file = std::filesystem::temp_directory_path() / ("page_services_" + std::to_string(getpid()) + ".reg");
    setenv("OVALINE_REGISTRY", file.c_str(), 1);
    const auto frame = platform::makeDialogFrame([](const std::u16string&) {});
    const auto read = [&](const CLSID& id, int control) {
        void* object = nullptr;
        EXPECT_EQ(findClass(id)->create(nullptr, IID_IPropertyPage, &object), S_OK);
        const auto page = platform::ComPtr<IPropertyPage>::adopt(static_cast<IPropertyPage*>(object));
        const RECT area{0, 0, 500, 450};
        EXPECT_EQ(page->Activate(frame->window(), &area, 0), S_OK);
        const auto state = frame->read(control).value();
        EXPECT_EQ(page->Deactivate(), S_OK);
        return state;
    };
    const auto expectTexts = [&](const char16_t* serial, const char16_t* numerical, const char16_t* bold) {
        EXPECT_EQ(read(CLSID_OvalineSerialPropPage, 241).text, serial);
        EXPECT_EQ(read(CLSID_OvalineSerialPropPage, 243).items->front(), numerical);
        EXPECT_EQ(read(CLSID_Norvel_OvalinePropPage, 205).text, bold);
    };
    expectTexts(u"Enable Serialization", u"Numerical Only", u"Bold");
    const platform::RegistryChange change{platform::RegistryChange::Kind::SetValue, std::u16string(kHostSettingsKey),
                                          std::u16string(kHostLanguageName), std::uint32_t{25}};
    EXPECT_EQ(platform::systemRegistry().apply({&change, 1}), S_OK);
    expectTexts(u"Включить нумерацию", u"Только цифры", u"Полужирный");
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace ovaline
