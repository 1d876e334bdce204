// Pictures in files.
//
// A picture is drawn on through a device context, and the module that draws is another one than the program that made
// the picture. A device context of memory can state neither a resolution nor how opaque a pixel is, so canvases bypass
// it: they find the pixels, and the description before them, in the memory section behind the context's bitmap.
#include "platform/windows/drawing_picture.h"

#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/windows/drawing_canvas.h"

namespace ovaline::platform {

namespace {

// GDI+'s own PNG encoder.
constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

/// What stands in the section before the pixels. Both modules may be of different age, so it never changes.
struct PictureHead {
    GUID mark;
    float pixelsPerInch;
    std::uint32_t reserved;
};
static_assert(sizeof(PictureHead) == 24);
constexpr GUID kPictureMark = {0x6E0A4B5D, 0x93C2, 0x4F17, {0xA8, 0x5E, 0x1D, 0x70, 0xC4, 0x3B, 0x96, 0xF2}};

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Section = std::unique_ptr<void, HandleCloser>;

struct ViewCloser {
    void operator()(void* view) const { UnmapViewOfFile(view); }
};
using View = std::unique_ptr<void, ViewCloser>;

struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

struct DcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
using DcHandle = std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter>;

View mapHead(HANDLE section, DWORD access) {
    return View(MapViewOfFile(section, access, 0, 0, sizeof(PictureHead)));
}

std::string contentsOf(IStream& stream) {
    HGLOBAL memory = nullptr;
    STATSTG status{};
    if (GetHGlobalFromStream(&stream, &memory) != S_OK || stream.Stat(&status, STATFLAG_NONAME) != S_OK) return {};
    const void* const bytes = GlobalLock(memory);
    if (!bytes) return {};
    std::string contents(static_cast<const char*>(bytes), static_cast<std::size_t>(status.cbSize.QuadPart));
    GlobalUnlock(memory);
    return contents;
}

class PngPicture final : public Picture {
public:
    static std::unique_ptr<Picture> make(int width, int height, float pixelsPerInch, std::optional<Argb> ground) {
        std::unique_ptr<PngPicture> picture(new (std::nothrow) PngPicture);
        if (!picture || !picture->allocate(width, height, pixelsPerInch)) return nullptr;
        if (ground && !picture->paint(*ground)) return nullptr;
        picture->isOpaque_ = ground && *ground >= kOpaqueBlack;
        return picture;
    }

    HDC dc() override { return dc_.get(); }

    std::string finish() override {
        GdiFlush();
        // On an opaque ground everything is opaque, though what GDI itself draws has no opacity.
        const Gdiplus::PixelFormat held = isOpaque_ ? PixelFormat32bppRGB : PixelFormat32bppPARGB;
        const Gdiplus::PixelFormat written = isOpaque_ ? PixelFormat24bppRGB : PixelFormat32bppARGB;
        Gdiplus::Bitmap image(block_.width, block_.height, block_.stride(), held, block_.bytes());
        const std::unique_ptr<Gdiplus::Bitmap> plain(image.Clone(0, 0, block_.width, block_.height, written));
        ComPtr<IStream> stream;
        if (!plain || CreateStreamOnHGlobal(nullptr, TRUE, stream.put()) != S_OK) return {};
        if (plain->Save(stream.get(), &kPngEncoder, nullptr) != Gdiplus::Ok) return {};
        return contentsOf(*stream.get());
    }

private:
    PngPicture() = default;

    bool allocate(int width, int height, float pixelsPerInch) {
        const std::uint64_t size = sizeof(PictureHead) + std::uint64_t{sizeof(std::uint32_t)} *
                                                             static_cast<std::uint64_t>(width) *
                                                             static_cast<std::uint64_t>(height);
        section_.reset(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, static_cast<DWORD>(size >> 32),
                                          static_cast<DWORD>(size), nullptr));
        if (!section_) return false;
        const View head = mapHead(section_.get(), FILE_MAP_WRITE);
        if (!head) return false;
        const PictureHead description{kPictureMark, pixelsPerInch, 0};
        std::memcpy(head.get(), &description, sizeof description);
        dc_.reset(CreateCompatibleDC(nullptr));
        BITMAPINFO form{};
        form.bmiHeader.biSize = sizeof form.bmiHeader;
        form.bmiHeader.biWidth = width;
        form.bmiHeader.biHeight = -height;  // negative: the top row comes first
        form.bmiHeader.biPlanes = 1;
        form.bmiHeader.biBitCount = 32;
        form.bmiHeader.biCompression = BI_RGB;
        void* pixels = nullptr;
        bitmap_.reset(CreateDIBSection(dc_.get(), &form, DIB_RGB_COLORS, &pixels, section_.get(), sizeof(PictureHead)));
        if (!dc_ || !bitmap_ || !pixels || !SelectObject(dc_.get(), bitmap_.get())) return false;
        block_ = {static_cast<std::uint32_t*>(pixels), width, height};
        return true;
    }

    bool paint(Argb ground) {
        const std::unique_ptr<Canvas> canvas = makePictureCanvas(dc_.get());
        if (canvas) canvas->fillOutside(canvas->visible(), {}, ground);
        return canvas != nullptr;
    }

    Section section_;
    BitmapHandle bitmap_;  // stays until the device context that holds it is gone
    DcHandle dc_;
    PixelBlock block_;
    bool isOpaque_ = false;
};

}  // namespace

std::unique_ptr<Canvas> makePictureCanvas(HDC dc) {
    DIBSECTION bitmap{};
    if (GetObjectW(GetCurrentObject(dc, OBJ_BITMAP), sizeof bitmap, &bitmap) != sizeof bitmap) return nullptr;
    if (!bitmap.dshSection || bitmap.dsOffset != sizeof(PictureHead) || bitmap.dsBm.bmBitsPixel != 32) return nullptr;
    const View view = mapHead(bitmap.dshSection, FILE_MAP_READ);
    PictureHead head{};
    if (!view) return nullptr;
    std::memcpy(&head, view.get(), sizeof head);
    if (!IsEqualGUID(head.mark, kPictureMark)) return nullptr;
    const PixelBlock block{static_cast<std::uint32_t*>(bitmap.dsBm.bmBits), static_cast<int>(bitmap.dsBm.bmWidth),
                           static_cast<int>(bitmap.dsBm.bmHeight)};
    return GdiplusCanvas::onPixels(block, PixelFormat32bppPARGB, head.pixelsPerInch);
}

bool offersPictures(PictureKind kind) {
    return kind == PictureKind::Png;
}

std::unique_ptr<Picture> makePicture(PictureKind kind, int width, int height, float pixelsPerInch,
                                     std::optional<Argb> ground) {
    if (!offersPictures(kind) || !fitsBitmap(width, height) || !(pixelsPerInch > 0) || !startGdiplus()) return nullptr;
    return PngPicture::make(width, height, pixelsPerInch, ground);
}

}  // namespace ovaline::platform
