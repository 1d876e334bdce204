// The registry as one text file.
//
// Every operation reads the file anew, so that a change by another process counts at once. A change locks FILE.lock
// against other changes, writes FILE.part and renames it: readers see the file before or after the change, never
// between. All changes of a call are made or none. A file that is damaged or can't be read is as an empty registry to
// readers, and is never written over: every change then fails.
#pragma once

#include <filesystem>

#include "platform/registry_tree.h"

namespace ovaline::platform {

class FileRegistry final : public Registry {
public:
    /// The file need not exist, nor its folder: the first change makes them. An empty path is a registry that can't be
    /// read.
    explicit FileRegistry(std::filesystem::path file) : file_(std::move(file)) {}

    std::optional<RegistryValue> value(std::u16string_view key, std::u16string_view name) const override;
    std::optional<RegistryKeyContent> list(std::u16string_view key) const override;
    HRESULT apply(std::span<const RegistryChange> changes) override;
    std::string place() const override { return file_.string(); }
    std::string problem() const override;
    std::string remedy() const override { return "set OVALINE_REGISTRY to a file that can"; }

private:
    std::filesystem::path file_;
};

/// $OVALINE_REGISTRY, else ovaline/registry.reg in the user's data folder: $XDG_DATA_HOME, else .local/share in $HOME.
/// Empty where none of the three is set.
std::filesystem::path registryFile();

}  // namespace ovaline::platform
