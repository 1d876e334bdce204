// What the drawing service has where it does not stand on GDI+: edges within pixels, and pictures of lines and areas.
#include <gtest/gtest.h>

#include "tests/platform/drawing_engine.h"

namespace ovaline::platform {

TEST(DrawingEngine, PlacesEdgesWithinPixelsAndDrawsLinesAndAreas) {
    EXPECT_TRUE(drawsWithinPixels());
    EXPECT_TRUE(offersPictures(PictureKind::Svg) && offersPictures(PictureKind::Pdf));
}

}  // namespace ovaline::platform
