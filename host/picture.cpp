#include "host/picture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/buffers.h"
#include "host/failure.h"
#include "platform/display.h"
#include "platform/paths.h"

namespace ovaline::host {

namespace {

using platform::PictureKind;

constexpr double kMarginInches = 1.0 / 32;

std::string sizeText(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

void requireSize(std::int64_t width, std::int64_t height) {
    if (width < 1 || height < 1) throw Failure("a picture of " + sizeText(width, height) + " has nothing to draw on");
    const bool tooLong = std::max(width, height) > platform::kMostPixelsAcross;
    if (tooLong || width * height > kMostPicturePixels)
        throw Failure("a picture of " + sizeText(width, height) + " is too large, at most " +
                      std::to_string(platform::kMostPixelsAcross) + " in a row or column and " +
                      std::to_string(kMostPicturePixels / 1'000'000) + " million in all");
}

}  // namespace

std::optional<PictureKind> pictureKindOf(const std::filesystem::path& file) {
    std::string ending = platform::pathText(file.extension());
    std::ranges::transform(ending, ending.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (ending == ".png") return PictureKind::Png;
    if (ending == ".svg") return PictureKind::Svg;
    if (ending == ".pdf") return PictureKind::Pdf;
    return std::nullopt;
}

DrawnPicture drawPicture(const PictureRequest& request, const std::function<HRESULT(HDC dc)>& draw) {
    const RECTL& rectangle = request.rectangle;
    requireSize(rectangle.right, rectangle.bottom);
    if (!platform::offersPictures(request.kind)) throw Failure("pictures are drawn as .png only on this system");
    const auto picture =
        platform::makePicture(request.kind, static_cast<int>(rectangle.right), static_cast<int>(rectangle.bottom),
                              request.pixelsPerInch, request.ground);
    const std::string size = sizeText(rectangle.right, rectangle.bottom);
    if (!picture) throw Failure("there is not enough memory for a picture of " + size);
    DrawnPicture drawn;
    drawn.hr = draw(picture->dc());
    if (FAILED(drawn.hr)) return drawn;
    drawn.file = picture->finish();
    if (drawn.file.empty()) throw Failure("there is not enough memory for a picture of " + size);
    return drawn;
}

DrawnPicture drawPicture(HostedControl& control, const PictureRequest& request) {
    return drawPicture(request, [&](HDC dc) {
        return control.view().Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &request.rectangle, nullptr,
                                   nullptr, 0);
    });
}

RECTL wholeResult(HostedControl& control, double pixelsPerInch) {
    std::array<LONG, 4> screen{};
    const NestedReference left(&screen[0], VT_I4), top(&screen[1], VT_I4), width(&screen[2], VT_I4),
        height(&screen[3], VT_I4);
    require(control.table().GetScreenSize(left.outer(), top.outer(), width.outer(), height.outer()), "GetScreenSize");
    const double margin = std::ceil(kMarginInches * pixelsPerInch);
    const auto lengthOf = [&](LONG length) {
        const double pixels = std::ceil(std::max<LONG>(length, 0) * pixelsPerInch / platform::displayDpi());
        constexpr double kMost = 1 << 30;
        return static_cast<LONG>(std::min(2 * margin + pixels, kMost));
    };
    return {static_cast<LONG>(margin), static_cast<LONG>(margin), lengthOf(screen[2]), lengthOf(screen[3])};
}

}  // namespace ovaline::host
