// A canvas on a Cairo surface.
#include <algorithm>
#include <array>
#include <cmath>
#include <new>

#include "platform/drawing_path.h"
#include "platform/posix/drawing_device.h"

namespace ovaline::platform {

namespace {

class CairoSink final : public FigureSink {
public:
    explicit CairoSink(cairo_t* context) : context_(context) {}

    void moveTo(Place start) override { cairo_move_to(context_, start.x, start.y); }
    void lineTo(Place end) override { cairo_line_to(context_, end.x, end.y); }
    void curveTo(Place control1, Place control2, Place end) override {
        cairo_curve_to(context_, control1.x, control1.y, control2.x, control2.y, end.x, end.y);
    }
    void close() override { cairo_close_path(context_); }

private:
    cairo_t* context_;
};

class CairoCanvas final : public Canvas {
public:
    CairoCanvas(const Device& device, Context context)
        : context_(std::move(context)),
          pixelsPerInch_(device.pixelsPerInch),
          visible_{0, 0, static_cast<double>(device.width), static_cast<double>(device.height)},
          isBitmap_(cairo_surface_get_type(device.surface.get()) == CAIRO_SURFACE_TYPE_IMAGE) {
        cairo_t* const c = context_.get();
        cairo_scale(c, device.surfaceUnitsPerPixel, device.surfaceUnitsPerPixel);
        cairo_set_fill_rule(c, CAIRO_FILL_RULE_EVEN_ODD);
        cairo_set_line_cap(c, CAIRO_LINE_CAP_BUTT);
        cairo_set_line_join(c, CAIRO_LINE_JOIN_MITER);
        cairo_set_miter_limit(c, kMiterLimit);
        CairoCanvas::setSmoothing(false);
    }

    float pixelsPerInch() const override { return pixelsPerInch_; }

    DrawingBox visible() const override {
        return {0, 0, static_cast<float>(visible_.right), static_cast<float>(visible_.bottom)};
    }

    void setSmoothing(bool smooth) override {
        cairo_set_antialias(context_.get(), smooth ? CAIRO_ANTIALIAS_BEST : CAIRO_ANTIALIAS_NONE);
    }

    void resetClip() override {
        cairo_reset_clip(context_.get());
        clipMask_.reset();
        clipped_ = false;
    }

    void setClip(const DrawingBox& box) override {
        resetClip();
        append(boxOutline(box));
        clip();
    }

    void setClip(const DrawingPath& path) override {
        resetClip();
        append(path);
        clipToArea();
    }

    void setClipOutside(const DrawingBox& box, const DrawingPath& path) override {
        setClip(box);
        // The box's own area takes part in the even-odd rule, which turns the path's area inside out within it.
        append(boxOutline(box));
        append(path);
        clipToArea();
    }

    void addToClip(const DrawingPath& path) override {
        if (!clipped_) return;
        // Cairo only ever narrows a clip, so the wider one is kept as a mask: what was let through, and the path.
        cairo_t* const c = context_.get();
        cairo_push_group_with_content(c, CAIRO_CONTENT_ALPHA);
        cairo_set_source_rgb(c, 0, 0, 0);
        paintThroughMask();
        Pattern before(cairo_pop_group(c));
        cairo_reset_clip(c);
        cairo_push_group_with_content(c, CAIRO_CONTENT_ALPHA);
        cairo_set_source(c, before.get());
        cairo_paint(c);
        cairo_set_source_rgb(c, 0, 0, 0);
        append(path);
        cairo_fill(c);
        clipMask_.reset(cairo_pop_group(c));
    }

    void fill(const DrawingPath& path, Argb colour) override {
        draw(colour, 1, [&](cairo_t* c) {
            append(path);
            cairo_fill(c);
        });
    }

    void fillOutside(const DrawingBox& box, const DrawingPath& path, Argb colour) override {
        draw(colour, 1, [&](cairo_t* c) {
            cairo_save(c);
            append(boxOutline(box));
            cairo_clip(c);
            append(boxOutline(box));
            append(path);
            cairo_fill(c);
            cairo_restore(c);
        });
    }

    void fillEllipse(const DrawingBox& box, Argb colour) override {
        if (!(box.Width > 0) || !(box.Height > 0)) return;
        if (!isNear(box, visible_)) return fill(ellipseOutline(box), colour);
        draw(colour, 1, [&](cairo_t* c) {
            cairo_save(c);
            cairo_translate(c, box.X + box.Width / 2.0, box.Y + box.Height / 2.0);
            cairo_scale(c, box.Width / 2.0, box.Height / 2.0);
            cairo_arc(c, 0, 0, 1, 0, 2 * M_PI);
            cairo_restore(c);
            cairo_fill(c);
        });
    }

    void stroke(const DrawingPath& path, const Pen& pen) override {
        if (!(pen.width > 0)) return;
        const PenForm form(pen);
        cairo_set_line_width(context_.get(), form.width());
        const std::span<const double> lengths = form.lengths();
        cairo_set_dash(context_.get(), lengths.data(), static_cast<int>(lengths.size()), 0);
        draw(pen.colour, form.ink(), [&](cairo_t* c) {
            LineFeeder lines(path, visible_, form);
            CairoSink sink(c);
            while (lines.appendSome(sink)) cairo_stroke(c);
        });
    }

private:
    void append(const DrawingPath& path) {
        CairoSink sink(context_.get());
        appendAreas(sink, path, visible_);
    }

    void clip() {
        cairo_clip(context_.get());
        clipped_ = true;
    }

    /// Clips to the current path. In pixels, drawing through a mask takes a fraction of the time that Cairo takes to
    /// cut lines by the edges of letters; files keep the edges.
    void clipToArea() {
        cairo_t* const c = context_.get();
        if (!isBitmap_) return clip();
        cairo_push_group_with_content(c, CAIRO_CONTENT_ALPHA);
        cairo_set_source_rgb(c, 0, 0, 0);
        cairo_fill(c);
        clipMask_.reset(cairo_pop_group(c));
        clipped_ = true;
    }

    void setSource(Argb colour, double opacity) {
        const auto part = [&](int shift) { return static_cast<double>(colour >> shift & 0xFF) / 255; };
        cairo_set_source_rgba(context_.get(), part(16), part(8), part(0), part(24) * opacity);
    }

    void paintThroughMask() {
        if (clipMask_)
            cairo_mask(context_.get(), clipMask_.get());
        else
            cairo_paint(context_.get());
    }

    template <typename Shape>
    void draw(Argb colour, double opacity, Shape&& shape) {
        cairo_t* const c = context_.get();
        if (clipMask_) cairo_push_group(c);
        setSource(colour, opacity);
        shape(c);
        if (!clipMask_) return;
        cairo_pop_group_to_source(c);
        paintThroughMask();
    }

    Context context_;
    float pixelsPerInch_;
    Sides visible_;
    bool isBitmap_;
    Pattern clipMask_;  ///< what is let through of the clip that Cairo knows; none: all of it
    bool clipped_ = false;
};

}  // namespace

std::unique_ptr<Canvas> makeCanvas(const Device& device) {
    Context context(cairo_create(device.surface.get()));
    if (cairo_status(context.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
    return std::unique_ptr<Canvas>(new (std::nothrow) CairoCanvas(device, std::move(context)));
}

std::unique_ptr<Canvas> makeCanvas(HDC dc) {
    return dc ? makeCanvas(Device::of(dc)) : nullptr;
}

// Device contexts have no other units here.
RECTL devicePixels(HDC, const RECTL& units) {
    return units;
}

}  // namespace ovaline::platform
