// Loading the control's module into a host program.
#pragma once

#include <filesystem>
#include <string>
#include <variant>

#include "platform/com.h"

namespace ovaline::platform {

/// The module's class-object export.
using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID clsid, REFIID iid, void** object);

/// Folder of the running program.
std::filesystem::path programFolder();

/// File name of the module on this platform.
std::string moduleFileName();

/// Loads the module at `path` for the rest of the process and finds its class-object export; else a one-line reason.
std::variant<GetClassObject, std::string> loadModule(const std::filesystem::path& path);

}  // namespace ovaline::platform
