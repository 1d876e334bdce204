#include <string>

#include "host/writers.h"

namespace ovaline::host {

void writePbm(const RasterPicture& picture, Sink& sink) {
    sink.append("P4\n" + std::to_string(picture.columns()) + " " + std::to_string(picture.rows()) + "\n");
    for (std::size_t y = 0; y < picture.rows(); ++y) {
        const std::span<const std::byte> row = picture.row(y);
        sink.append({reinterpret_cast<const char*>(row.data()), row.size()});
    }
}

}  // namespace ovaline::host
