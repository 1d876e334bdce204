#include "host/commands.h"
#include "host/control_module.h"
#include "host/failure.h"
#include "host/output_file.h"
#include "platform/paths.h"
#include "platform/registry.h"

namespace ovaline::host {

int registerCommand(bool registered) {
    const platform::Registry& registry = platform::systemRegistry();
    if (const std::string problem = registry.problem(); !problem.empty()) throw Failure(problem);
    if (const HRESULT hr = registerModule(registered); FAILED(hr))
        throw Failure(registry.place() + " cannot be written, status " + statusText(hr) + ", " + registry.remedy());
    StandardOutput out;
    out.append((registered ? "registered " : "unregistered ") + platform::pathText(moduleBesideProgram()) + " in " +
               registry.place() + "\n");
    out.flush();
    return 0;
}

}  // namespace ovaline::host
