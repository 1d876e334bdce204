// What the comparison with the font files does not reach: kinds of subtables that no real font has, and damage.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <random>

#include "platform/posix/fonts_table.h"
#include "platform/posix/gpos_kerning.h"

namespace ovaline::platform {
namespace {

/// Big-endian bytes of a table.
struct Bytes {
    Bytes(std::initializer_list<int> numbers) {
        for (const int number : numbers) append16(number);
    }
    void append16(int number) {
        data.push_back(static_cast<std::byte>(number >> 8 & 0xFF));
        data.push_back(static_cast<std::byte>(number & 0xFF));
    }
    void append(const Bytes& other) { data.insert(data.end(), other.data.begin(), other.data.end()); }

    std::vector<std::byte> data;
};

/// Glyphs 1, 2, 3 are A, B, C; glyph 4 has no code.
const CodesOfGlyphs kCodes{0, u'A', u'B', u'C', 0};
constexpr int kA = 1, kB = 2, kC = 3, kNoCode = 4;

constexpr int kHorizontal = 1, kMinimum = 2, kAcross = 4, kFormat2 = 0x200;

Bytes kernSubtable(int coverage, std::initializer_list<std::initializer_list<int>> pairs) {
    Bytes subtable{0, 14 + 6 * static_cast<int>(pairs.size()), coverage, static_cast<int>(pairs.size()), 0, 0, 0};
    for (const auto& pair : pairs) subtable.append(pair);
    return subtable;
}

Bytes kernTable(std::initializer_list<Bytes> subtables) {
    Bytes table{0, static_cast<int>(subtables.size())};
    for (const Bytes& subtable : subtables) table.append(subtable);
    return table;
}

using Pairs = std::vector<UnitKerningPair>;

TEST(KernTable, PairsKeepTheirOrderAndDuplicates) {
    const Bytes table =
        kernTable({kernSubtable(kHorizontal, {{kB, kA, -5}, {kA, kB, 0}, {kA, kNoCode, 9}, {kA, 99, 9}}),
                   kernSubtable(kHorizontal, {{kA, kC, 7}, {kB, kA, -6}})});
    EXPECT_EQ(kernTablePairs(table.data, kCodes), (Pairs{{u'B', u'A', -5}, {u'A', u'C', 7}, {u'B', u'A', -6}}));
}

TEST(KernTable, OtherKindsOfSubtablesAreLeftOut) {
    const Bytes table =
        kernTable({kernSubtable(0, {{kA, kB, 1}}), kernSubtable(kHorizontal | kMinimum, {{kA, kB, 2}}),
                   kernSubtable(kHorizontal | kAcross, {{kA, kB, 3}}),
                   kernSubtable(kHorizontal | kFormat2, {{kA, kB, 4}}), kernSubtable(kHorizontal, {{kA, kB, 5}})});
    EXPECT_EQ(kernTablePairs(table.data, kCodes), (Pairs{{u'A', u'B', 5}}));
}

TEST(KernTable, CountsAndLengthsBeyondTheTableAreCut) {
    Bytes table{0, 1, 0, 0xFFFF, kHorizontal, 0xFFFF, 0, 0, 0, kA, kB, 5, kB, kC, 6, kC};
    EXPECT_EQ(kernTablePairs(table.data, kCodes), (Pairs{{u'A', u'B', 5}, {u'B', u'C', 6}}));
    const Bytes wrapped{0, 1, 0, 8, kHorizontal, 1, 0, 0, 0, kA, kB, 5};
    EXPECT_EQ(kernTablePairs(wrapped.data, kCodes), (Pairs{{u'A', u'B', 5}}));
    EXPECT_FALSE(kernTablePairs({}, kCodes));
    EXPECT_FALSE(kernTablePairs(Bytes{1, 0, 0, 1}.data, kCodes)) << "of another version";
    const Bytes stuck{0, 0xFFFF, 0, 0, kHorizontal, 0};
    EXPECT_EQ(kernTablePairs(stuck.data, kCodes), Pairs{});
}

/// The table `tag` of a font file.
std::vector<std::byte> tableOf(const std::filesystem::path& path, std::uint32_t tag) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> characters{std::istreambuf_iterator<char>(file), {}};
    const std::span<const std::byte> bytes = std::as_bytes(std::span(characters));
    const BigEndianTable font(bytes);
    for (std::size_t i = 0; i < font.u16(4); ++i) {
        const std::size_t record = 12 + 16 * i;
        if (font.u32(record) != tag) continue;
        const auto table = bytes.subspan(font.u32(record + 8), font.u32(record + 12));
        return {table.begin(), table.end()};
    }
    return {};
}

/// Calls `read` with damaged copies of `table`.
template <typename Read>
void damage(const std::vector<std::byte>& table, Read read) {
    constexpr int kRounds = 1500;
    constexpr std::size_t kHeader = 512;  // counts and offsets gather here
    std::mt19937 random(20241);           // the same damage in every run
    const auto below = [&random](std::size_t end) { return random() % end; };
    ASSERT_FALSE(table.empty());
    for (int round = 0; round < kRounds; ++round) {
        std::vector<std::byte> copy = table;
        for (std::size_t left = 1 + below(16); left > 0; --left) {
            copy[below(round % 2 ? copy.size() : std::min(copy.size(), kHeader))] = static_cast<std::byte>(random());
        }
        if (round % 4 == 3) copy.resize(below(copy.size()));
        copy.shrink_to_fit();  // so that reading behind the end is noticed
        read(copy);
    }
}

constexpr std::uint32_t kKernTag = 0x6B65726E;
constexpr std::uint32_t kGposTag = 0x47504F53;

CodesOfGlyphs codesOfManyGlyphs() {
    CodesOfGlyphs codes(600);
    for (std::size_t glyph = 1; glyph < codes.size(); ++glyph) codes[glyph] = static_cast<char16_t>(0x20 + glyph);
    return codes;
}

TEST(GposKerning, OtherScriptsFeaturesAndLookupsAreLeftOut) {
    const auto gpos = tableOf(OVALINE_SOURCE_DIR "/tests/fonts/OvalineTestGpos.ttf", kGposTag);
    const auto pairsWith = [&](std::size_t at, std::uint32_t tag, unsigned size) {
        std::vector<std::byte> changed = gpos;
        for (unsigned i = 0; i < size; ++i) changed[at + i] = static_cast<std::byte>(tag >> 8 * (size - 1 - i));
        return gposKerningPairs(changed, codesOfManyGlyphs());
    };
    const BigEndianTable table(gpos);
    const Pairs all = gposKerningPairs(gpos, codesOfManyGlyphs());
    constexpr std::uint32_t kLatin = 0x6C61746E, kArabic = 0x61726162;
    const std::size_t scripts = table.u16(4), features = table.u16(6), lookups = table.u16(8);
    const std::size_t common = scripts + 2, latin = scripts + 8;  // both lead to the feature
    ASSERT_EQ(table.u32(latin), kLatin);
    EXPECT_EQ(pairsWith(latin, kArabic, 4), all);
    EXPECT_EQ(pairsWith(common, kArabic, 4), all);
    EXPECT_EQ(pairsWith(scripts, 0, 2), Pairs{});
    EXPECT_EQ(pairsWith(features + 2, kArabic, 4), Pairs{});
    EXPECT_LT(pairsWith(lookups + table.u16(lookups + 2), 1, 2).size(), all.size());
}

TEST(KerningOfDamagedFonts, StaysWithinItsLimits) {
    const CodesOfGlyphs codes = codesOfManyGlyphs();
    const std::filesystem::path fonts = OVALINE_SOURCE_DIR "/tests/fonts";
    const auto gpos = tableOf(fonts / "OvalineTestGpos.ttf", kGposTag);
    EXPECT_FALSE(gposKerningPairs(gpos, codes).empty());
    damage(gpos, [&codes](const std::vector<std::byte>& damaged) {
        const Pairs pairs = gposKerningPairs(damaged, codes);
        EXPECT_LE(pairs.size(), kMostGposPairs);
        EXPECT_TRUE(std::ranges::is_sorted(pairs, {}, [](const auto& pair) { return pair.first << 16 | pair.second; }));
    });
    damage(tableOf(fonts / "OvalineTest.ttf", kKernTag), [&](const std::vector<std::byte>& damaged) {
        EXPECT_LE(kernTablePairs(damaged, codes).value_or(Pairs{}).size(), damaged.size() / 6);
    });
}

}  // namespace
}  // namespace ovaline::platform
