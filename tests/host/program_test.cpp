// The built program with the real module beside it, as people and other programs use it.
#include "control/interface/type_library.h"
#include "host/base64.h"
#include "program_fixture.h"

namespace ovaline::host {
namespace {

using testing::Outcome;
using testing::ProgramTest;

/// A value of a property, and what the control then holds.
std::pair<std::string, std::string> exampleOf(const Member& property) {
    if (property.type.enumeration) {
        const EnumValue& last = property.type.enumeration->values.back();
        return {"\"" + std::string(last.name) + "\"", std::to_string(last.value)};
    }
    if (property.type.vt == VT_BOOL) return {"true", "-1"};
    const char* both = property.type.vt == VT_BSTR ? R"("Liberation Sans")" : property.type.vt == VT_R4 ? "1.25" : "3";
    return {both, both};
}

TEST_F(ProgramTest, EveryPropertyIsPutAndGot) {
    std::string lines = "{\"call\": \"SetUpdateFlag\", \"args\": [0]}\n";
    std::vector<std::string> expected;
    for (const Member& member : members()) {
        if (member.kind == MemberKind::Method) continue;
        const auto [put, held] = exampleOf(member);
        const std::string name(member.name);
        lines += "{\"put\": \"" + name + "\", \"value\": " + put + "}\n{\"get\": \"" + name + "\"}\n";
        expected.push_back("{\"hr\": 0, \"value\": " + held + "}");
    }
    const Outcome outcome = run("run", lines);
    EXPECT_EQ(outcome.status, 0);
    std::istringstream out(outcome.out);
    std::string line;
    std::getline(out, line);
    for (const std::string& held : expected) {
        std::getline(out, line);
        EXPECT_EQ(line, "{\"hr\": 0}") << held;
        std::getline(out, line);
        EXPECT_EQ(line, held);
    }
    EXPECT_EQ(expected.size(), 46u);
}

TEST_F(ProgramTest, RegeneratingPutMovesAndThenRepaints) {
    const Outcome outcome = run("run", R"({"call": "SetDefaultSize", "args": [0]}
# a comment, an empty line and one that is not understood

nonsense
{"put": "Width", "value": 30}
{"put": "DatabaseField", "value": "x"}
)");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out.find("\n{\"error\": \"not JSON"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("\n{\"hr\": 0, \"events\": [{\"posRect\": [0, 0, "), std::string::npos) << outcome.out;
    EXPECT_TRUE(outcome.out.ends_with("]}, {\"viewChange\": true}]}\n{\"hr\": 0}\n")) << outcome.out;
}

TEST_F(ProgramTest, PagesEditTheControl) {
    const std::pair<const char*, const char*> exchanges[] = {
        {R"({"lang": 7})", R"({"hr": 0})"},
        {R"({"page": "text", "open": true})",
         R"({"hr": 0, "value": "Ovaline Settings", "events": [{"pageStatus": 1}]})"},
        {R"({"page": "text", "id": 205, "read": true})",
         R"({"hr": 0, "value": {"text": "Fett", "visible": true, "enabled": true, "checked": false}})"},
        // Between them, "30." is the value that the page has by then.
        {R"({"page": "text", "id": 1213, "type": "30.5"})",
         R"({"hr": 0, "events": [{"pageStatus": 4}, {"pageStatus": 1}]})"},
        {R"({"page": "text", "id": 201, "type": "ж\ud800"})", R"({"hr": 0})"},
        {R"({"page": "text", "id": 201, "read": true})",
         R"({"hr": 0, "value": {"text": "ж\ud800", "visible": true, "enabled": true, "limit": null, )"
         R"("digitsOnly": false}})"},
        {R"({"page": "text", "id": 1204, "select": 9})",
         R"({"error": "control 1204 has no item 9, the last one is 3"})"},
        {R"({"page": "text", "id": 1204, "select": "9"})",
         R"({"error": "\"select\" takes a whole number from -2147483648 to 2147483647"})"},
        {R"({"page": "text", "id": 201, "type": 61})", R"({"error": "\"type\" takes a text"})"},
        {R"({"page": "text", "id": 9, "read": true})", R"({"error": "there is no control 9"})"},
        {R"({"page": "text", "id": 201, "draw": "x.png"})", R"({"error": "control 201 shows no picture"})"},
        {R"({"page": "text", "id": 1201, "draw": "x.png", "width": 3})",
         R"({"error": "this line takes no \"width\""})"},
        {R"({"page": "text", "open": true})", R"({"error": "the text page is open already"})"},
        {R"({"page": "text", "id": 1201, "draw": "page.png"})", R"({"hr": 0})"},
        {R"({"page": "text", "dirty": true, "on": "other"})", R"({"error": "the text page is not open"})"},
        {R"({"page": "serial", "open": true})", R"({"hr": 0, "value": "Serial Number and AutoDate"})"},
        {R"({"page": "serial", "id": 241, "click": true})", R"({"hr": 0, "events": [{"pageStatus": 1}]})"},
        {R"({"page": "serial", "id": 263, "type": "x"})", R"({"error": "control 263 is read-only"})"},
        {R"({"page": "text", "close": true})", R"({"hr": 0})"},
        {R"({"page": "text", "close": true})", R"({"error": "the text page is not open"})"},
        {R"({"get": "Width"})", R"({"hr": 0, "value": 0.0})"},
        {R"({"page": "serial", "dirty": true})", R"({"hr": 0, "value": true})"},
    };
    std::string lines, expected;
    for (const auto& [line, answer] : exchanges) {
        lines += std::string(line) + "\n";
        expected += std::string(answer) + "\n";
    }
    EXPECT_EQ(run("run", lines).out, expected);
    EXPECT_EQ(text("page.png").substr(16, 8), std::string("\0\0\0\xEA\0\0\0\x9C", 8)) << "234 x 156";
}

