// What a person should know before a job is marked: marking cannot be undone, and the control reports none of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/control_host.h"
#include "host/job.h"

namespace ovaline::host {

/// A line for each setting that `control`, which has the job, holds otherwise than it was given.
std::vector<std::string> heldOtherwise(INorvel_OvalineCtrlTable& control, const Job& job);

/// A line where the control's font is not installed and another one is marked; empty where all is well.
std::string fontWarning(INorvel_OvalineCtrlTable& control);

/// A line where glyphs of the text are left out because the ellipse has no room for them; empty where all is well.
/// `figures` is the number of outline figures of the job's result. It is compared with what a second control lays out
/// for the same job on an ellipse that has room for everything.
std::string roomWarning(platform::GetClassObject module, Job& job, std::size_t figures);

/// Outline figures that the control's result has, whether they are marked or not.
std::size_t figuresOf(INorvel_OvalineCtrlTable& control);

/// Glyphs that one copy of a static text marks; no value where the copies have texts of their own.
std::optional<std::size_t> glyphsOf(INorvel_OvalineCtrlTable& control);

}  // namespace ovaline::host
