#include "host/members.h"

#include "host/failure.h"
#include "host/suggestion.h"

namespace ovaline::host {

namespace {

const Member& findOrFail(std::string_view name, bool property) {
    const Member* member = findMember(name, true);
    if (member && isProperty(*member) == property) return *member;
    const std::string kind = property ? "property" : "method";
    if (member) throw Failure(std::string(name) + " is no " + kind + (property ? ", call it" : ", put or get it"));
    std::vector<std::string_view> names;
    for (const Member& known : members())
        if (isProperty(known) == property) names.push_back(known.name);
    throw Failure("there is no " + kind + " " + std::string(name) + suggestion(name, names));
}

}  // namespace

bool isProperty(const Member& member) {
    return member.kind != MemberKind::Method;
}

const Member& findProperty(std::string_view name) {
    return findOrFail(name, true);
}

const Member& findMethod(std::string_view name) {
    return findOrFail(name, false);
}

}  // namespace ovaline::host
