#include "host/automation.h"

#include <array>
#include <new>
#include <nlohmann/json.hpp>

#include "host/automation_calls.h"
#include "host/automation_draw.h"
#include "host/automation_registry.h"
#include "host/failure.h"
#include "host/json_values.h"
#include "host/members.h"
#include "host/request.h"

namespace ovaline::host {

namespace {

/// A line with "page" is about a page whatever it holds beside, "draw" for one.
constexpr std::array<std::string_view, 8> kVerbs = {"page", "put",  "get",      "call",
                                                    "draw", "lang", "registry", "register"};

std::string_view verbOf(const Json& request) {
    if (!request.is_object()) throw Failure("a line is one JSON object");
    std::string_view found;
    for (const std::string_view verb : kVerbs) {
        if (!request.contains(verb)) continue;
        if (verb == "page") return verb;
        if (!found.empty())
            throw Failure("a line holds one of put, get, call, draw, page, lang, registry and register");
        found = verb;
    }
    if (found.empty()) throw Failure("a line holds put, get, call, draw, page, lang, registry or register");
    return found;
}

void appendEvent(std::string& out, const ResizeRequest& resize) {
    const RECT& to = resize.rectangle;
    out += "{\"posRect\": [" + std::to_string(to.left) + ", " + std::to_string(to.top) + ", " +
           std::to_string(to.right) + ", " + std::to_string(to.bottom) + "]}";
}

void appendEvent(std::string& out, const RepaintRequest&) {
    out += "{\"viewChange\": true}";
}

void appendEvent(std::string& out, const StatusChange& change) {
    out += "{\"pageStatus\": " + std::to_string(change.status) + "}";
}

void appendEvent(std::string& out, const MessageBoxShown& box) {
    out += "{\"message\": ";
    appendJsonText(out, box.text);
    out += "}";
}

void appendEvents(AnswerLine& answer, const std::vector<Event>& events) {
    if (events.empty()) return;
    std::string& out = answer.member("events");
    const char* separator = "[";
    for (const Event& event : events) {
        out += separator;
        separator = ", ";
        std::visit([&](const auto& reported) { appendEvent(out, reported); }, event);
    }
    out += "]";
}

}  // namespace

Automation::Station& Automation::stationFor(const Json& request) {
    return stations_[request.contains("on") ? textMember(request, "on") : "control"];
}

HostedControl& Automation::controlFor(const Json& request) {
    std::unique_ptr<HostedControl>& control = stationFor(request).control;
    if (!control) control = std::make_unique<HostedControl>(module_());
    return *control;
}

std::string Automation::answerTo(const Json& request) {
    const std::string_view verb = verbOf(request);
    if (isRegistryVerb(verb)) return answerRegistryLine(verb, request, *registry_);
    const std::string& name = textMember(request, verb);
    AnswerLine answer;
    if (verb == "put") {
        allowOnly(request, verb, {"value"});
        const Member& property = findProperty(name);
        if (!request.contains("value")) throw Failure("a line with put takes a \"value\"");
        Arguments value(1);
        store(request.at("value"), property.type, name, value[0]);
        HostedControl& control = controlFor(request);
        answer.status(property.put(control.table(), value.all()));
        appendEvents(answer, control.takeEvents());
    } else if (verb == "get") {
        allowOnly(request, verb, {});
        const Member& property = findProperty(name);
        HostedControl& control = controlFor(request);
        Arguments value(1);
        const HRESULT hr = property.get(control.table(), value.all());
        answer.status(hr);
        if (SUCCEEDED(hr)) appendValue(answer.member("value"), value[0]);
        appendEvents(answer, control.takeEvents());
    } else if (verb == "page") {
        const auto control = [&]() -> HostedControl& { return controlFor(request); };
        performPage(request, {stationFor(request).pages, control, module_}, answer);
        appendEvents(answer, controlFor(request).takeEvents());
    } else if (verb == "draw") {
        performDraw(
            request, [&]() -> HostedControl& { return controlFor(request); }, answer);
        appendEvents(answer, controlFor(request).takeEvents());
    } else {
        const Member& method = findMethod(name);
        const auto table = [&]() -> INorvel_OvalineCtrlTable& { return controlFor(request).table(); };
        performCall(method, request, table, answer);
        appendEvents(answer, controlFor(request).takeEvents());
    }
    return std::move(answer).finish();
}

std::string Automation::answer(std::string_view line) {
    std::string reason;
    try {
        return answerTo(parseJson(line));
    } catch (const Failure& failure) {
        reason = failure.what();
    } catch (const std::bad_alloc&) {
        reason = "there is not enough memory for this line";
    }
    understoodAll_ = false;
    AnswerLine answer;
    answer.text("error", reason);
    return std::move(answer).finish();
}

}  // namespace ovaline::host
