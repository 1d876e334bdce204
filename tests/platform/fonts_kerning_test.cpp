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
    int size() const { return static_cast<int>(data.size()); }

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

TEST(KernTable, OtherVersionsAreNotRead) {
    EXPECT_FALSE(kernTablePairs({}, kCodes));
    EXPECT_FALSE(kernTablePairs(Bytes{1, 0, 0, 1}.data, kCodes));
    EXPECT_EQ(kernTablePairs(Bytes{0, 0}.data, kCodes), Pairs{});
}

TEST(KernTable, CountsAndLengthsBeyondTheTableAreCut) {
    Bytes table{0, 1, 0, 0xFFFF, kHorizontal, 0xFFFF, 0, 0, 0, kA, kB, 5, kB, kC, 6, kC};
    EXPECT_EQ(kernTablePairs(table.data, kCodes), (Pairs{{u'A', u'B', 5}, {u'B', u'C', 6}}));
    const Bytes wrapped{0, 1, 0, 8, kHorizontal, 1, 0, 0, 0, kA, kB, 5};
    EXPECT_EQ(kernTablePairs(wrapped.data, kCodes), (Pairs{{u'A', u'B', 5}}));
    const Bytes stuck{0, 0xFFFF, 0, 0, kHorizontal, 0};
    EXPECT_EQ(kernTablePairs(stuck.data, kCodes), Pairs{});
}

constexpr int kAdvance = 4, kPlacementAndAdvance = 5;

/// Coverage of single glyphs.
Bytes coverage(std::initializer_list<int> glyphs) {
    Bytes table{1, static_cast<int>(glyphs.size())};
    table.append(glyphs);
    return table;
}

/// Format 1 with one first glyph; a pair is the second glyph, then the value.
Bytes listedPairs(int first, int format, std::initializer_list<std::initializer_list<int>> pairs) {
    const Bytes covered = coverage({first});
    Bytes subtable{1, 12, format, 0, 1, 12 + covered.size()};
    subtable.append(covered);
    subtable.append16(static_cast<int>(pairs.size()));
    for (const auto& pair : pairs) subtable.append(pair);
    return subtable;
}

/// Format 2: A is of class 1 as first glyph, B and C as second; `values` by class of the first, then of the second.
Bytes classPairs(std::initializer_list<int> covered, std::initializer_list<int> values) {
    const Bytes covers = coverage(covered);
    const Bytes firstClasses{1, kA, 1, 1};
    const Bytes secondClasses{2, 1, kB, kC, 1};
    const int coverageAt = 16 + 2 * static_cast<int>(values.size());
    Bytes subtable{
        2, coverageAt, kAdvance, 0, coverageAt + covers.size(), coverageAt + covers.size() + firstClasses.size(), 2, 2};
    subtable.append(values);
    subtable.append(covers);
    subtable.append(firstClasses);
    subtable.append(secondClasses);
    return subtable;
}

Bytes lookup(int type, std::initializer_list<Bytes> subtables) {
    Bytes table{type, 0, static_cast<int>(subtables.size())};
    int at = 6 + 2 * static_cast<int>(subtables.size());
    for (const Bytes& subtable : subtables) {
        table.append16(at);
        at += subtable.size();
    }
    for (const Bytes& subtable : subtables) table.append(subtable);
    return table;
}

constexpr int kPairType = 2, kExtensionType = 9;

/// One script with one feature that has all lookups.
Bytes gposTable(const char* script, const char* feature, std::initializer_list<Bytes> lookups) {
    const auto half = [](const char* tag, int i) { return tag[i] << 8 | tag[i + 1]; };
    const int count = static_cast<int>(lookups.size());
    const Bytes scripts{1, half(script, 0), half(script, 2), 8, 4, 0, 0, 0xFFFF, 1, 0};
    Bytes features{1, half(feature, 0), half(feature, 2), 8, 0, count};
    for (int i = 0; i < count; ++i) features.append16(i);
    Bytes table{1, 0, 10, 10 + scripts.size(), 10 + scripts.size() + features.size()};
    table.append(scripts);
    table.append(features);
    table.append16(count);
    int at = 2 + 2 * count;
    for (const Bytes& one : lookups) {
        table.append16(at);
        at += one.size();
    }
    for (const Bytes& one : lookups) table.append(one);
    return table;
}

Pairs gposPairs(std::initializer_list<Bytes> lookups, const char* script = "latn", const char* feature = "kern") {
    return gposKerningPairs(gposTable(script, feature, lookups).data, kCodes);
}

