// Pictures that a control or a page draws of itself.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "host/control_host.h"
#include "platform/drawing.h"

namespace ovaline::host {

/// Most pixels of a picture: they take 400 MB.
constexpr std::int64_t kMostPicturePixels = 100'000'000;

/// The picture is the canvas from (0, 0) to the rectangle's right and bottom.
struct PictureRequest {
    platform::PictureKind kind = platform::PictureKind::Png;
    RECTL rectangle = {0, 0, 400, 300};  ///< pixels, to draw into
    float pixelsPerInch = 96;
    platform::Argb ground = platform::kOpaqueWhite;
};

/// The kind of picture that the ending of a file's name picks; none where it picks no picture.
std::optional<platform::PictureKind> pictureKindOf(const std::filesystem::path& file);

/// What became of a picture.
struct DrawnPicture {
    HRESULT hr = S_OK;
    std::string file;  ///< the bytes, where the control has drawn
};

/// Makes a picture of what `draw` draws on its device context. Throws Failure where it is too large to make.
DrawnPicture drawPicture(const PictureRequest& request, const std::function<HRESULT(HDC dc)>& draw);

/// The same of what the control draws of itself into the rectangle.
DrawnPicture drawPicture(HostedControl& control, const PictureRequest& request);

/// The rectangle that holds all of a control's result at that resolution, with a margin for lines that reach over its
/// edge.
RECTL wholeResult(HostedControl& control, double pixelsPerInch);

}  // namespace ovaline::host
