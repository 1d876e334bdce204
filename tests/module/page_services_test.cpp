// The property pages as the module hands them out, in the language that the host is set to.
#include "module/page_services.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>

#include "control/interface/class_ids.h"
#include "control/interface/host_settings.h"
#include "module/class_table.h"
#include "platform/dialog_driver.h"
#include "platform/registry.h"

namespace ovaline {
namespace {

using platform::RegistryChange;

class PageServicesTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        std::filesystem::remove(kRegistry);
        setenv("OVALINE_REGISTRY", kRegistry.c_str(), 1);
    }
    static void TearDownTestSuite() { std::filesystem::remove(kRegistry); }

    static void setLanguage(std::uint32_t language) {
        const RegistryChange change{RegistryChange::Kind::SetValue, std::u16string(kHostSettingsKey),
                                    std::u16string(kHostLanguageName), language};
        ASSERT_EQ(platform::systemRegistry().apply({&change, 1}), S_OK);
    }

    static platform::ComPtr<IPropertyPage> makePage(REFCLSID id) {
        void* object = nullptr;
        EXPECT_EQ(findClass(id)->create(nullptr, IID_IPropertyPage, &object), S_OK);
        return platform::ComPtr<IPropertyPage>::adopt(static_cast<IPropertyPage*>(object));
    }

    static inline const std::filesystem::path kRegistry =
        std::filesystem::temp_directory_path() / ("page_services_" + std::to_string(getpid()) + ".reg");
};

TEST_F(PageServicesTest, PagesOpenInTheHostsLanguage) {
    struct Row {
        std::optional<std::uint32_t> language;
        std::u16string enableSerial, numericalOnly, bold;
    };
    const Row rows[] = {
        {std::nullopt, u"Enable Serialization", u"Numerical Only", u"Bold"},
        {25, u"Включить нумерацию", u"Только цифры", u"Полужирный"},
        {3, u"Enable Serialization", u"Numerical Only", u"Bold"},
    };
    const auto frame = platform::makeDialogFrame([](const std::u16string&) {});
    const auto read = [&](const CLSID& page, int id) {
        const auto made = makePage(page);
        const RECT area{0, 0, 500, 450};
        EXPECT_EQ(made->Activate(frame->window(), &area, 0), S_OK);
        const auto state = frame->read(id).value();
        EXPECT_EQ(made->Deactivate(), S_OK);
        return state;
    };
    for (const Row& row : rows) {
        if (row.language) setLanguage(*row.language);
        EXPECT_EQ(read(CLSID_OvalineSerialPropPage, 241).text, row.enableSerial);
        EXPECT_EQ(read(CLSID_OvalineSerialPropPage, 243).items->front(), row.numericalOnly);
        EXPECT_EQ(read(CLSID_Norvel_OvalinePropPage, 205).text, row.bold);
    }
}

TEST_F(PageServicesTest, PagesArePartOfNoOtherObject) {
    const auto outer = makePage(CLSID_OvalineSerialPropPage);
    for (const CLSID& page : kPropertyPages) {
        void* object = nullptr;
        EXPECT_EQ(findClass(page)->create(outer.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(object, nullptr);
    }
}

}  // namespace
}  // namespace ovaline
