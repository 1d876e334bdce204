#include <nlohmann/json.hpp>

#include "host/commands.h"
#include "host/control_host.h"
#include "host/json_values.h"
#include "host/members.h"
#include "host/output_file.h"
#include "host/text_encoding.h"
#include "platform/fonts.h"

namespace ovaline::host {

namespace {

/// A font is single-stroke by its family's name alone, as the control sees it.
std::string_view styleOf(std::u16string_view family) {
    return family.find(u"Filament") == std::u16string_view::npos ? "TrueType" : "SingleStroke";
}

/// A property's default as a job would give it: an enumeration by its value's name, a flag as true or false.
std::string defaultOf(const Member& property, INorvel_OvalineCtrlTable& control) {
    Arguments held(1);
    require(property.get(control, held.all()), "getting " + std::string(property.name));
    std::string text;
    if (property.type.vt == VT_BOOL) return held[0].boolVal ? "true" : "false";
    if (property.type.enumeration)
        for (const EnumValue& value : property.type.enumeration->values)
            if (value.value == held[0].lVal) return "\"" + std::string(value.name) + "\"";
    appendValue(text, held[0]);
    return text;
}

std::string valuesOf(const Enumeration& enumeration, std::string_view separator, std::string_view assignment,
                     std::string_view quote) {
    std::string text;
    for (const EnumValue& value : enumeration.values) {
        if (!text.empty()) text += separator;
        ((text += quote) += value.name) += quote;
        (text += assignment) += std::to_string(value.value);
    }
    return text;
}

std::string propertyAsJson(const Member& property, const std::string& initial) {
    AnswerLine line;
    line.text("name", property.name);
    line.text("type", typeName(property.type));
    line.member("default") += initial;
    if (property.type.enumeration)
        line.member("values") += "{" + valuesOf(*property.type.enumeration, ", ", ": ", "\"") + "}";
    return std::move(line).finish();
}

std::string propertyAsText(const Member& property, const std::string& initial) {
    std::string line(property.name);
    ((line += '\t') += typeName(property.type)) += '\t';
    line += initial;
    if (property.type.enumeration) line += '\t' + valuesOf(*property.type.enumeration, " ", "=", "");
    return line;
}

/// One item a line; as JSON, the lines are the items of one list.
void printList(const std::vector<std::string>& items, bool asJson) {
    StandardOutput out;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (asJson) out.append(i == 0 ? "[\n" : ",\n");
        out.append(items[i]);
        if (!asJson) out.append("\n");
    }
    if (asJson) out.append(items.empty() ? "[]\n" : "\n]\n");
    out.flush();
}

}  // namespace

int fontsCommand(bool asJson) {
    std::vector<std::string> items;
    for (const platform::FontFamily& family : platform::systemFonts().families()) {
        if (!asJson) {
            items.push_back(toUtf8(family.name) + "\t" + std::string(styleOf(family.name)));
            continue;
        }
        AnswerLine line;
        appendJsonText(line.member("family"), family.name);
        line.text("style", styleOf(family.name));
        items.push_back(std::move(line).finish());
    }
    printList(items, asJson);
    return 0;
}

int propertiesCommand(bool asJson, const ModuleSource& module) {
    HostedControl control(module());
    std::vector<std::string> items;
    for (const Member& member : members()) {
        if (!isProperty(member)) continue;
        const std::string initial = defaultOf(member, control.table());
        items.push_back(asJson ? propertyAsJson(member, initial) : propertyAsText(member, initial));
    }
    printList(items, asJson);
    return 0;
}

}  // namespace ovaline::host