TEST_F(ProgramTest, MarkWritesWhatTheControlWrote) {
    std::ofstream(folder_ / "job.json") << R"({"measurement": "mm", "settings": {"FillStyle": "Cross", "Width": 40}})";
    const Outcome marked = run("mark job.json --text 'A b' --set Width=30 -o a.ovl --quiet");
    EXPECT_EQ(marked.status, 0) << marked.error;
    EXPECT_EQ(marked.out, "");
    const std::vector<Json> said = answers(R"({"call": "SetDefaultSize", "args": [0]}
{"put": "FillStyle", "value": 3}
{"put": "Width", "value": 30}
{"put": "TextData", "value": "A b"}
{"call": "GetVectorData"}
)");
    std::string stream;
    const std::string file = text("a.ovl");
    appendBase64(stream, std::as_bytes(std::span(file)));
    EXPECT_EQ(said.back()["data"], stream);
    EXPECT_EQ(run("mark job.json --text 'A b' --set Width=30 -o - --format ovl").out, file);
}

TEST_F(ProgramTest, InchesAreMarkedAtTheirTrueSize) {
    std::ofstream(folder_ / "inch.json") << R"({"measurement": "inch", "settings": {"FontHeight": 0.2}})";
    std::ofstream(folder_ / "mm.json") << R"({"settings": {"FontHeight": 5.08, "Width": 25.4, "Height": 25.4}})";
    std::vector<double> widths;
    for (const char* job : {"inch.json", "mm.json", "mm.json --set ArrayXDimension=3 --set ArrayXOffset=40"}) {
        const std::string svg = run(std::string("mark --text A --set StartAngle=180 -o - --format svg ") + job).out;
        const std::size_t at = svg.find("width=\"");
        ASSERT_NE(at, std::string::npos);
        widths.push_back(std::stod(svg.substr(at + 7)));
    }
    EXPECT_NEAR(widths[0], widths[1], 0.01);
    EXPECT_GT(widths[0], 25.4);
    EXPECT_NEAR(widths[2], widths[1] + 2 * 40, 0.01) << "the array is part of the picture";
}

// A glyph may have several figures or none; what fell off the ellipse is not counted, and copies all are.
TEST_F(ProgramTest, GlyphsAreCounted) {
    const std::string font = " --set 'FontName=Liberation Sans' ";
    EXPECT_NE(run("mark --text 'H\u00e4i \u00d6!'" + font + "-o a.svg").out.find(" 5 glyphs, "), std::string::npos);
    EXPECT_NE(run("mark --text MMMMMMMMMMMMMMMMMMMMMMMMMMMM --set ArrayXDimension=3" + font + "-o a.svg")
                  .out.find(" 48 glyphs, 48 figures"),
              std::string::npos);
}

