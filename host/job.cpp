#include "host/job.h"

#include <cmath>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>

#include "host/failure.h"
#include "host/members.h"
#include "platform/paths.h"

namespace ovaline::host {

namespace {

/// Says where a failure happened.
void in(const std::string& origin, const std::function<void()>& work) {
    try {
        work();
    } catch (const Failure& failure) {
        throw Failure(origin + ": " + failure.what());
    }
}

std::string readText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text;
    char block[4096];
    while (file.read(block, sizeof block), file.gcount() > 0)
        text.append(block, static_cast<std::size_t>(file.gcount()));
    if (!file.is_open() || file.bad()) throw Failure("the file cannot be read");
    return text;
}

/// Converts with `convert`, and takes the place of an earlier setting of the same property.
void addSetting(Job& job, std::string_view name, const std::string& origin,
                const std::function<void(const Member&, VARIANT&)>& convert) {
    Setting setting{&findProperty(name), Arguments(1), origin};
    VARIANT& value = setting.value[0];
    convert(*setting.property, value);
    // The control stores such a number too, but there is nothing that it could mark.
    if (value.vt == VT_R4 && !std::isfinite(value.fltVal)) throw Failure(std::string(name) + " takes a finite number");
    std::erase_if(job.settings, [&](const Setting& earlier) { return earlier.property == setting.property; });
    job.settings.push_back(std::move(setting));
}

void readJobFile(const std::filesystem::path& path, Job& job) {
    const Json document = parseJson(readText(path));
    if (!document.is_object()) throw Failure("a job is a JSON object with \"measurement\" and \"settings\"");
    for (const auto& [name, value] : document.items()) {
        if (name == "measurement") {
            if (value != "mm" && value != "inch") throw Failure("\"measurement\" takes \"mm\" or \"inch\"");
            job.inches = value == "inch";
        } else if (name == "settings") {
            if (!value.is_object()) throw Failure("\"settings\" takes an object of names and values");
            for (const auto& [property, setting] : value.items())
                addSetting(job, property, platform::pathText(path),
                           [&, &given = setting](const Member& member, VARIANT& target) {
                               store(given, member.type, member.name, target);
                           });
        } else {
            throw Failure("a job has no \"" + name + "\", only \"measurement\" and \"settings\"");
        }
    }
}

void readAssignment(std::string_view assignment, const std::string& origin, Job& job) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string_view::npos) throw Failure("an assignment is NAME=VALUE");
    addSetting(job, assignment.substr(0, equals), origin, [&](const Member& member, VARIANT& target) {
        storeText(assignment.substr(equals + 1), member.type, member.name, target);
    });
}

}  // namespace

Job readJob(const JobSources& sources) {
    Job job;
    if (sources.file) in(platform::pathText(*sources.file), [&] { readJobFile(*sources.file, job); });
    for (const std::string& assignment : sources.assignments) {
        const std::string origin = "--set " + assignment;
        in(origin, [&] { readAssignment(assignment, origin, job); });
    }
    if (sources.text)
        in("--text", [&] {
            addSetting(job, "TextData", "--text", [&](const Member& member, VARIANT& target) {
                storeText(*sources.text, member.type, member.name, target);
            });
        });
    return job;
}

}  // namespace ovaline::host
