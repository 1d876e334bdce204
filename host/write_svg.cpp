#include <algorithm>
#include <string>

#include "host/decimal.h"
#include "host/writers.h"

namespace ovaline::host {

namespace {

/// A line of no width would not be seen, but the beam marks it.
constexpr double kThinnestLine = 0.01;  // millimetres

/// Readers have limits for the length of an attribute; a path of this many strokes stays far below them.
constexpr std::size_t kStrokesPerPath = 500;

void appendPair(std::string& out, double x, double y) {
    appendMillimetres(out, x);
    out.push_back(' ');
    appendMillimetres(out, y);
}

void appendStroke(std::string& out, std::span<const Point> points, Point copy) {
    const bool closed = isClosed(points);
    out.push_back('M');
    appendPair(out, points.front().x + copy.x, points.front().y + copy.y);
    for (const Point point : points.subspan(1, points.size() - (closed ? 2 : 1))) {
        out.push_back('L');
        appendPair(out, point.x + copy.x, point.y + copy.y);
    }
    if (closed) out.push_back('Z');
}

void writeGroup(const Marking& marking, Section section, const char* id, double width, Sink& sink) {
    std::string text = "<g id=\"";
    text += id;
    text += "\" stroke-width=\"";
    appendMillimetres(text, width);
    text += "\">\n";
    std::size_t strokes = 0;
    for (const Point copy : marking.copies) {
        for (const Stroke& stroke : marking.strokes) {
            if (stroke.section != section || stroke.count < 2) continue;
            text += strokes % kStrokesPerPath == 0 ? (strokes == 0 ? "<path d=\"" : "\"/>\n<path d=\"") : "";
            ++strokes;
            appendStroke(text, marking.pointsOf(stroke), copy);
            sink.append(text);
            text.clear();
        }
    }
    text += strokes == 0 ? "</g>\n" : "\"/>\n</g>\n";
    sink.append(text);
}

}  // namespace

void writeSvg(const Marking& marking, const LineWidths& widths, Sink& sink) {
    const double outline = std::max(widths.outline, kThinnestLine);
    const double hatch = std::max(widths.hatch, kThinnestLine);
    // Lines at the edge reach beyond it by half their width.
    const double margin = std::max(outline, hatch) / 2;
    const Box& box = marking.box;
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
    appendMillimetres(text, box.width() + 2 * margin);
    text += "mm\" height=\"";
    appendMillimetres(text, box.height() + 2 * margin);
    text += "mm\" viewBox=\"";
    appendPair(text, box.left - margin, box.top - margin);
    text.push_back(' ');
    appendPair(text, box.width() + 2 * margin, box.height() + 2 * margin);
    text += "\" fill=\"none\" stroke=\"#000\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
    sink.append(text);
    writeGroup(marking, Section::Outline, "outline", outline, sink);
    writeGroup(marking, Section::Hatch, "hatch", hatch, sink);
    sink.append("</svg>\n");
}

}  // namespace ovaline::host
