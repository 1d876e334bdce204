// The "page" lines of the automation protocol: pages without a window, and what a person does to them.
#pragma once

#include <array>
#include <functional>
#include <memory>

#include "host/hosted_page.h"
#include "host/json_text.h"

namespace ovaline::host {

/// The pages that are open on one control: the text settings page and the serial number page, each at most once.
using OpenPages = std::array<std::unique_ptr<HostedPage>, 2>;

/// What a line on a control's page may need.
struct PageLineContext {
    OpenPages& pages;
    /// Gives the control; it is created at the first line that needs it, so it is asked for when a page opens.
    std::function<HostedControl&()> control;
    const ModuleSource& module;
};

/// Does what the line says and appends the status and what it answers. Throws Failure where the line is not understood,
/// the page is not open, or a person could not do that; nothing has changed then.
void performPage(const Json& request, const PageLineContext& context, AnswerLine& answer);

}  // namespace ovaline::host
