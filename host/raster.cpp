#include "host/raster.h"

#include <bit>

#include "host/control_host.h"
#include "host/failure.h"
#include "platform/little_endian.h"

namespace ovaline::host {

namespace {

constexpr std::size_t kHeaderSize = 4;

std::size_t wordAt(std::span<const std::byte> bytes, std::size_t at) {
    std::uint16_t word = 0;
    loadLittleEndian(&bytes[at], word);
    return word;
}

}  // namespace

RasterPicture::RasterPicture(GuardedBuffer buffer)
    : buffer_(std::move(buffer)), rows_(wordAt(buffer_.bytes(), 0)), columns_(wordAt(buffer_.bytes(), 2)) {
    if (rasterLength(buffer_.bytes()) < kHeaderSize + rows_ * ((columns_ + 7) / 8))
        throw Failure("the control's raster is longer than it said, install its module again");
}

std::span<const std::byte> RasterPicture::row(std::size_t y) const {
    const std::size_t bytesPerRow = (columns_ + 7) / 8;
    // The control's rows begin with the bottom one.
    return buffer_.bytes().subspan(kHeaderSize + (rows_ - 1 - y) * bytesPerRow, bytesPerRow);
}

std::size_t RasterPicture::darkPixels() const {
    std::size_t dark = 0;
    for (std::size_t y = 0; y < rows_; ++y)
        for (const std::byte byte : row(y))
            dark += static_cast<std::size_t>(std::popcount(std::to_integer<unsigned>(byte)));
    return dark;
}

RasterPicture readRaster(INorvel_OvalineCtrl& control, double step) {
    LONG size = 0;
    require(control.SetStepSize(static_cast<FLOAT>(step)), "SetStepSize");
    require(control.GetRasterDataSize(&size), "GetRasterDataSize");
    if (size < static_cast<LONG>(kHeaderSize))
        throw Failure("the control gives no size of its raster, install its module again");
    GuardedBuffer buffer(static_cast<std::size_t>(size));
    const NestedReference reference(buffer.data(), VT_UI1);
    const HRESULT hr = control.GetRasterData(reference.outer(), size);
    if (buffer.overrun()) throw Failure("the control wrote beyond its buffer, install its module again");
    if (hr == E_OUTOFMEMORY) throw Failure("the raster is too large, make --step larger");
    if (hr == E_INVALIDARG) throw Failure("not one pixel of that size spans the ellipse, make --step smaller");
    require(hr, "GetRasterData");
    RasterPicture picture(std::move(buffer));
    if (picture.rows() == 0 || picture.columns() == 0)
        throw Failure("there is nothing to draw with pixels of that size, give a text or make --step smaller");
    return picture;
}

}  // namespace ovaline::host
