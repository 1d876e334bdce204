#include "host/control_module.h"

#include <optional>
#include <string>

#include "control/interface/class_ids.h"
#include "host/control_host.h"
#include "host/failure.h"
#include "host/messages.h"
#include "platform/guid_text.h"
#include "platform/paths.h"
#include "platform/registry.h"

namespace ovaline::host {

namespace {

namespace fs = std::filesystem;

constexpr const char* kUsed = ", the module beside the program is used";

std::optional<std::u16string> defaultText(const platform::Registry& registry, const std::u16string& key) {
    const auto held = registry.value(std::u16string(platform::kClassesRoot) + u'\\' + key, u"");
    const auto* text = held ? std::get_if<std::u16string>(&*held) : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

platform::ModuleExports load(const fs::path& file) {
    const auto loaded = platform::loadModule(file);
    if (const auto* reason = std::get_if<std::string>(&loaded))
        throw Failure("the control's module does not load, " + *reason + ", put it beside the program");
    return std::get<platform::ModuleExports>(loaded);
}

platform::GetClassObject besideWithWarning(const std::string& reason) {
    tell("warning: " + reason + kUsed);
    return load(moduleBesideProgram()).getClassObject;
}

/// Registers the module beside the program, because of `reason`, and gives its export.
platform::GetClassObject registerAndLoad(const platform::Registry& registry, const std::string& reason) {
    const platform::ModuleExports module = load(moduleBesideProgram());
    if (const HRESULT hr = module.registerServer(); FAILED(hr))
        return besideWithWarning(reason + ", and registering it in " + registry.place() + " failed with status " +
                                 statusText(hr));
    tell(reason + ", registered " + platform::pathText(moduleBesideProgram()) + " in " + registry.place());
    return module.getClassObject;
}

platform::GetClassObject findControlModule(const platform::Registry& registry) {
    if (const std::string problem = registry.problem(); !problem.empty()) return besideWithWarning(problem);
    const std::u16string ours = platform::guidText(CLSID_Norvel_OvalineCtrl);
    const auto classId = defaultText(registry, std::u16string(kControlProgId) + u"\\CLSID");
    if (classId && *classId != ours)
        return besideWithWarning("the control's name leads to another class in " + registry.place());
    const auto server = classId ? defaultText(registry, u"CLSID\\" + *classId + u"\\InprocServer32") : std::nullopt;
    if (!server) return registerAndLoad(registry, "no control was registered");

    const fs::path registered(*server);
    std::error_code failed;
    if (!fs::exists(registered, failed))
        return registerAndLoad(registry, "the registered module " + platform::pathText(registered) + " is gone");
    // Program and module that came together are of one version; the registered one may be another's.
    const fs::path beside = moduleBesideProgram();
    return load(fs::exists(beside, failed) ? beside : registered).getClassObject;
}

}  // namespace

platform::GetClassObject loadControlModule() {
    static const platform::GetClassObject found = findControlModule(platform::systemRegistry());
    return found;
}

fs::path moduleBesideProgram() {
    return platform::programFolder() / platform::moduleFileName();
}

HRESULT registerModule(bool registered) {
    const platform::ModuleExports module = load(moduleBesideProgram());
    return registered ? module.registerServer() : module.unregisterServer();
}

}  // namespace ovaline::host
