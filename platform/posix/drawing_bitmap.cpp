// Off-screen bitmaps.
#include <new>

#include "platform/posix/drawing_device.h"

namespace ovaline::platform {

namespace {

class CairoBitmap final : public Bitmap {
public:
    static std::unique_ptr<Bitmap> make(int width, int height) {
        std::unique_ptr<CairoBitmap> bitmap(new (std::nothrow) CairoBitmap);
        if (!bitmap) return nullptr;
        bitmap->device_.surface.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
        bitmap->device_.width = width;
        bitmap->device_.height = height;
        bitmap->canvas_ = makeCanvas(bitmap->device_);
        if (!bitmap->canvas_) return nullptr;
        const Context context(cairo_create(bitmap->device_.surface.get()));
        cairo_set_source_rgb(context.get(), 1, 1, 1);
        cairo_paint(context.get());
        return bitmap;
    }

    int width() const override { return device_.width; }
    int height() const override { return device_.height; }
    Canvas& canvas() override { return *canvas_; }

    std::span<const std::uint32_t> row(int y) const override {
        cairo_surface_t* const surface = device_.surface.get();
        cairo_surface_flush(surface);
        const unsigned char* const bytes =
            cairo_image_surface_get_data(surface) + std::ptrdiff_t{y} * cairo_image_surface_get_stride(surface);
        return {reinterpret_cast<const std::uint32_t*>(bytes), static_cast<std::size_t>(device_.width)};
    }

private:
    CairoBitmap() = default;

    Device device_;
    std::unique_ptr<Canvas> canvas_;
};

}  // namespace

std::unique_ptr<Bitmap> makeBitmap(int width, int height) {
    return fitsSurface(width, height) ? CairoBitmap::make(width, height) : nullptr;
}

}  // namespace ovaline::platform
