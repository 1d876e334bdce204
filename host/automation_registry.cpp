#include "host/automation_registry.h"

#include <limits>
#include <nlohmann/json.hpp>
#include <vector>

#include "control/interface/host_settings.h"
#include "host/control_module.h"
#include "host/failure.h"
#include "host/json_values.h"
#include "host/request.h"

namespace ovaline::host {

namespace {

using platform::RegistryChange;

void requireReadable(const platform::Registry& registry) {
    if (const std::string problem = registry.problem(); !problem.empty()) throw Failure(problem);
}

void setLanguage(const Json& request, platform::Registry& registry, AnswerLine& answer) {
    allowOnly(request, "lang", {});
    RegistryChange change{
        RegistryChange::Kind::RemoveValue, std::u16string(kHostSettingsKey), std::u16string(kHostLanguageName), {}};
    if (const Json& language = request.at("lang"); !language.is_null()) {
        change.kind = RegistryChange::Kind::SetValue;
        change.value =
            static_cast<std::uint32_t>(wholeNumber(language, 0, std::numeric_limits<std::uint32_t>::max(), "\"lang\""));
    }
    requireReadable(registry);
    answer.status(registry.apply({&change, 1}));
}

void look(const Json& request, const platform::Registry& registry, AnswerLine& answer) {
    allowOnly(request, "registry", {"name", "list"});
    textMember(request, "registry");
    const std::u16string key = textOf(request.at("registry"));
    if (!platform::isRegistryKey(key))
        throw Failure("\"registry\" takes a key under HKEY_CLASSES_ROOT or HKEY_CURRENT_USER");
    if (request.contains("name") == request.contains("list"))
        throw Failure("a line with registry takes either a \"name\" or \"list\"");
    if (request.contains("list")) {
        if (request.at("list") != true) throw Failure("\"list\" takes true");
        requireReadable(registry);
        const auto content = registry.list(key);
        answer.status(S_OK);
        if (content) {
            appendJsonTexts(answer.member("keys"), content->keys);
            appendJsonTexts(answer.member("names"), content->names);
        } else {
            answer.member("keys") += "null";
            answer.member("names") += "null";
        }
        return;
    }
    textMember(request, "name");
    requireReadable(registry);
    const auto held = registry.value(key, textOf(request.at("name")));
    answer.status(S_OK);
    std::string& value = answer.member("value");
    if (!held) {
        value += "null";
    } else if (const auto* text = std::get_if<std::u16string>(&*held)) {
        appendJsonText(value, *text);
    } else {
        value += std::to_string(std::get<std::uint32_t>(*held));
    }
}

void setRegistered(const Json& request, AnswerLine& answer) {
    allowOnly(request, "register", {});
    const Json& registered = request.at("register");
    if (!registered.is_boolean()) throw Failure("\"register\" takes true or false");
    answer.status(registerModule(registered.get<bool>()));
}

}  // namespace

bool isRegistryVerb(std::string_view verb) {
    return verb == "lang" || verb == "registry" || verb == "register";
}

std::string answerRegistryLine(std::string_view verb, const Json& request, platform::Registry& registry) {
    AnswerLine answer;
    if (verb == "lang") {
        setLanguage(request, registry, answer);
    } else if (verb == "registry") {
        look(request, registry, answer);
    } else {
        setRegistered(request, answer);
    }
    return std::move(answer).finish();
}

}  // namespace ovaline::host
