// What the drawing service has of its own on GDI+: device contexts of others, pictures across modules, their files.
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "platform/windows/drawing_gdiplus.h"

namespace ovaline::platform {
namespace {

constexpr Argb kHalfRed = 0x80FF0000;

/// A device context of memory that is no picture's.
class MemoryDc {
public:
    explicit MemoryDc(int side) {
        BITMAPINFO form{};
        form.bmiHeader.biSize = sizeof form.bmiHeader;
        form.bmiHeader.biWidth = side;
        form.bmiHeader.biHeight = -side;
        form.bmiHeader.biPlanes = 1;
        form.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(dc_, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
        SelectObject(dc_, bitmap_);
    }
    ~MemoryDc() {
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;

    HDC get() const { return dc_; }
    COLORREF at(int x, int y) const { return GetPixel(dc_, x, y); }

private:
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
};

TEST(GdiplusCanvas, DrawsOnAnyDeviceContext) {
    const MemoryDc dc(10);
    {
        const auto canvas = makeCanvas(dc.get());
        ASSERT_TRUE(canvas);
        EXPECT_EQ(canvas->pixelsPerInch(), static_cast<float>(GetDeviceCaps(dc.get(), LOGPIXELSY)));
        EXPECT_EQ(canvas->visible(), (DrawingBox{0, 0, 10, 10}));
        canvas->setClip({0, 0, 5, 10});
        canvas->fillOutside({2, 2, 6, 6}, {}, 0xFF112233);
    }
    EXPECT_EQ(dc.at(1, 1), RGB(0, 0, 0));
    EXPECT_EQ(dc.at(2, 2), RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(dc.at(5, 2), RGB(0, 0, 0));
    // What was drawn here leaves the context as it was.
    EXPECT_TRUE(SetPixel(dc.get(), 9, 9, RGB(1, 2, 3)) != CLR_INVALID);
}

TEST(GdiplusCanvas, KeepsWithinTheContextsOwnClip) {
    const MemoryDc dc(10);
    IntersectClipRect(dc.get(), 3, 3, 6, 7);
    const auto canvas = makeCanvas(dc.get());
    EXPECT_EQ(canvas->visible(), (DrawingBox{3, 3, 3, 4}));
    canvas->resetClip();
    canvas->fillOutside({0, 0, 10, 10}, {}, kOpaqueWhite);
    EXPECT_EQ(dc.at(4, 4), RGB(255, 255, 255));
    SelectClipRgn(dc.get(), nullptr);
    EXPECT_EQ(dc.at(1, 1), RGB(0, 0, 0));
}

TEST(GdiplusCanvas, DrawsIntoMetafiles) {
    const RECT frame{0, 0, 20000, 20000};  // hundredths of a millimetre
    const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    {
        const auto canvas = makeCanvas(recording);
        ASSERT_TRUE(canvas);
        EXPECT_GE(canvas->visible().Width, 30000);
        canvas->setClip({0, 0, 4, 10});
        canvas->fillOutside({2, 2, 6, 6}, {}, 0xFF112233);
    }
    const HENHMETAFILE file = CloseEnhMetaFile(recording);
    const MemoryDc dc(10);
    // At the size it was recorded at.
    const RECT whole{0, 0, MulDiv(200, GetDeviceCaps(dc.get(), HORZRES), GetDeviceCaps(dc.get(), HORZSIZE)),
                     MulDiv(200, GetDeviceCaps(dc.get(), VERTRES), GetDeviceCaps(dc.get(), VERTSIZE))};
    EXPECT_TRUE(PlayEnhMetaFile(dc.get(), file, &whole));
    DeleteEnhMetaFile(file);
    EXPECT_EQ(dc.at(3, 3), RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(dc.at(1, 1), RGB(0, 0, 0));
    EXPECT_EQ(dc.at(6, 3), RGB(0, 0, 0));
}

/// The pixels of a file as colours that are not premultiplied.
std::vector<Argb> decoded(const std::string& file) {
    IStream* stream = nullptr;
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, file.size());
    std::memcpy(GlobalLock(memory), file.data(), file.size());
    GlobalUnlock(memory);
    if (CreateStreamOnHGlobal(memory, TRUE, &stream) != S_OK) return {};
    std::vector<Argb> pixels;
    {
        Gdiplus::Bitmap image(stream);
        for (UINT y = 0; y < image.GetHeight(); ++y)
            for (UINT x = 0; x < image.GetWidth(); ++x) {
                Gdiplus::Color colour;
                image.GetPixel(static_cast<INT>(x), static_cast<INT>(y), &colour);
                pixels.push_back(colour.GetValue());
            }
    }
    stream->Release();
    return pixels;
}

TEST(GdiplusPicture, GroundAndInkReachTheFile) {
    struct Case {
        std::optional<Argb> ground;
        Argb outside;
        Argb inside;
    };
    for (const Case& c : {Case{std::nullopt, 0, kHalfRed}, Case{kOpaqueWhite, kOpaqueWhite, 0xFFFF7F7F}}) {
        const auto picture = makePicture(PictureKind::Png, 3, 2, 144, c.ground);
        ASSERT_TRUE(picture);
        {
            const auto canvas = makeCanvas(picture->dc());
            EXPECT_EQ(canvas->pixelsPerInch(), 144);
            canvas->fillOutside({1, 0, 1, 2}, {}, kHalfRed);
        }
        if (c.ground) SetPixel(picture->dc(), 2, 1, RGB(1, 2, 3));
        const std::vector<Argb> pixels = decoded(picture->finish());
        ASSERT_EQ(pixels.size(), 6U);
        EXPECT_EQ(pixels[0], c.outside);
        EXPECT_EQ(pixels[1], c.inside);
        EXPECT_EQ(pixels[5], c.ground ? 0xFF010203 : c.outside);
    }
}

TEST(GdiplusPicture, OtherKindsAreNotMade) {
    for (const PictureKind kind : {PictureKind::Svg, PictureKind::Pdf}) {
        EXPECT_FALSE(offersPictures(kind));
        EXPECT_EQ(makePicture(kind, 10, 10, 96, kOpaqueWhite), nullptr);
    }
}

TEST(GdiplusObjects, AreReleased) {
    const auto round = [] {
        const auto bitmap = makeBitmap(20, 20);
        bitmap->canvas().fillEllipse({0, 0, 20, 20}, kHalfRed);
        const auto picture = makePicture(PictureKind::Png, 20, 20, 96, kOpaqueWhite);
        makeCanvas(picture->dc())->fillEllipse({0, 0, 20, 20}, kHalfRed);
        EXPECT_FALSE(picture->finish().empty());
    };
    const auto handles = [] {
        DWORD count = 0;
        GetProcessHandleCount(GetCurrentProcess(), &count);
        return count + GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    };
    round();
    const DWORD before = handles();
    for (int i = 0; i < 20; ++i) round();
    EXPECT_LE(handles(), before + 2);
}

}  // namespace
}  // namespace ovaline::platform
