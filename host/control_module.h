// The control's module: finding it as any host does, through the registry, and registering it.
#pragma once

#include <filesystem>

#include "platform/module_loader.h"

namespace ovaline::host {

/// The class-object export of the control's module. Asked again, it gives the same module.
///
/// The module is the one that the registry names, from the control's ProgID to its class id to the class's server. A
/// module beside the program takes its place where it is another file: program and module are then of one version.
/// Where none is registered, or its file is gone, the one beside the program is registered and used; where that fails
/// it is used all the same. Either is told. Throws Failure where there is no module at all.
platform::GetClassObject loadControlModule();

/// The module beside the program, which `registerModule` is about.
std::filesystem::path moduleBesideProgram();

/// Has the module beside the program write its registry entries, or remove them, and returns the status. Throws Failure
/// where there is no module.
HRESULT registerModule(bool registered);

}  // namespace ovaline::host