// A production batch: each run's copies carry the next numbers, and the list says what each file marks.
TEST_F(ProgramTest, BatchesAdvanceTheSerialNumber) {
    const std::string job =
        "mark --set SerialNumEnable=true --set SerialNumPrefix=SN- --set SerNumSuffix=/A --set SerNumStart=9 "
        "--set SerNumDecimalPlaces=Two --set ArrayXDimension=2 --set SerialDirection=Down ";
    const Outcome batch = run(job + "--advance 2 --print-texts --quiet -o part.ovl");
    EXPECT_EQ(batch.status, 0) << batch.error;
    EXPECT_EQ(batch.out, "1\t1\tSN-09/A\n2\t1\tSN-10/A\n1\t1\tSN-11/A\n2\t1\tSN-12/A\n");
    EXPECT_EQ(run(job + "--set SerNumStart=11 --quiet -o third.ovl").status, 0);
    EXPECT_EQ(text("part-2.ovl"), text("third.ovl"));
    EXPECT_NE(text("part-1.ovl"), text("part-2.ovl"));
    EXPECT_EQ(run("mark --text Hi --set ArrayYDimension=2 --print-texts --quiet -o a.ovl").out, "1\t1\tHi\n1\t2\tHi\n");
}

TEST_F(ProgramTest, AJobThatMemoryCannotHoldIsRefused) {
    const Outcome huge = run(
        "mark -o a.svg --set SerialNumEnable=true --set ArrayXDimension=255 --set ArrayYDimension=255 --set Width=2000 "
        "--set Height=2000 --set Flatness=0.001 --set SerialNumPrefix=8888888888888888888888888888888888888888");
    EXPECT_EQ(huge.status, 2);
    EXPECT_NE(huge.error.find("255 x 255 copies of 50 characters, lower ArrayXDimension"), std::string::npos)
        << huge.error;
    EXPECT_FALSE(std::filesystem::exists(folder_ / "a.svg"));
}

TEST_F(ProgramTest, TextThatHasNoRoomIsTold) {
    const Outcome cut = run("mark --text 'MMMMMMMMMMMMMMMMMMMMMMMMMMMMMM' -o a.svg");
    EXPECT_EQ(cut.status, 0);
    EXPECT_NE(cut.error.find("of its 30 outline figures are left out"), std::string::npos) << cut.error;
    EXPECT_EQ(run("mark --text 'MMM' -o a.svg").error.find("left out"), std::string::npos);
    EXPECT_NE(run("mark --text 'M' --set FontHeight=60 -o a.svg").error.find("the control holds 50.8"),
              std::string::npos);
}

