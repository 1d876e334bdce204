// A registry in memory, for tests of what registers and looks up.
#pragma once

#include "platform/registry_tree.h"

namespace ovaline::platform {

/// Empty at first. All changes of a call are made, or none.
class MemoryRegistry final : public Registry {
public:
    /// The call of `apply` after so many more fails with that status and changes nothing.
    void failAfter(int calls, HRESULT status) {
        callsUntilFailure_ = calls;
        failure_ = status;
    }

    const RegistryTree::Keys& keys() const { return tree_.keys(); }

    std::optional<RegistryValue> value(std::u16string_view key, std::u16string_view name) const override {
        return tree_.value(key, name);
    }
    std::optional<RegistryKeyContent> list(std::u16string_view key) const override { return tree_.list(key); }
    HRESULT apply(std::span<const RegistryChange> changes) override {
        return callsUntilFailure_-- == 0 ? failure_ : tree_.apply(changes);
    }
    std::string place() const override { return "memory"; }
    std::string problem() const override { return {}; }
    std::string remedy() const override { return "start over"; }

private:
    RegistryTree tree_;
    int callsUntilFailure_ = -1;
    HRESULT failure_ = S_OK;
};

}  // namespace ovaline::platform
