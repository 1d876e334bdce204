// Pictures in files.
#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <new>
#include <string>

#include "platform/posix/drawing_device.h"

namespace ovaline::platform {

namespace {

constexpr double kPointsPerInch = 72;

class CairoPicture final : public Picture {
public:
    CairoPicture(PictureKind kind, int width, int height, float pixelsPerInch) : isBitmap_(kind == PictureKind::Png) {
        device_.width = width;
        device_.height = height;
        device_.pixelsPerInch = pixelsPerInch;
        // A page is as large as the picture is at its resolution; a drawing for screens keeps the pixel as its unit.
        device_.surfaceUnitsPerPixel =
            kind == PictureKind::Pdf ? kPointsPerInch / static_cast<double>(pixelsPerInch) : 1;
        device_.surface.reset(makeSurface(kind, width, height));
    }

    bool usable() const { return cairo_surface_status(device_.surface.get()) == CAIRO_STATUS_SUCCESS; }

    void paint(Argb ground) {
        if (const std::unique_ptr<Canvas> canvas = makeCanvas(device_))
            canvas->fillOutside(canvas->visible(), {}, ground);
    }

    HDC dc() override { return device_.dc(); }

    std::string finish() override {
        cairo_surface_t* const surface = device_.surface.get();
        const bool written =
            !isBitmap_ || cairo_surface_write_to_png_stream(surface, deliver, this) == CAIRO_STATUS_SUCCESS;
        cairo_surface_finish(surface);
        return written && usable() ? std::move(file_) : std::string();
    }

private:
    cairo_surface_t* makeSurface(PictureKind kind, int width, int height) {
        if (kind == PictureKind::Png) return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
        const double across = width * device_.surfaceUnitsPerPixel;
        const double down = height * device_.surfaceUnitsPerPixel;
        if (kind == PictureKind::Pdf) return cairo_pdf_surface_create_for_stream(deliver, this, across, down);
        cairo_surface_t* const surface = cairo_svg_surface_create_for_stream(deliver, this, across, down);
        cairo_svg_surface_set_document_unit(surface, CAIRO_SVG_UNIT_PX);
        return surface;
    }

    static cairo_status_t deliver(void* picture, const unsigned char* bytes, unsigned int count) {
        try {
            static_cast<CairoPicture*>(picture)->file_.append(reinterpret_cast<const char*>(bytes), count);
            return CAIRO_STATUS_SUCCESS;
        } catch (const std::bad_alloc&) {
            return CAIRO_STATUS_NO_MEMORY;
        }
    }

    bool isBitmap_;
    std::string file_;  // outlives the surface, which writes into it until it is gone
    Device device_;
};

}  // namespace

bool offersPictures(PictureKind) {
    return true;
}

std::unique_ptr<Picture> makePicture(PictureKind kind, int width, int height, float pixelsPerInch,
                                     std::optional<Argb> ground) {
    if (!fitsSurface(width, height) || !(pixelsPerInch > 0)) return nullptr;
    std::unique_ptr<CairoPicture> picture(new (std::nothrow) CairoPicture(kind, width, height, pixelsPerInch));
    if (!picture || !picture->usable()) return nullptr;
    if (ground) picture->paint(*ground);
    return picture;
}

}  // namespace ovaline::platform
