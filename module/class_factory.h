// The class object of every class of the module.
#pragma once

#include <atomic>

#include "module/class_table.h"
#include "platform/module_lock.h"

namespace ovaline {

class ClassFactory final : public IClassFactory {
public:
    /// Holds one reference for the caller.
    explicit ClassFactory(CreateObject create) : create_(create) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    ~ClassFactory() = default;

    CreateObject create_;
    platform::ModuleLock moduleLock_;
    std::atomic<ULONG> references_{1};
};

}  // namespace ovaline
