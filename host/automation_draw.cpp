#include "host/automation_draw.h"

#include <charconv>
#include <nlohmann/json.hpp>

#include "host/failure.h"
#include "host/json_values.h"
#include "host/output_file.h"
#include "host/request.h"
#include "platform/paths.h"

namespace ovaline::host {

namespace {

/// The line's whole number of that name, or the default.
LONG lengthOf(const Json& request, const char* name, LONG least, LONG usual) {
    const auto given = request.find(name);
    if (given == request.end()) return usual;
    // Sums of two lengths stay whole numbers of 32 bits.
    constexpr std::int64_t kFurthest = 1 << 30;
    return static_cast<LONG>(wholeNumber(*given, least, kFurthest, "\"" + std::string(name) + "\""));
}

float resolutionOf(const Json& request, float usual) {
    const auto given = request.find("dpi");
    if (given == request.end()) return usual;
    constexpr double kFinest = 1e6;
    const double dpi = given->is_number() ? given->get<double>() : 0;
    if (!(dpi >= 1 && dpi <= kFinest)) throw Failure("\"dpi\" takes a number from 1 to 1000000");
    return static_cast<float>(dpi);
}

platform::Argb groundOf(const Json& request, platform::Argb usual) {
    const auto given = request.find("background");
    if (given == request.end() || given->is_null()) return usual;
    const std::string text = given->is_string() ? given->get<std::string>() : std::string();
    constexpr std::size_t kDigits = 6;
    std::uint32_t colour = 0;
    const char* const end = text.data() + text.size();
    const bool isColour =
        text.size() == 1 + kDigits && text[0] == '#' && std::from_chars(text.data() + 1, end, colour, 16).ptr == end;
    if (!isColour) throw Failure(R"("background" takes a colour such as "#ffffff", or null)");
    return platform::kOpaqueBlack | colour;
}

}  // namespace

PictureFile pictureFileOf(const Json& request) {
    const std::filesystem::path path = platform::pathOf(textMember(request, "draw"));
    const auto kind = pictureKindOf(path);
    if (!kind) throw Failure("draw writes a .png, .svg or .pdf file, not " + platform::pathText(path));
    return {path, *kind};
}

void writePicture(const PictureFile& file, const DrawnPicture& drawn) {
    OutputFile output(file.path);
    output.append(drawn.file);
    output.close();
    output.commit();
}

void performDraw(const Json& request, const std::function<HostedControl&()>& control, AnswerLine& answer) {
    allowOnly(request, "draw", {"width", "height", "left", "top", "dpi", "background"});
    const PictureFile file = pictureFileOf(request);
    PictureRequest picture;
    picture.kind = file.kind;
    RECTL& rectangle = picture.rectangle;
    const LONG width = lengthOf(request, "width", 0, rectangle.right);
    const LONG height = lengthOf(request, "height", 0, rectangle.bottom);
    constexpr LONG kFurthest = -(1 << 30);
    rectangle.left = lengthOf(request, "left", kFurthest, 0);
    rectangle.top = lengthOf(request, "top", kFurthest, 0);
    rectangle.right = rectangle.left + width;
    rectangle.bottom = rectangle.top + height;
    picture.pixelsPerInch = resolutionOf(request, picture.pixelsPerInch);
    picture.ground = groundOf(request, picture.ground);

    const DrawnPicture drawn = drawPicture(control(), picture);
    if (SUCCEEDED(drawn.hr)) writePicture(file, drawn);
    answer.status(drawn.hr);
}

}  // namespace ovaline::host
