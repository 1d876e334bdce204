#include <fstream>
#include <iostream>

#include "host/automation.h"
#include "host/commands.h"
#include "host/failure.h"
#include "host/output_file.h"
#include "platform/paths.h"

namespace ovaline::host {

namespace {

/// Some editors begin a UTF-8 file with it.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool isSkipped(std::string_view line) {
    return line.starts_with('#') || line.find_first_not_of(" \t\r") == std::string_view::npos;
}

}  // namespace

int runCommand(const std::optional<std::filesystem::path>& script, const ModuleSource& module) {
    std::ifstream file;
    if (script) {
        file.open(*script, std::ios::binary);
        if (!file) throw Failure(platform::pathText(*script) + " cannot be read, name a file of JSON lines");
    }
    std::istream& lines = script ? static_cast<std::istream&>(file) : std::cin;
    Automation automation(module);
    StandardOutput out;
    bool first = true;
    for (std::string line; std::getline(lines, line); first = false) {
        if (first && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
        if (isSkipped(line)) continue;
        out.append(automation.answer(line));
        out.append("\n");
        out.flush();
    }
    if (lines.bad())
        throw Failure((script ? platform::pathText(*script) : "standard input") + " cannot be read to its end");
    return automation.understoodAll() ? 0 : 1;
}

}  // namespace ovaline::host
