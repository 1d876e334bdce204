// Off-screen bitmaps.
#include <algorithm>
#include <new>
#include <utility>

#include "platform/windows/drawing_canvas.h"

namespace ovaline::platform {

namespace {

constexpr float kPixelsPerInch = 96;
constexpr std::uint32_t kWhite = 0xFFFFFF;

class GdiplusBitmap final : public Bitmap {
public:
    static std::unique_ptr<Bitmap> make(int width, int height) {
        const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        std::unique_ptr<std::uint32_t[]> pixels(new (std::nothrow) std::uint32_t[count]);
        if (!pixels) return nullptr;
        std::fill_n(pixels.get(), count, kWhite);
        // 24 bits of colour and 8 without meaning.
        auto canvas = GdiplusCanvas::onPixels({pixels.get(), width, height}, PixelFormat32bppRGB, kPixelsPerInch);
        if (!canvas) return nullptr;
        return std::unique_ptr<Bitmap>(new (std::nothrow)
                                           GdiplusBitmap(std::move(pixels), width, height, std::move(canvas)));
    }

    int width() const override { return width_; }
    int height() const override { return height_; }
    Canvas& canvas() override { return *canvas_; }

    std::span<const std::uint32_t> row(int y) const override {
        canvas_->flush();
        const auto across = static_cast<std::size_t>(width_);
        return {pixels_.get() + static_cast<std::size_t>(y) * across, across};
    }

private:
    GdiplusBitmap(std::unique_ptr<std::uint32_t[]> pixels, int width, int height, std::unique_ptr<GdiplusCanvas> canvas)
        : pixels_(std::move(pixels)), width_(width), height_(height), canvas_(std::move(canvas)) {}

    std::unique_ptr<std::uint32_t[]> pixels_;
    int width_;
    int height_;
    std::unique_ptr<GdiplusCanvas> canvas_;  // goes before what it draws on
};

}  // namespace

std::unique_ptr<Bitmap> makeBitmap(int width, int height) {
    return fitsBitmap(width, height) && startGdiplus() ? GdiplusBitmap::make(width, height) : nullptr;
}

}  // namespace ovaline::platform
