// The "draw" lines of the automation protocol.
#pragma once

#include <filesystem>
#include <functional>

#include "host/control_host.h"
#include "host/json_text.h"
#include "host/picture.h"

namespace ovaline::host {

struct PictureFile {
    std::filesystem::path path;
    platform::PictureKind kind;
};

/// The file that the line's "draw" names. Throws Failure where its ending is of no picture.
PictureFile pictureFileOf(const Json& request);

/// Writes what was drawn. Throws Failure where the file can't be written; no half-written file is left.
void writePicture(const PictureFile& file, const DrawnPicture& drawn);

/// Has the control draw itself into the line's file and appends the status. The control is asked for when the line is
/// understood. Throws Failure where it is not, or where the file can't be written; no half-written file is left.
void performDraw(const Json& request, const std::function<HostedControl&()>& control, AnswerLine& answer);

}  // namespace ovaline::host
