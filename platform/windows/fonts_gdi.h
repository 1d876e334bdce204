// One font of GDI.
#pragma once

#include <memory>

#include "platform/com.h"
#include "platform/fonts.h"
#include "platform/windows/fonts_private.h"

namespace ovaline::platform {

/// The screen's device context, in which a logical unit is a dot. It is fetched for each use: a device context belongs
/// to the thread that fetched it, a font to the process.
class ScreenDc {
public:
    ScreenDc() : dc_(GetDC(nullptr)) {}
    ~ScreenDc() {
        if (dc_) ReleaseDC(nullptr, dc_);
    }
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;

    explicit operator bool() const { return dc_ != nullptr; }
    HDC get() const { return dc_; }

private:
    HDC dc_;
};

/// As FontService::createFont, without a cache. The font keeps `privateFonts` alive, of which it may be one.
std::shared_ptr<const Font> makeGdiFont(const LogFont& description, std::shared_ptr<const PrivateFonts> privateFonts);

}  // namespace ovaline::platform
