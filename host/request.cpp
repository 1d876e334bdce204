#include "host/request.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/failure.h"

namespace ovaline::host {

const std::string& textMember(const Json& request, std::string_view name) {
    const auto member = request.find(std::string(name));
    if (member == request.end() || !member->is_string()) throw Failure("\"" + std::string(name) + "\" takes a text");
    return member->get_ref<const std::string&>();
}

void allowOnly(const Json& request, std::string_view verb, std::initializer_list<std::string_view> others) {
    for (const auto& [name, value] : request.items()) {
        const bool known =
            name == verb || name == "on" || std::find(others.begin(), others.end(), name) != others.end();
        if (!known) throw Failure("this line takes no \"" + name + "\"");
    }
}

}  // namespace ovaline::host
