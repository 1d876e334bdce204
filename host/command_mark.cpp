#include <cstdio>
#include <memory>
#include <string>

#include "host/commands.h"
#include "host/decimal.h"
#include "host/failure.h"
#include "host/formats.h"
#include "host/interrupt.h"
#include "host/marking_session.h"
#include "host/messages.h"
#include "host/output_file.h"
#include "platform/paths.h"
#include "platform/terminal.h"

namespace ovaline::host {

namespace {

Format chosenFormat(const MarkOptions& options) {
    if (options.format) return formatOf(*options.format);
    if (options.output == "-") throw Failure("-o -: the format is not given, add --format NAME");
    return formatOfFile(platform::pathOf(options.output));
}

/// FILE-N, before the ending.
std::filesystem::path numbered(const std::filesystem::path& file, int run) {
    std::filesystem::path name = file.stem();
    name += "-" + std::to_string(run);
    name += file.extension();
    return file.parent_path() / name;
}

void write(MarkingSession& session, const Result& result, const Marking& marking, Format format,
           const MarkOptions& options, Sink& sink) {
    switch (format) {
        case Format::Stream:
            sink.append({reinterpret_cast<const char*>(result.stream.bytes().data()), result.stream.bytes().size()});
            break;
        case Format::Records:
            writeRecords(result.stream.bytes(), result.placement.dotsPerMillimetre, sink);
            break;
        case Format::Svg:
            writeSvg(marking, result.widths, sink);
            break;
        case Format::Dxf:
            writeDxf(marking, sink);
            break;
        case Format::Gcode:
            writeGcode(marking, {options.feed, options.power}, sink);
            break;
        case Format::Png:
            sink.append(session.draw(platform::PictureKind::Png, options.picturePixelsPerInch));
            break;
        case Format::Pdf:
            sink.append(session.draw(platform::PictureKind::Pdf, options.picturePixelsPerInch));
            break;
        case Format::Pbm:
            writePbm(*result.raster, sink);
            break;
    }
}

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string describe(const RasterPicture& raster, double step) {
    std::string line = std::to_string(raster.columns()) + " x " + std::to_string(raster.rows()) + " pixels of ";
    appendMillimetres(line, step / 1000);
    return line + " mm, " + std::to_string(raster.darkPixels()) + " dark";
}

std::string summary(const std::string& name, const Result& result, const Marking& marking, Format format,
                    const MarkOptions& options) {
    constexpr double kSecondsPerMinute = 60;
    const double usual = format == Format::Gcode ? options.feed / kSecondsPerMinute : kUsualSpeed;
    const double speed = options.speed.value_or(usual);
    const Totals totals = totalsOf(marking);
    std::string line = name + ": " + counted(result.copies, "copy", "copies");
    if (!holdsAllCopies(format) && marking.copies.size() > 1) line += " (one in the file, the host repeats it)";
    line += ", ";
    if (result.glyphs) line += counted(*result.glyphs * result.copies, "glyph", "glyphs") + ", ";
    if (result.raster) return line + describe(*result.raster, options.step) + "\n";
    line += counted(totals.figures, "figure", "figures") + ", " +
            counted(totals.hatchLines, "hatch line", "hatch lines") + ", ";
    appendRounded(line, totals.marked, 1);
    line += " mm marked, ";
    appendRounded(line, totals.travelled, 1);
    line += " mm travelled, ";
    appendRounded(line, totals.marked / speed + totals.travelled / options.travelSpeed, 1);
    line += " s at ";
    appendMillimetres(line, speed);
    line += " mm/s marking and ";
    appendMillimetres(line, options.travelSpeed);
    line += " mm/s travelling\n";
    return line;
}

/// Shows how far a long command is, in place.
class Progress {
public:
    explicit Progress(bool shown) : shown_(shown && platform::errorIsTerminal()) {}
    ~Progress() {
        if (shown_) std::fputs("\r\x1B[K", stderr);
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    void show(int done, int all) const {
        if (shown_) std::fprintf(stderr, "\rovaline: %d of %d", done, all);
    }

private:
    bool shown_;
};

/// The marking of a result, which is computed even where the file is the control's own stream: what no machine can
/// mark is refused whatever the format.
Marking markingOf(const Result& result) {
    return readMarking(result.stream.bytes(), result.placement);
}

Result readResult(MarkingSession& session, Format format, const MarkOptions& options) {
    Result result = session.read();
    if (format == Format::Pbm) result.raster = session.raster(options.step);
    return result;
}

void markToStandardOutput(MarkingSession& session, Format format, const MarkOptions& options) {
    if (options.printTexts) std::fputs(session.texts().c_str(), stderr);
    const Result result = readResult(session, format, options);
    const Marking marking = markingOf(result);
    checkInterrupted();
    StandardOutput sink;
    write(session, result, marking, format, options, sink);
    sink.flush();
    if (!options.quiet) std::fputs(summary("standard output", result, marking, format, options).c_str(), stderr);
}

void print(const std::string& text) {
    StandardOutput out;
    out.append(text);
    out.flush();
}

/// All files or none: they take their places when the last one is complete and the serial number has moved on.
void markToFiles(MarkingSession& session, Format format, const MarkOptions& options) {
    const int runs = options.advance.value_or(1);
    const std::filesystem::path target = platform::pathOf(options.output);
    std::vector<std::unique_ptr<OutputFile>> files;
    std::string report;
    {
        const Progress progress(options.advance && !options.quiet);
        for (int run = 1; run <= runs; ++run) {
            const std::filesystem::path path = options.advance ? numbered(target, run) : target;
            if (options.printTexts) print(session.texts());
            const Result result = readResult(session, format, options);
            const Marking marking = markingOf(result);
            files.push_back(std::make_unique<OutputFile>(path));
            write(session, result, marking, format, options, *files.back());
            files.back()->close();
            if (!options.quiet) report += summary(platform::pathText(path), result, marking, format, options);
            if (options.advance) session.advance();
            progress.show(run, runs);
            checkInterrupted();
        }
    }
    for (const auto& file : files) file->commit();
    if (!report.empty()) print(report);
}

}  // namespace

int markCommand(const MarkOptions& options, const ModuleSource& module) {
    const Format format = chosenFormat(options);
    const bool toStandardOutput = options.output == "-";
    if (toStandardOutput && options.advance) throw Failure("-o -: --advance writes several files, name one");
    watchInterrupts();
    Job job = readJob(options.job);
    MarkingSession session(module(), std::move(job));
    // Even a quiet command says what will not be marked as it was asked.
    for (const std::string& warning : session.warnings()) tell("warning: " + warning);
    if (toStandardOutput)
        markToStandardOutput(session, format, options);
    else
        markToFiles(session, format, options);
    return 0;
}

}  // namespace ovaline::host
