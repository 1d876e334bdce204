// The commands of the program. Each returns its exit status and throws Failure where it cannot do its work.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "host/control_host.h"
#include "host/job.h"

namespace ovaline::host {

struct MarkOptions {
    JobSources job;
    std::string output;  ///< a file, or "-" for standard output
    std::optional<std::string> format;
    std::optional<double> speed;  ///< millimetres per second while marking
    double travelSpeed = 2000;    ///< millimetres per second between strokes
    double feed = 1500;           ///< G-code: millimetres per minute while marking
    int power = 300;              ///< G-code: S word while marking, 0 to 1000
    double picturePixelsPerInch = 300;
    double step = 40;  ///< side of a raster's pixel in micrometres
    std::optional<int> advance;  ///< number of runs with a serial number each
    bool printTexts = false;     ///< the text of every copy, before it is marked
    bool quiet = false;          ///< no summary of what is marked
};

/// The marking speed that the time is stated for where none is given, in millimetres per second.
inline constexpr double kUsualSpeed = 500;

int markCommand(const MarkOptions& options, const ModuleSource& module);

/// `script` is the file of lines; standard input without it.
int runCommand(const std::optional<std::filesystem::path>& script, const ModuleSource& module);

struct DateOptions {
    std::optional<std::string> pattern;
    std::optional<std::string> at;  ///< a time in place of the clock's
    std::int32_t offset = 0;        ///< days
    bool list = false;              ///< the fixed formats in place of a pattern
};

/// Prints what a date pattern gives. No control is asked: it gives no text back.
int dateCommand(const DateOptions& options);

/// Registers the module beside the program, or removes its registration, and says where.
int registerCommand(bool registered);

int fontsCommand(bool asJson);
int propertiesCommand(bool asJson, const ModuleSource& module);

}  // namespace ovaline::host
