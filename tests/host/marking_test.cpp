// From the vector stream to strokes, and from strokes to files, which are read back here.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "fake_control.h"
#include "host/failure.h"
#include "host/json_text.h"
#include "host/writers.h"

namespace ovaline::host {
namespace {

using testing::streamOf;

/// What `write` writes to its sink.
template <typename Write>
std::string written(Write write) {
    struct TextSink final : Sink {
        std::string text;
        void deliver(std::string_view bytes) override { text += bytes; }
    } sink;
    write(sink);
    sink.flush();
    return sink.text;
}

// At ten dots a millimetre: a closed triangle, an open line, a single point, two hatch lines.
const std::vector<VectorRecord> kRecords = {{'u', 10, 20}, {'x', 50, 20}, {'d', 50, 50}, {'d', 10, 20}, {'u', 0, 0},
                                            {'d', 0, 30},  {'u', 70, 70}, {'U', 20, 25}, {'D', 40, 25}, {'U', 40, 30},
                                            {'D', 20, 30}, {'U', 1, 1},   kEndRecord};

Marking twoCopies() {
    Placement placement;
    placement.dotsPerMillimetre = 10;
    placement.array = {2, 1, 100, 0};
    placement.width = 8;
    placement.height = 8;
    return readMarking(streamOf(kRecords), placement);
}

/// A marked line: where it runs and in which group or layer.
struct Line {
    std::string layer;
    double x1, y1, x2, y2;
    bool operator==(const Line&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Line& line) {
    return out << line.layer << " " << line.x1 << "," << line.y1 << " " << line.x2 << "," << line.y2 << "\n";
}

/// What the records say is marked, in the frame of a file: (x, height - y) where `flipped`.
std::vector<Line> expectedLines(bool flipped, double height) {
    std::vector<Line> lines;
    const auto y = [&](double down) { return flipped ? height - down : down; };
    for (const double shift : {0.0, 100.0})
        for (std::size_t i = 1; i < kRecords.size(); ++i) {
            const VectorRecord& from = kRecords[i - 1];
            const VectorRecord& to = kRecords[i];
            if (to.code != 'd' && to.code != 'x' && to.code != 'D') continue;
            lines.push_back({to.code == 'D' ? "hatch" : "outline", from.x / 10 + shift, y(from.y / 10),
                             to.x / 10 + shift, y(to.y / 10)});
        }
    return lines;
}

TEST(Marking, TotalsCoverEveryCopy) {
    const Totals totals = totalsOf(twoCopies());
    EXPECT_EQ(totals.figures, 6u);
    EXPECT_EQ(totals.hatchLines, 4u);
    EXPECT_DOUBLE_EQ(totals.marked, 2 * (4 + 3 + 5 + 3 + 2 + 2));
    const double within = std::hypot(1, 2) + std::hypot(7, 4) + std::hypot(5, 4.5) + 0.5 + std::hypot(1.9, 2.9);
    EXPECT_NEAR(totals.travelled, 2 * within + std::hypot(100.9, 1.9), 1e-6);
}

TEST(Marking, BoxHoldsResultAndEveryPoint) {
    Placement placement;
    placement.dotsPerMillimetre = 10;
    placement.width = 20;
    placement.height = 1;
    placement.array = {1, 3, 0, -5};
    const Box box = readMarking(streamOf(kRecords), placement).box;
    EXPECT_EQ((std::array{box.left, box.top, box.right, box.bottom}), (std::array{0.0, -10.0, 20.0, 7.0}));
}

TEST(Marking, StreamsThatNoMachineCanMarkAreRefused) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const std::vector<VectorRecord> cases[] = {
        {},
        {{'u', 0, 0}, {'d', 1, 1}},
        {{'d', 0, 0}, kEndRecord},
        {{'U', 0, 0}, {'d', 1, 1}, kEndRecord},
        {{'u', 0, 0}, {'q', 1, 1}, kEndRecord},
        {{'u', 0, 0}, {'d', nan, 1}, kEndRecord},
        {{'u', 0, 0}, {'d', 0, 2e6f}, kEndRecord},
    };
    for (const auto& records : cases) EXPECT_THROW(readMarking(streamOf(records), {}), Failure) << records.size();
    Placement distant;
    distant.array = {255, 255, 1e38, 0};
    EXPECT_THROW(readMarking(streamOf(kRecords), distant), Failure);
}

/// Reads the subset of SVG that the writer uses.
std::vector<Line> linesOfSvg(const std::string& svg) {
    std::vector<Line> lines;
    std::string group;
    std::istringstream rows(svg);
    for (std::string row; std::getline(rows, row);) {
        if (row.starts_with("<g id=\"")) group = row.substr(7, row.find('"', 7) - 7);
        if (!row.starts_with("<path d=\"")) continue;
        std::istringstream path(row.substr(9, row.find('"', 9) - 9));
        double startX = 0, startY = 0, x = 0, y = 0;
        for (char command = 0; path >> command;) {
            double toX = startX, toY = startY;
            if (command != 'Z') path >> toX >> toY;
            if (command == 'M') {
                startX = toX;
                startY = toY;
            } else {
                lines.push_back({group, x, y, toX, toY});
            }
            x = toX;
            y = toY;
        }
    }
    return lines;
}

TEST(Svg, MarksWhatTheStreamSays) {
    const std::string text = written([](Sink& sink) { writeSvg(twoCopies(), {0.5, 0.25}, sink); });
    std::vector<Line> expected = expectedLines(false, 0);
    std::ranges::stable_partition(expected, [](const Line& line) { return line.layer == "outline"; });
    EXPECT_EQ(linesOfSvg(text), expected);
    EXPECT_NE(text.find("width=\"108.5mm\" height=\"8.5mm\" viewBox=\"-0.25 -0.25 108.5 8.5\""), std::string::npos);
    EXPECT_NE(text.find("<g id=\"outline\" stroke-width=\"0.5\">"), std::string::npos);
    EXPECT_NE(text.find("<g id=\"hatch\" stroke-width=\"0.25\">"), std::string::npos);
}

TEST(Svg, NothingToMarkIsAnEmptyDrawing) {
    const std::string text = written([](Sink& sink) {
        writeSvg(readMarking(streamOf({kEndRecord}), {}), {0, -1}, sink);
    });
    EXPECT_EQ(text.find("<path"), std::string::npos);
    EXPECT_NE(text.find("width=\"0.01mm\""), std::string::npos);
    EXPECT_TRUE(text.ends_with("</svg>\n"));
}

/// Reads the pairs of a DXF file: group code and value.
std::vector<Line> linesOfDxf(const std::string& dxf) {
    const std::map<std::string, std::string> names = {{"OUTLINE", "outline"}, {"HATCH", "hatch"}};
    std::vector<Line> lines;
    std::istringstream in(dxf);
    std::string entity, layer, code, value;
    std::map<int, double> numbers;
    std::vector<std::pair<double, double>> vertices;
    bool closed = false;
    const auto finish = [&] {
        if (entity == "LINE") lines.push_back({layer, numbers[10], numbers[20], numbers[11], numbers[21]});
        if (entity == "POLYLINE") {
            closed = numbers[70] != 0;
            vertices.clear();
        }
        if (entity == "VERTEX") vertices.emplace_back(numbers[10], numbers[20]);
        if (entity == "SEQEND") {
            if (closed) vertices.push_back(vertices.front());
            for (std::size_t i = 1; i < vertices.size(); ++i)
                lines.push_back(
                    {layer, vertices[i - 1].first, vertices[i - 1].second, vertices[i].first, vertices[i].second});
        }
        numbers.clear();
    };
    while (std::getline(in, code) && std::getline(in, value)) {
        const int number = std::stoi(code);
        if (number == 0) {
            finish();
            entity = value;
        } else if (number == 8) {
            layer = names.at(value);
        } else if (number >= 10) {
            numbers[number] = entity == "SECTION" || entity == "LTYPE" || entity == "LAYER" ? 0 : std::stod(value);
        }
    }
    EXPECT_EQ(entity, "EOF");
    return lines;
}

TEST(Dxf, MarksWhatTheStreamSays) {
    EXPECT_EQ(linesOfDxf(written([](Sink& sink) { writeDxf(twoCopies(), sink); })), expectedLines(true, 8));
}

TEST(Gcode, MarksWhatTheStreamSaysAndOnlyThere) {
    std::istringstream in(written([](Sink& sink) { writeGcode(twoCopies(), {1200, 250}, sink); }));
    std::vector<Line> lines;
    std::map<char, double> state;
    int comments = 0;
    std::string words;
    for (std::string row; std::getline(in, row);) {
        // Controllers take no longer lines, and act on these characters wherever they stand.
        EXPECT_LT(row.size(), 80u);
        EXPECT_EQ(row.find_first_of("!?~"), std::string::npos);
        if (row.starts_with(";")) {
            ++comments;
            continue;
        }
        const double x = state['X'], y = state['Y'];
        std::istringstream wordsOfRow(row);
        for (std::string word; wordsOfRow >> word;) state[word[0]] = std::stod(word.substr(1));
        if (row.starts_with("G0")) {
            EXPECT_EQ(state['S'], 0);
        } else if (row.starts_with("G1 ")) {
            EXPECT_EQ(state['S'], 250);
            EXPECT_EQ(state['F'], 1200);
            EXPECT_EQ(state['M'], 4);
            lines.push_back({"", x, y, state['X'], state['Y']});
        } else {
            words += row + "|";
        }
    }
    std::vector<Line> expected = expectedLines(true, 8);
    for (Line& line : expected) line.layer.clear();
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(comments, 1);
    EXPECT_EQ(words, "G21|G90|G94 F1200|M4 S0|M5|");
}

TEST(Records, ReadBackToTheSameSingles) {
    const std::vector<VectorRecord> records = {{'u', 0.1f, -1e-30f}, {'d', 16777216, 1e20f}, kEndRecord};
    const Json document = parseJson(written([&](Sink& sink) { writeRecords(streamOf(records), 625.3, sink); }));
    ASSERT_EQ(document["records"].size(), records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        const Json& record = document["records"][i];
        EXPECT_EQ(record[0], std::string(1, records[i].code));
        EXPECT_EQ(static_cast<float>(record[1].get<double>()), records[i].x);
        EXPECT_EQ(static_cast<float>(record[2].get<double>()), records[i].y);
    }
}

}  // namespace
}  // namespace ovaline::host
