// Reading of native outlines, for tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace ovaline::platform {

/// Reads little-endian numbers one after the other; 0 behind the end.
class RecordReader {
public:
    explicit RecordReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::uint32_t number(unsigned size) {
        std::uint32_t value = 0;
        for (unsigned i = 0; i < size && at_ < bytes_.size(); ++i) {
            value |= std::to_integer<std::uint32_t>(bytes_[at_++]) << 8 * i;
        }
        return value;
    }
    std::int32_t fixed() { return static_cast<std::int32_t>(number(4)); }
    std::size_t at() const { return at_; }
    bool atEnd() const { return at_ >= bytes_.size(); }

private:
    std::span<const std::byte> bytes_;
    std::size_t at_ = 0;
};

/// The records in short: `M` a contour's start, `L` a line record, `Q` a spline record, `Z` the end of a contour,
/// coordinates in dots. Says so where sizes do not fit or types are unknown.
inline std::string described(std::span<const std::byte> polygons) {
    std::ostringstream text;
    RecordReader reader(polygons);
    const auto point = [&] {
        text << reader.fixed() / 65536.0 << ',';
        text << reader.fixed() / 65536.0 << ' ';
    };
    while (!reader.atEnd()) {
        const std::size_t end = reader.at() + reader.number(4);
        if (reader.number(4) != 24 || end > polygons.size()) return text.str() + "bad header";
        text << 'M';
        point();
        while (reader.at() < end) {
            const std::uint32_t type = reader.number(2);
            if (type != 1 && type != 2) return text.str() + "bad record";
            text << (type == 1 ? 'L' : 'Q');
            for (std::uint32_t left = reader.number(2); left > 0; --left) point();
        }
        if (reader.at() != end) return text.str() + "bad size";
        text << "Z ";
    }
    return text.str();
}

/// Coordinates of all points, x and y in turn, in 16.16.
inline std::vector<std::int32_t> coordinates(std::span<const std::byte> polygons) {
    std::vector<std::int32_t> found;
    RecordReader reader(polygons);
    const auto take = [&](std::uint32_t points) {
        for (std::uint32_t i = 0; i < 2 * points && !reader.atEnd(); ++i) found.push_back(reader.fixed());
    };
    while (!reader.atEnd()) {
        const std::size_t end = reader.at() + reader.number(4);
        reader.number(4);
        take(1);
        while (reader.at() < end && !reader.atEnd()) {
            reader.number(2);
            take(reader.number(2));
        }
    }
    return found;
}

}  // namespace ovaline::platform