TEST(GposKerning, ListedPairsGiveTheAdvanceOfTheFirstGlyph) {
    const Bytes pairs = listedPairs(kB, kPlacementAndAdvance, {{kA, 70, -5}, {kC, 70, 0}, {kNoCode, 70, 9}});
    EXPECT_EQ(gposPairs({lookup(kPairType, {pairs})}), (Pairs{{u'B', u'A', -5}}));
}

TEST(GposKerning, ClassPairsCoverClassZeroToo) {
    EXPECT_EQ(
        gposPairs({lookup(kPairType, {classPairs({kA, kB}, {1, 2, 3, 4})})}),
        (Pairs{{u'A', u'A', 3}, {u'A', u'B', 4}, {u'A', u'C', 4}, {u'B', u'A', 1}, {u'B', u'B', 2}, {u'B', u'C', 2}}));
}

TEST(GposKerning, FirstSubtableThatAppliesDecides) {
    const Bytes listed = listedPairs(kA, kAdvance, {{kB, 0}});
    const Bytes classes = classPairs({kA}, {0, 0, 0, 40});
    EXPECT_EQ(gposPairs({lookup(kPairType, {listed, classes})}), (Pairs{{u'A', u'C', 40}}));
    // A class subtable applies to every pair of a glyph that it covers, also with a value of 0.
    EXPECT_EQ(gposPairs({lookup(kPairType, {classes, listedPairs(kA, kAdvance, {{kA, 7}})})}),
              (Pairs{{u'A', u'B', 40}, {u'A', u'C', 40}}));
}

TEST(GposKerning, LookupsAddUp) {
    const Bytes first = lookup(kPairType, {listedPairs(kA, kAdvance, {{kB, -10}, {kC, 3}})});
    const Bytes second = lookup(kPairType, {listedPairs(kA, kAdvance, {{kB, 4}, {kC, -3}})});
    EXPECT_EQ(gposPairs({first, second}), (Pairs{{u'A', u'B', -6}}));
}

TEST(GposKerning, ExtensionsAreFollowed) {
    Bytes extension{1, kPairType, 0, 8};
    extension.append(listedPairs(kA, kAdvance, {{kB, -10}}));
    EXPECT_EQ(gposPairs({lookup(kExtensionType, {extension})}), (Pairs{{u'A', u'B', -10}}));
}

TEST(GposKerning, OtherScriptsFeaturesAndLookupsAreLeftOut) {
    const Bytes pairs = listedPairs(kA, kAdvance, {{kB, -10}});
    EXPECT_EQ(gposPairs({lookup(kPairType, {pairs})}, "arab"), Pairs{});
    EXPECT_EQ(gposPairs({lookup(kPairType, {pairs})}, "latn", "dist"), Pairs{});
    EXPECT_EQ(gposPairs({lookup(1, {pairs})}), Pairs{});
    EXPECT_EQ(gposPairs({lookup(kPairType, {pairs})}, "DFLT").size(), 1U);
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

TEST(KerningOfDamagedFonts, GposStaysWithinItsLimits) {
    const CodesOfGlyphs codes = codesOfManyGlyphs();
    const auto table = tableOf(std::filesystem::path(OVALINE_SOURCE_DIR) / "tests/fonts/OvalineTestGpos.ttf", kGposTag);
    EXPECT_FALSE(gposKerningPairs(table, codes).empty());
    damage(table, [&codes](const std::vector<std::byte>& damaged) {
        const Pairs pairs = gposKerningPairs(damaged, codes);
        EXPECT_LE(pairs.size(), kMostGposPairs);
        EXPECT_TRUE(std::ranges::is_sorted(pairs, {}, [](const auto& pair) { return pair.first << 16 | pair.second; }));
    });
}

TEST(KerningOfDamagedFonts, KernTableStaysWithinItsBytes) {
    const CodesOfGlyphs codes = codesOfManyGlyphs();
    const auto table = tableOf(std::filesystem::path(OVALINE_SOURCE_DIR) / "tests/fonts/OvalineTest.ttf", kKernTag);
    damage(table, [&](const std::vector<std::byte>& damaged) {
        const auto pairs = kernTablePairs(damaged, codes);
        EXPECT_LE(pairs.value_or(Pairs{}).size(), damaged.size() / 6);
    });
}

}  // namespace
}  // namespace ovaline::platform
