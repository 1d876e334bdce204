// The system's registry, whose two roots are empty keys of the test's own as long as this lives.
#pragma once

#include "platform/registry.h"

namespace ovaline::platform {

class PlatformBackend {
    static constexpr wchar_t kPlace[] = L"Software\\OvalineRegistryTest";
    /// One of the roots for this process.
    class Root {
    public:
        Root(HKEY root, const wchar_t* place) : root_(root) {
            RegCreateKeyExW(HKEY_CURRENT_USER, place, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
        }
        void enter() { RegOverridePredefKey(root_, key_); }
        ~Root() {
            RegOverridePredefKey(root_, nullptr);
            RegCloseKey(key_);
        }

    private:
        HKEY root_;
        HKEY key_ = nullptr;
    };
    struct Cleaner {
        Cleaner() { RegDeleteTreeW(HKEY_CURRENT_USER, kPlace); }
        ~Cleaner() { RegDeleteTreeW(HKEY_CURRENT_USER, kPlace); }
    };

public:
    PlatformBackend() {
        classes_.enter();
        user_.enter();
    }
    Registry& registry = systemRegistry();

private:
    Cleaner cleaner_;
    Root classes_{HKEY_CLASSES_ROOT, L"Software\\OvalineRegistryTest\\Classes"};
    Root user_{HKEY_CURRENT_USER, L"Software\\OvalineRegistryTest\\User"};
};

}  // namespace ovaline::platform
