#include "platform/metafile.h"

#include <memory>

namespace ovaline::platform {

namespace {

struct Discard {
    void operator()(HDC dc) const { DeleteEnhMetaFile(CloseEnhMetaFile(dc)); }
};
using Recording = std::unique_ptr<std::remove_pointer_t<HDC>, Discard>;

}  // namespace

bool hasMetafiles() {
    return true;
}

HRESULT recordMetafile(const SIZEL& size, const DrawPicture& draw, STGMEDIUM& medium) {
    medium = {};
    // The frame's unit is that of the size, a hundredth of a millimetre.
    const RECT frame{0, 0, size.cx, size.cy};
    Recording recording(CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr));
    if (!recording) return E_OUTOFMEMORY;
    const auto pixels = [&](LONG length, int pixelsAcross, int millimetresAcross) {
        return MulDiv(length, GetDeviceCaps(recording.get(), pixelsAcross),
                      100 * GetDeviceCaps(recording.get(), millimetresAcross));
    };
    draw(recording.get(), {0, 0, pixels(size.cx, HORZRES, HORZSIZE), pixels(size.cy, VERTRES, VERTSIZE)});
    HENHMETAFILE made = CloseEnhMetaFile(recording.release());
    if (!made) return E_OUTOFMEMORY;
    medium.tymed = TYMED_ENHMF;
    medium.hEnhMetaFile = made;
    return S_OK;
}

}  // namespace ovaline::platform
