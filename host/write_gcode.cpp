#include <string>
#include <string_view>

#include "host/decimal.h"
#include "host/writers.h"

namespace ovaline::host {

namespace {

void appendTarget(std::string& out, std::string_view motion, Point target) {
    out += motion;
    out += " X";
    appendMillimetres(out, target.x);
    out += " Y";
    appendMillimetres(out, target.y);
}

/// The one comment. It holds no text of the job: a controller acts on some characters even within a comment.
void appendComment(std::string& out, const Marking& marking, const MachineSettings& machine) {
    const Totals totals = totalsOf(marking);
    out += "; ovaline: " + std::to_string(totals.figures) + " figures, " + std::to_string(totals.hatchLines) +
           " hatch lines, feed ";
    appendMillimetres(out, machine.feed);
    out += " mm/min, power S" + std::to_string(machine.power) + "\n";
}

}  // namespace

void writeGcode(const Marking& marking, const MachineSettings& machine, Sink& sink) {
    std::string text;
    appendComment(text, marking, machine);
    text += "G21\nG90\nG94 F";
    appendMillimetres(text, machine.feed);
    // M4 makes the power follow the speed. It begins with none, and every move sets it to none again, so that the beam
    // is off while the head travels even on a controller that is not in laser mode.
    text += "\nM4 S0\n";
    const std::string power = " S" + std::to_string(machine.power) + "\n";
    for (const Point copy : marking.copies) {
        for (const Stroke& stroke : marking.strokes) {
            if (stroke.count < 2) continue;
            const std::span<const Point> points = marking.pointsOf(stroke);
            for (std::size_t i = 0; i < points.size(); ++i) {
                appendTarget(text, i == 0 ? "G0" : "G1", marking.upright(points[i], copy));
                text += i == 0 ? " S0\n" : i == 1 ? power : "\n";
            }
            sink.append(text);
            text.clear();
        }
    }
    text += "M5\n";
    sink.append(text);
}

}  // namespace ovaline::host
