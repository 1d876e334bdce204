// Reading of sfnt tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ovaline::platform {

/// Big-endian numbers at byte offsets of a table. Outside the table everything reads as 0: for counts and offsets that
/// means "none", so a damaged or cut table has fewer entries but never leads out of its bytes.
class BigEndianTable {
public:
    explicit BigEndianTable(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }

    std::uint16_t u16(std::size_t at) const {
        if (at >= bytes_.size() || bytes_.size() - at < 2) return 0;
        return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes_[at]) << 8 |
                                          std::to_integer<unsigned>(bytes_[at + 1]));
    }
    std::int16_t i16(std::size_t at) const { return static_cast<std::int16_t>(u16(at)); }
    std::uint32_t u32(std::size_t at) const { return std::uint32_t{u16(at)} << 16 | u16(at + 2); }

private:
    std::span<const std::byte> bytes_;
};

}  // namespace ovaline::platform
