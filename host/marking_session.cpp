#include "host/marking_session.h"

#include <algorithm>

#include "host/control_reader.h"
#include "host/control_settings.h"
#include "host/copy_list.h"
#include "host/failure.h"
#include "host/job_warnings.h"

namespace ovaline::host {

MarkingSession::MarkingSession(platform::GetClassObject module, Job job)
    : module_(module), job_(std::move(job)), control_(module) {
    putSettings(control_.table(), job_);
    require(control_.table().SetUpdateFlag(1), "SetUpdateFlag");
    if (const std::string reason = refusal(control_.table()); !reason.empty()) throw Failure(reason);
}

std::vector<std::string> MarkingSession::warnings() {
    INorvel_OvalineCtrlTable& control = control_.table();
    std::vector<std::string> warnings = heldOtherwise(control, job_);
    for (const std::string& warning : {fontWarning(control), roomWarning(module_, job_, figuresOf(control))})
        if (!warning.empty()) warnings.push_back(warning);
    return warnings;
}

Result MarkingSession::read() {
    INorvel_OvalineCtrlTable& control = control_.table();
    Result result{readVectorStream(control, &INorvel_OvalineCtrl::GetVectorData, "GetVectorData"), {}, {}, {}, {}};
    result.glyphs = glyphsOf(control);
    // Offsets and widths are read in millimetres, whatever the job's unit: an inch's four decimals are too coarse.
    require(control.SetMeasurement(kMillimetres), "SetMeasurement");
    readPlacement(result);
    result.widths = readWidths();
    require(control.SetMeasurement(job_.inches ? kInches : kMillimetres), "SetMeasurement");
    return result;
}

std::string MarkingSession::draw(platform::PictureKind kind, double pixelsPerInch) {
    PictureRequest request;
    request.kind = kind;
    request.rectangle = wholeResult(control_, pixelsPerInch);
    request.pixelsPerInch = static_cast<float>(pixelsPerInch);
    DrawnPicture drawn = drawPicture(control_, request);
    require(drawn.hr, "drawing the preview");
    return std::move(drawn.file);
}

Array MarkingSession::readArray() {
    INorvel_OvalineCtrlTable& control = control_.table();
    FLOAT columnOffset = 0;
    FLOAT rowOffset = 0;
    LONG columns = 1;
    LONG rows = 1;
    require(control.get_ArrayXDimension(&columns), "getting ArrayXDimension");
    require(control.get_ArrayYDimension(&rows), "getting ArrayYDimension");
    require(control.get_ArrayXOffset(&columnOffset), "getting ArrayXOffset");
    require(control.get_ArrayYOffset(&rowOffset), "getting ArrayYOffset");
    return {static_cast<int>(columns), static_cast<int>(rows), columnOffset, rowOffset};
}

void MarkingSession::readPlacement(Result& result) {
    INorvel_OvalineCtrlTable& control = control_.table();
    Placement& placement = result.placement;
    placement.dotsPerMillimetre = dotsPerMillimetre(job_);
    const Array array = readArray();
    result.copies = static_cast<std::size_t>(array.columns) * static_cast<std::size_t>(array.rows);
    if (isStaticText(control)) placement.array = array;

    const ResultSize size = readResultSize(control);
    constexpr double kMicrometresPerMillimetre = 1000;
    // The result covers the array; what is placed is one copy.
    const Array& repeated = placement.array;
    const double width = size.width / kMicrometresPerMillimetre - (repeated.columns - 1) * repeated.columnOffset;
    const double height = size.height / kMicrometresPerMillimetre - (repeated.rows - 1) * repeated.rowOffset;
    placement.width = std::max(0.0, width);
    placement.height = std::max(0.0, height);
}

LineWidths MarkingSession::readWidths() {
    FLOAT outline = 0;
    FLOAT hatch = 0;
    require(control_.table().get_TextOutline(&outline), "getting TextOutline");
    require(control_.table().get_FillLineWidth(&hatch), "getting FillLineWidth");
    return {outline, hatch};
}

std::string MarkingSession::texts() {
    return copyList(control_.table());
}

void MarkingSession::advance() {
    require(control_.table().SetIncrement(), "SetIncrement");
}

}  // namespace ovaline::host
