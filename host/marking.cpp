#include "host/marking.h"

#include <cmath>
#include <string>

#include "host/failure.h"
#include "output/vector_record.h"

namespace ovaline::host {

namespace {

constexpr double kFurthest = 1e6;  // millimetres

double distance(Point a, Point b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

Point moved(Point point, Point by) {
    return {point.x + by.x, point.y + by.y};
}

[[noreturn]] void refuseRecord(std::size_t index) {
    throw Failure("record " + std::to_string(index) + " of the control's vector stream is out of place");
}

void readStrokes(std::span<const std::byte> stream, double dotsPerMillimetre, Marking& marking) {
    for (std::size_t at = 0; stream.size() - at >= kVectorRecordSize; at += kVectorRecordSize) {
        const VectorRecord record = decode(stream.data() + at);
        if (record.code == kEndRecord.code) return;
        const bool begins = record.code == 'u' || record.code == 'U';
        const bool hatch = record.code == 'U' || record.code == 'D';
        if (!begins && !hatch && record.code != 'd' && record.code != 'x') refuseRecord(at / kVectorRecordSize);
        const Section section = hatch ? Section::Hatch : Section::Outline;
        if (begins)
            marking.strokes.push_back({section, marking.points.size(), 0});
        else if (marking.strokes.empty() || marking.strokes.back().section != section)
            refuseRecord(at / kVectorRecordSize);
        marking.points.push_back({record.x / dotsPerMillimetre, record.y / dotsPerMillimetre});
        ++marking.strokes.back().count;
    }
    throw Failure("the control's vector stream has no end record");
}

std::vector<Point> copiesOf(const Array& array) {
    std::vector<Point> copies;
    for (int row = 0; row < array.rows; ++row)
        for (int column = 0; column < array.columns; ++column)
            copies.push_back({column * array.columnOffset, row * array.rowOffset});
    return copies;
}

Box boxOf(const Marking& marking, const Placement& placement) {
    Box one;
    one.include({0, 0});
    one.include({placement.width, placement.height});
    for (const Point point : marking.points) one.include(point);
    Box all;
    for (const Point copy : marking.copies) {
        all.include(moved({one.left, one.top}, copy));
        all.include(moved({one.right, one.bottom}, copy));
    }
    return all;
}

}  // namespace

Marking readMarking(std::span<const std::byte> stream, const Placement& placement) {
    Marking marking;
    readStrokes(stream, placement.dotsPerMillimetre, marking);
    marking.copies = copiesOf(placement.array);
    // A comparison with NaN is false and leaves it out of a box, so points are looked at one by one first.
    const auto isNear = [](Point point) { return std::abs(point.x) <= kFurthest && std::abs(point.y) <= kFurthest; };
    const bool near = std::ranges::all_of(marking.points, isNear) && std::ranges::all_of(marking.copies, isNear);
    marking.box = boxOf(marking, placement);
    if (!near || !isNear({marking.box.left, marking.box.top}) || !isNear({marking.box.right, marking.box.bottom}))
        throw Failure(
            "the result is more than a kilometre wide or has no finite size, check the sizes in the settings");
    return marking;
}

Totals totalsOf(const Marking& marking) {
    Totals one;
    for (std::size_t i = 0; i < marking.strokes.size(); ++i) {
        const Stroke& stroke = marking.strokes[i];
        const std::span<const Point> points = marking.pointsOf(stroke);
        for (std::size_t j = 1; j < points.size(); ++j) one.marked += distance(points[j - 1], points[j]);
        if (i > 0) one.travelled += distance(marking.pointsOf(marking.strokes[i - 1]).back(), points.front());
        if (stroke.section == Section::Outline) ++one.figures;
        if (stroke.section == Section::Hatch && stroke.count > 1) ++one.hatchLines;
    }
    const std::size_t copies = marking.copies.size();
    Totals all = {one.figures * copies, one.hatchLines * copies, one.marked * static_cast<double>(copies),
                  one.travelled * static_cast<double>(copies)};
    if (marking.strokes.empty()) return all;
    for (std::size_t i = 1; i < copies; ++i)
        all.travelled += distance(moved(marking.points.back(), marking.copies[i - 1]),
                                  moved(marking.points.front(), marking.copies[i]));
    return all;
}

}  // namespace ovaline::host
