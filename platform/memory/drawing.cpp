#include "platform/memory/drawing.h"

#include <array>
#include <cstdio>

namespace ovaline::platform {

namespace {

std::string number(float value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g", static_cast<double>(value));
    return text.data();
}

std::string text(const DrawingBox& box) {
    return number(box.X) + "," + number(box.Y) + " " + number(box.Width) + "x" + number(box.Height);
}

std::string text(const DrawingPath& path) {
    constexpr std::uint8_t kKind = 0x07;
    constexpr std::uint8_t kClosed = 0x80;
    std::string all;
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        const std::uint8_t kind = path.types[i] & kKind;
        if (!all.empty()) all += ' ';
        all += kind == 0 ? 'M' : kind == 1 ? 'L' : 'C';
        all += number(path.points[i].X) + "," + number(path.points[i].Y);
        if (path.types[i] & kClosed) all += " Z";
    }
    return all;
}

std::string text(Argb colour) {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", static_cast<unsigned>(colour));
    return digits.data();
}

std::string text(const Pen& pen) {
    constexpr std::array<const char*, 5> kDashes = {"solid", "dash", "dot", "dashdot", "dashdotdot"};
    return text(pen.colour) + " " + number(pen.width) + " " + kDashes[static_cast<std::size_t>(pen.dash)];
}

}  // namespace

void RecordingCanvas::setSmoothing(bool smooth) {
    log.push_back(smooth ? "smooth" : "rough");
}
void RecordingCanvas::resetClip() {
    log.push_back("unclip");
}
void RecordingCanvas::setClip(const DrawingBox& box) {
    log.push_back("clip box " + text(box));
}
void RecordingCanvas::setClip(const DrawingPath& path) {
    log.push_back("clip path " + text(path));
}
void RecordingCanvas::setClipOutside(const DrawingBox& box, const DrawingPath& path) {
    log.push_back("clip box " + text(box) + " outside " + text(path));
}
void RecordingCanvas::addToClip(const DrawingPath& path) {
    log.push_back("clip also " + text(path));
}
void RecordingCanvas::fill(const DrawingPath& path, Argb colour) {
    log.push_back("fill " + text(colour) + " " + text(path));
}
void RecordingCanvas::fillOutside(const DrawingBox& box, const DrawingPath& path, Argb colour) {
    log.push_back("fill " + text(colour) + " box " + text(box) + " outside " + text(path));
}
void RecordingCanvas::fillEllipse(const DrawingBox& box, Argb colour) {
    log.push_back("fill " + text(colour) + " ellipse " + text(box));
}
void RecordingCanvas::stroke(const DrawingPath& path, const Pen& pen) {
    log.push_back("stroke " + text(pen) + " " + text(path));
}

}  // namespace ovaline::platform
