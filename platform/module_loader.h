// Loading the control's module into a host program.
#pragma once

#include <filesystem>
#include <string>
#include <variant>

#include "platform/com.h"

namespace ovaline::platform {

/// The module's class-object export.
using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID clsid, REFIID iid, void** object);
/// Its exports that write and remove its registry entries.
using SelfRegistration = HRESULT(STDAPICALLTYPE*)();

struct ModuleExports {
    GetClassObject getClassObject;
    SelfRegistration registerServer;
    SelfRegistration unregisterServer;
};

/// Folder of the running program.
std::filesystem::path programFolder();

/// File name of the module on this platform.
std::string moduleFileName();

/// Loads the module at `path` for the rest of the process and finds its exports; else a one-line reason.
std::variant<ModuleExports, std::string> loadModule(const std::filesystem::path& path);

}  // namespace ovaline::platform
