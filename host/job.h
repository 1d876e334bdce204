// What `mark` is asked to mark: a job file and what the command line says over it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/json_values.h"

namespace ovaline::host {

/// One property and the value to put.
struct Setting {
    const Member* property;
    Arguments value;     ///< exactly one, of the property's type
    std::string origin;  ///< where it was given, for messages
};

struct Job {
    bool inches = false;
    std::vector<Setting> settings;  ///< in the order in which they are to be put, each property once
};

/// What the command line gives.
struct JobSources {
    std::optional<std::filesystem::path> file;
    std::vector<std::string> assignments;  ///< NAME=VALUE
    std::optional<std::string> text;       ///< for TextData
};

/// Reads the job. Settings keep their order: the file's, then the assignments', then the text; a property that is given
/// again counts where it is given last. Throws Failure, naming file and property, for whatever is not understood.
Job readJob(const JobSources& sources);

}  // namespace ovaline::host
