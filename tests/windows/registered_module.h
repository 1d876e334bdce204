// The module as clients know it: registered, and brought into the process by the system when one of its classes is
// asked for.
#pragma once

#include <gtest/gtest.h>

#include "control/interface/class_ids.h"
#include "platform/windows/text.h"

namespace ovaline {

class RegisteredModule {
public:
    RegisteredModule() {
        EXPECT_EQ(OleInitialize(nullptr), S_OK);
        callOnce("DllRegisterServer");
    }
    /// Every object has to be gone.
    ~RegisteredModule() {
        CoFreeUnusedLibraries();
        EXPECT_FALSE(isLoaded()) << "an object is left";
        callOnce("DllUnregisterServer");
        OleUninitialize();
    }
    RegisteredModule(const RegisteredModule&) = delete;
    RegisteredModule& operator=(const RegisteredModule&) = delete;

    static bool isLoaded() { return GetModuleHandleW(file().c_str()) != nullptr; }

    /// A new object of a class; empty where the system makes none.
    template <typename Interface>
    static platform::ComPtr<Interface> make(REFCLSID id, REFIID iid, IUnknown* outer = nullptr) {
        void* made = nullptr;
        const HRESULT hr = CoCreateInstance(id, outer, CLSCTX_INPROC_SERVER, iid, &made);
        EXPECT_EQ(hr, S_OK);
        return platform::ComPtr<Interface>::adopt(SUCCEEDED(hr) ? static_cast<Interface*>(made) : nullptr);
    }
    /// A control, found by its name.
    static platform::ComPtr<INorvel_OvalineCtrl> makeControl() {
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID(platform::wide(std::u16string(kControlProgId)), &id), S_OK);
        return make<INorvel_OvalineCtrl>(id, IID_INorvel_OvalineCtrl);
    }

private:
    static std::wstring file() { return platform::fromUtf8(OVALINE_MODULE); }

    /// Has the module in the process for this call alone.
    static void callOnce(const char* name) {
        const HMODULE module = LoadLibraryW(file().c_str());
        ASSERT_TRUE(module) << "run in the folder of the module";
        const FARPROC address = GetProcAddress(module, name);
        EXPECT_EQ(address ? std::bit_cast<HRESULT(STDAPICALLTYPE*)()>(address)() : E_FAIL, S_OK) << name;
        FreeLibrary(module);
    }
};

}  // namespace ovaline
