// The built module through its exports.
#include <gtest/gtest.h>

#include "control/interface/class_ids.h"
#include "platform/module_loader.h"

namespace ovaline {
namespace {

class ExportsTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto loaded = platform::loadModule(OVALINE_MODULE);
        ASSERT_TRUE(std::holds_alternative<platform::ModuleExports>(loaded)) << std::get<std::string>(loaded);
        module_ = std::get<platform::ModuleExports>(loaded);
    }
    HRESULT classObject(REFCLSID clsid, REFIID iid) {
        void* object = nullptr;
        const HRESULT hr = module_.getClassObject(clsid, iid, &object);
        EXPECT_EQ(object != nullptr, SUCCEEDED(hr));
        factory_ = platform::ComPtr<IClassFactory>::adopt(static_cast<IClassFactory*>(object));
        return hr;
    }

    platform::ModuleExports module_{};
    platform::ComPtr<IClassFactory> factory_;
};

TEST_F(ExportsTest, ClassObjects) {
    EXPECT_EQ(classObject(CLSID_Norvel_OvalineCtrl, IID_IUnknown), S_OK);
    EXPECT_EQ(classObject(CLSID_Norvel_OvalineCtrl, IID_IDispatch), E_NOINTERFACE);
    EXPECT_EQ(classObject(LIBID_Norvel_OvalineLib, IID_IClassFactory), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(module_.getClassObject(CLSID_Norvel_OvalineCtrl, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(classObject(CLSID_Norvel_OvalineCtrl, IID_IClassFactory), S_OK);
    void* object = this;
    EXPECT_EQ(factory_->CreateInstance(nullptr, IID_IClassFactory, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory_->CreateInstance(nullptr, IID_IDispatch, nullptr), E_POINTER);
    EXPECT_EQ(factory_->CreateInstance(nullptr, IID_INorvel_OvalineCtrl, &object), S_OK);
    platform::ComPtr<IUnknown>::adopt(static_cast<IUnknown*>(object));
}

/// An object that holds another one as its part.
class Outer final : public IUnknown {
public:
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
};

TEST_F(ExportsTest, AControlIsMadeAsAPartOfAnother) {
    ASSERT_EQ(classObject(CLSID_Norvel_OvalineCtrl, IID_IClassFactory), S_OK);
    Outer outer;
    void* object = this;
    EXPECT_EQ(factory_->CreateInstance(&outer, IID_INorvel_OvalineCtrl, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    ASSERT_EQ(factory_->CreateInstance(&outer, IID_IUnknown, &object), S_OK);
    const auto part = platform::ComPtr<IUnknown>::adopt(static_cast<IUnknown*>(object));
    EXPECT_EQ(outer.references, 1u) << "a part does not hold its owner";
    {
        const auto control = platform::query<IDispatch>(part.get(), IID_IDispatch);
        ASSERT_TRUE(control);
        EXPECT_EQ(outer.references, 2u) << "its interfaces count with the whole";
        EXPECT_FALSE(platform::query<IOleObject>(control.get(), IID_IOleObject)) << "the whole has only what it shows";
    }
    EXPECT_EQ(outer.references, 1u);
    ASSERT_EQ(classObject(CLSID_Norvel_OvalinePropPage, IID_IClassFactory), S_OK);
    EXPECT_EQ(factory_->CreateInstance(&outer, IID_IUnknown, &object), CLASS_E_NOAGGREGATION)
        << "pages are part of none";
}

}  // namespace
}  // namespace ovaline