TEST_F(ProgramTest, ErrorsTakeOneLineAndLeaveNoFile) {
    std::ofstream(folder_ / "bad.json") << "{\"settings\": {\"Width\": \"wide\"}}";
    const std::pair<const char*, const char*> cases[] = {
        {"mark", "--output is required"},
        {"mark -o a.pbm --step 0", "--step"},
        {"mark -o a.pbm --step 30000", "make --step smaller"},
        {"mark -o a.pbm --step 0.1", "make --step larger"},
        {"mark -o a.pbm --set ShowAxes=NoAxesPartial --text \"\"", "nothing to draw"},
        {"mark -o a.png --dpi 5", "--dpi"},
        {"mark -o a.png --set Width=20000 --dpi 10000", "is too large"},
        {"mark -o a.xyz", "xyz"},
        {"mark -o -", "--format"},
        {"mark -o a.svg --set Widht=3", "did you mean Width?"},
        {"mark -o a.svg --set ArrayXDimension=0", "from 1 to 255"},
        {"mark -o a.svg --speed 0", "--speed"},
        {"mark -o a.svg --power 1001", "--power"},
        {"mark bad.json -o a.svg", "bad.json: Width takes a number"},
        {"mark none.json -o a.svg", "none.json: the file cannot be read"},
        {"mark -o none/a.svg", "none/a.svg cannot be written"},
        {"mark -o /dev/null --format svg", "it is not a file"},
        {"run none.jsonl", "none.jsonl cannot be read"},
        {"date %Y --list", "either a PATTERN or --list"},
        {"date %Y --at 2026-02-30", "not 2026-02-30"},
        {"date %Y --at 2026-02-03T24:00:00", "--at takes a time like"},
        {"date %Y --at 2026-02-03T", "--at takes a time like"},
        {"date %Y --offset 2147483648", "--offset"},
        {"date '\xFF'", "the pattern is not UTF-8"},
        {"help nothing", "there is no command nothing"},
        {"nothing", "nothing"},
    };
    for (const auto& [arguments, expected] : cases) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
        const std::size_t at = outcome.error.rfind("ovaline: ", outcome.error.size() - 1);
        ASSERT_NE(at, std::string::npos) << arguments;
        EXPECT_NE(outcome.error.find(expected, at), std::string::npos) << arguments << ": " << outcome.error;
        EXPECT_EQ(outcome.error.find('\n', at), outcome.error.size() - 1) << arguments << ": " << outcome.error;
        EXPECT_EQ(files(), std::vector<std::string>{"bad.json"}) << arguments;
    }
}

TEST_F(ProgramTest, DatePatternsAreExplained) {
    const Outcome lot = run("date 'LOT %C%y %+2Y %#5%+12d %q %+' --at 2026-11-17T19:33:24");
    EXPECT_EQ(lot.status, 0);
    EXPECT_EQ(lot.out,
              "LOT NO26 2028 %17 % \n"
              "%C\tNO\tmonth as two letters\n"
              "%y\t26\tyear of the century\n"
              "%+2Y\t2028\tyear, 2 years on\n"
              "%#5\t%\tunknown: a percent sign\n"
              "%+12d\t17\tday, + ignored\n"
              "%q\t%\tunknown: a percent sign\n"
              "%+\t\tno letter follows: left out\n");
    EXPECT_EQ(run("date '%#x' --at 2028-02-28 --offset 1").out,
              "Tuesday, February 29, 2028\n%#x\tTuesday, February 29, 2028\tlong date\n");
    EXPECT_EQ(run("date x --offset -3000000").out, "Invalid DateTime\n");
    EXPECT_EQ(run("date '\u5E74'").out, "\u5E74\n");
    // Without --at it is the clock's time, whichever year that is.
    EXPECT_EQ(run("date '%%'").out, "%\n%%\t%\tpercent sign\n");
    const std::string formats = run("date --list --at 2026-11-17").out;
    EXPECT_TRUE(formats.starts_with("20000\tFormat00\t%A, %B %d, %Y\tTuesday, November 17, 2026\n")) << formats;
    EXPECT_TRUE(formats.ends_with("\n20015\tFormat15\t%B %Y\tNovember 2026\n")) << formats;
    EXPECT_EQ(std::ranges::count(formats, '\n'), 16);
}

TEST_F(ProgramTest, Listings) {
    const Json properties = parseJson(run("properties --json").out);
    EXPECT_EQ(properties.size(), 46u);
    EXPECT_EQ(properties[0]["name"], "FontName");
    EXPECT_EQ(properties[0]["default"], "Arial");
    for (const Json& property : properties)
        if (property["name"] == "FillStyle") {
            EXPECT_EQ(property["default"], "Solid");
            EXPECT_EQ(property["values"]["Cross"], 3);
        }
    const Json fonts = parseJson(run("fonts --json").out);
    ASSERT_FALSE(fonts.empty());
    for (const Json& font : fonts) {
        const bool isStroke = font["family"].get<std::string>().find("Filament") != std::string::npos;
        EXPECT_EQ(font["style"], isStroke ? "SingleStroke" : "TrueType");
    }
    EXPECT_NE(run("").out.find("mark"), std::string::npos);
    EXPECT_NE(run("help mark").out.find("--advance"), std::string::npos);
    EXPECT_TRUE(run("--version").out.starts_with("ovaline "));
}

}  // namespace
}  // namespace ovaline::host
