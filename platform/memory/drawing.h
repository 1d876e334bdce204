// A canvas that writes down what it is asked to draw, for tests of what draws.
#pragma once

#include <string>
#include <vector>

#include "platform/drawing.h"

namespace ovaline::platform {

/// Each operation is a line of `log`: its name, its boxes as "x,y wxh", its paths in the letters of SVG, its colours in
/// hexadecimal and its pens as "colour width dash".
class RecordingCanvas final : public Canvas {
public:
    RecordingCanvas(float pixelsPerInch, const DrawingBox& visible)
        : pixelsPerInch_(pixelsPerInch), visible_(visible) {}

    std::vector<std::string> log;

    float pixelsPerInch() const override { return pixelsPerInch_; }
    DrawingBox visible() const override { return visible_; }
    void setSmoothing(bool smooth) override;
    void resetClip() override;
    void setClip(const DrawingBox& box) override;
    void setClip(const DrawingPath& path) override;
    void setClipOutside(const DrawingBox& box, const DrawingPath& path) override;
    void addToClip(const DrawingPath& path) override;
    void fill(const DrawingPath& path, Argb colour) override;
    void fillOutside(const DrawingBox& box, const DrawingPath& path, Argb colour) override;
    void fillEllipse(const DrawingBox& box, Argb colour) override;
    void stroke(const DrawingPath& path, const Pen& pen) override;

private:
    float pixelsPerInch_;
    DrawingBox visible_;
};

}  // namespace ovaline::platform
