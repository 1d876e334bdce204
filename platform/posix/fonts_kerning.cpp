#include "platform/posix/fonts_kerning.h"

#include <algorithm>

#include "platform/posix/fonts_table.h"

namespace ovaline::platform {

namespace {

constexpr std::size_t kTableHeaderSize = 4;
constexpr std::size_t kSubtableHeaderSize = 6;
constexpr std::size_t kFirstPair = 14;  // from the subtable's start, behind the header of format 0
constexpr std::size_t kPairSize = 6;

/// Format 0 with kerning values along the line: the bits for minimum values and for values across the line are clear.
bool holdsKerning(std::uint16_t coverage) {
    constexpr unsigned kFormatAndMeaning = 0xFF07;
    constexpr unsigned kHorizontal = 0x0001;
    return (coverage & kFormatAndMeaning) == kHorizontal;
}

void appendPairs(const BigEndianTable& table, std::size_t subtable, std::size_t end, std::span<const char16_t> codes,
                 std::vector<UnitKerningPair>& pairs) {
    const std::size_t begin = subtable + kFirstPair;
    if (begin > end) return;
    const std::size_t count =
        std::min<std::size_t>(table.u16(subtable + kSubtableHeaderSize), (end - begin) / kPairSize);
    for (std::size_t at = begin; at < begin + count * kPairSize; at += kPairSize) {
        const char16_t first = codeOf(codes, table.u16(at));
        const char16_t second = codeOf(codes, table.u16(at + 2));
        const std::int16_t amount = table.i16(at + 4);
        if (first != 0 && second != 0 && amount != 0) pairs.push_back({first, second, amount});
    }
}

}  // namespace

std::optional<std::vector<UnitKerningPair>> kernTablePairs(std::span<const std::byte> bytes,
                                                           std::span<const char16_t> codes) {
    const BigEndianTable table(bytes);
    if (table.size() < kTableHeaderSize || table.u16(0) != 0) return std::nullopt;
    std::vector<UnitKerningPair> pairs;
    std::size_t subtable = kTableHeaderSize;
    for (unsigned left = table.u16(2); left > 0; --left) {
        const std::size_t length = table.u16(subtable + 2);
        if (length < kSubtableHeaderSize) break;
        // The 16-bit length of a subtable with more than 10920 pairs wraps; fonts place such a subtable last.
        const std::size_t end = left == 1 ? table.size() : std::min(subtable + length, table.size());
        if (holdsKerning(table.u16(subtable + 4))) appendPairs(table, subtable, end, codes, pairs);
        subtable += length;
    }
    return pairs;
}

}  // namespace ovaline::platform
