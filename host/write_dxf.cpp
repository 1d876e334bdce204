#include <string>
#include <string_view>

#include "host/decimal.h"
#include "host/writers.h"

namespace ovaline::host {

namespace {

void appendGroup(std::string& out, std::string_view code, std::string_view value) {
    out += code;
    out.push_back('\n');
    out += value;
    out.push_back('\n');
}

void appendCoordinate(std::string& out, std::string_view code, double value) {
    out += code;
    out.push_back('\n');
    appendMillimetres(out, value);
    out.push_back('\n');
}

void appendPoint(std::string& out, std::string_view codeX, std::string_view codeY, Point point) {
    appendCoordinate(out, codeX, point.x);
    appendCoordinate(out, codeY, point.y);
}

void appendLayer(std::string& out, std::string_view name, std::string_view colour) {
    appendGroup(out, "0", "LAYER");
    appendGroup(out, "2", name);
    appendGroup(out, "70", "0");
    appendGroup(out, "62", colour);
    appendGroup(out, "6", "CONTINUOUS");
}

void appendTables(std::string& out) {
    appendGroup(out, "0", "SECTION");
    appendGroup(out, "2", "TABLES");
    appendGroup(out, "0", "TABLE");
    appendGroup(out, "2", "LTYPE");
    appendGroup(out, "70", "1");
    appendGroup(out, "0", "LTYPE");
    appendGroup(out, "2", "CONTINUOUS");
    appendGroup(out, "70", "0");
    appendGroup(out, "3", "Solid line");
    appendGroup(out, "72", "65");
    appendGroup(out, "73", "0");
    appendGroup(out, "40", "0");
    appendGroup(out, "0", "ENDTAB");
    appendGroup(out, "0", "TABLE");
    appendGroup(out, "2", "LAYER");
    appendGroup(out, "70", "2");
    appendLayer(out, "OUTLINE", "7");
    appendLayer(out, "HATCH", "5");
    appendGroup(out, "0", "ENDTAB");
    appendGroup(out, "0", "ENDSEC");
}

void appendHeader(std::string& out, const Box& box) {
    appendGroup(out, "0", "SECTION");
    appendGroup(out, "2", "HEADER");
    appendGroup(out, "9", "$ACADVER");
    appendGroup(out, "1", "AC1009");
    appendGroup(out, "9", "$EXTMIN");
    appendPoint(out, "10", "20", {0, 0});
    appendGroup(out, "9", "$EXTMAX");
    appendPoint(out, "10", "20", {box.width(), box.height()});
    appendGroup(out, "0", "ENDSEC");
}

void appendLine(std::string& out, std::string_view layer, Point from, Point to) {
    appendGroup(out, "0", "LINE");
    appendGroup(out, "8", layer);
    appendPoint(out, "10", "20", from);
    appendPoint(out, "11", "21", to);
}

void appendPolyline(std::string& out, std::string_view layer, std::span<const Point> points, Point copy,
                    const Marking& marking) {
    const bool closed = isClosed(points);
    appendGroup(out, "0", "POLYLINE");
    appendGroup(out, "8", layer);
    appendGroup(out, "66", "1");
    // The entity's own point is required and always zero.
    appendGroup(out, "10", "0");
    appendGroup(out, "20", "0");
    appendGroup(out, "30", "0");
    appendGroup(out, "70", closed ? "1" : "0");
    for (const Point point : points.first(points.size() - (closed ? 1 : 0))) {
        appendGroup(out, "0", "VERTEX");
        appendGroup(out, "8", layer);
        appendPoint(out, "10", "20", marking.upright(point, copy));
    }
    appendGroup(out, "0", "SEQEND");
    appendGroup(out, "8", layer);
}

}  // namespace

void writeDxf(const Marking& marking, Sink& sink) {
    std::string text;
    appendHeader(text, marking.box);
    appendTables(text);
    appendGroup(text, "0", "SECTION");
    appendGroup(text, "2", "ENTITIES");
    for (const Point copy : marking.copies) {
        for (const Stroke& stroke : marking.strokes) {
            const std::span<const Point> points = marking.pointsOf(stroke);
            const std::string_view layer = stroke.section == Section::Outline ? "OUTLINE" : "HATCH";
            if (points.size() == 2)
                appendLine(text, layer, marking.upright(points[0], copy), marking.upright(points[1], copy));
            if (points.size() > 2) appendPolyline(text, layer, points, copy, marking);
            sink.append(text);
            text.clear();
        }
    }
    appendGroup(text, "0", "ENDSEC");
    appendGroup(text, "0", "EOF");
    sink.append(text);
}

}  // namespace ovaline::host
