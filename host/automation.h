// The automation protocol: one JSON object a line in, one a line out.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "host/automation_page.h"
#include "host/control_host.h"
#include "host/json_text.h"
#include "platform/registry.h"

namespace ovaline::host {

/// The controls of one run and the answers to its lines.
class Automation {
public:
    explicit Automation(ModuleSource module, platform::Registry& registry = platform::systemRegistry())
        : module_(std::move(module)), registry_(&registry) {}

    /// The answer to one line, without its newline. A line that is not understood is answered with an "error".
    std::string answer(std::string_view line);

    /// Whether every line so far was understood.
    bool understoodAll() const { return understoodAll_; }

private:
    std::string answerTo(const Json& request);
    /// A control and its pages, which are closed before it goes.
    struct Station {
        std::unique_ptr<HostedControl> control;  ///< null until a line needs it
        OpenPages pages;
    };

    Station& stationFor(const Json& request);
    HostedControl& controlFor(const Json& request);

    ModuleSource module_;
    platform::Registry* registry_;
    std::map<std::string, Station> stations_;
    bool understoodAll_ = true;
};

}  // namespace ovaline::host
