// The file formats that `mark` writes.
#pragma once

#include <filesystem>
#include <string_view>

namespace ovaline::host {

enum class Format { Stream, Records, Svg, Dxf, Gcode, Png, Pdf, Pbm };

/// The names of the formats, which are their file endings too, for messages.
inline constexpr std::string_view kFormatNames = "ovl, json, svg, dxf, gcode, png, pdf, pbm";

/// The format of that name, case aside. Throws Failure where this version does not write it.
Format formatOf(std::string_view name);

/// The format that the ending of a file's name picks.
Format formatOfFile(const std::filesystem::path& file);

/// Whether a file of that format repeats the copies of a static text in full; the others hold what the control wrote.
constexpr bool holdsAllCopies(Format format) {
    return format != Format::Stream && format != Format::Records && format != Format::Pbm;
}

}  // namespace ovaline::host
