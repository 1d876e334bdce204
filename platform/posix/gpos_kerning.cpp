#include "platform/posix/gpos_kerning.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "platform/posix/fonts_table.h"

namespace ovaline::platform {

namespace {

constexpr std::uint32_t tag(char a, char b, char c, char d) {
    return static_cast<std::uint32_t>(a) << 24 | static_cast<std::uint32_t>(b) << 16 |
           static_cast<std::uint32_t>(c) << 8 | static_cast<std::uint32_t>(d);
}

constexpr unsigned kPairAdjustment = 2;  // lookup types
constexpr unsigned kExtension = 9;

/// Steps (entries read, pairs set) that one table may take; text fonts need a hundredth.
constexpr std::size_t kMostSteps = std::size_t{1} << 24;

/// Latin with its supplements, Greek, Cyrillic; then Latin and Greek with diacritics, punctuation and currency signs.
bool isKerned(char16_t code) {
    return (code >= 0x0020 && code < 0x0530) || (code >= 0x1E00 && code < 0x20D0);
}

/// The glyphs among which pairs are sought, ascending by their codes and numbered in this order.
class KernedGlyphs {
public:
    static constexpr std::uint16_t kNone = 0xFFFF;

    explicit KernedGlyphs(std::span<const char16_t> codes)
        : numbers_(std::min<std::size_t>(codes.size(), 0x10000), kNone) {
        std::vector<std::pair<char16_t, std::size_t>> glyphs;
        for (std::size_t glyph = 0; glyph < numbers_.size(); ++glyph) {
            if (isKerned(codes[glyph])) glyphs.emplace_back(codes[glyph], glyph);
        }
        std::ranges::sort(glyphs);
        for (const auto& [code, glyph] : glyphs) {
            numbers_[glyph] = static_cast<std::uint16_t>(codes_.size());
            codes_.push_back(code);
        }
    }

    std::size_t count() const { return codes_.size(); }
    char16_t code(std::size_t number) const { return codes_[number]; }
    std::uint16_t number(std::size_t glyph) const { return glyph < numbers_.size() ? numbers_[glyph] : kNone; }
    std::size_t fontGlyphs() const { return numbers_.size(); }

private:
    std::vector<std::uint16_t> numbers_;  // by glyph
    std::vector<char16_t> codes_;
};

/// Adds up the advances of the lookups for every pair of the glyphs.
class PairReader {
public:
    PairReader(std::span<const std::byte> table, const KernedGlyphs& glyphs) : table_(table), glyphs_(glyphs) {}

    void readLookups() {
        const std::size_t list = table_.u16(8);
        noteLookupsOfKerning();
        // They apply in the order of the lookup list.
        for (std::size_t lookup = 0; lookup < table_.u16(list); ++lookup) {
            if (!isLookupOfKerning_[lookup]) continue;
            const std::size_t offset = table_.u16(list + 2 + 2 * lookup);
            if (offset != 0 && !readLookup(list + offset)) return;
        }
    }

    std::vector<UnitKerningPair> pairs() const {
        std::vector<UnitKerningPair> pairs;
        for (std::size_t i = 0; i < cells_.size() && pairs.size() < kMostGposPairs; ++i) {
            if (cells_[i].total == 0) continue;
            const std::size_t count = glyphs_.count();
            pairs.push_back({glyphs_.code(i / count), glyphs_.code(i % count), cells_[i].total});
        }
        return pairs;
    }

private:
    struct Cell {
        std::int32_t total = 0;
        std::uint32_t decidedBy = 0;  // number of the last lookup that applied
    };
    struct CoveredGlyph {
        std::uint16_t number = 0;  // among the kerned glyphs
        std::size_t coverageIndex = 0;
    };
    /// A value record's size and where in it the advance is.
    struct ValueFormat {
        explicit ValueFormat(unsigned flags)
            : size(2 * static_cast<std::size_t>(std::popcount(flags & 0xFFU))),
              advance(2 * static_cast<std::size_t>(std::popcount(flags & 0x3U))),
              hasAdvance((flags & 0x4U) != 0) {}
        std::size_t size;
        std::size_t advance;
        bool hasAdvance;
    };

    bool spend(std::size_t steps) {
        stepsLeft_ -= std::min(steps, stepsLeft_);
        return stepsLeft_ > 0;
    }

    void noteLookupsOfKerning() {
        const std::size_t scripts = table_.u16(4);
        for (std::size_t i = 0; i < table_.u16(scripts); ++i) {
            const std::size_t record = scripts + 2 + 6 * i;
            const std::uint32_t script = table_.u32(record);
            if (script != tag('D', 'F', 'L', 'T') && script != tag('l', 'a', 't', 'n')) continue;
            const std::size_t scriptTable = scripts + table_.u16(record + 4);
            const std::size_t language = table_.u16(scriptTable);
            if (language != 0) noteLookupsOf(scriptTable + language);
        }
    }

    void noteLookupsOf(std::size_t language) {
        const std::size_t features = table_.u16(6);
        const std::size_t indices = table_.u16(language + 4);
        if (!spend(indices)) return;
        for (std::size_t i = 0; i < indices; ++i) {
            const std::size_t feature = table_.u16(language + 6 + 2 * i);
            const std::size_t record = features + 2 + 6 * feature;
            if (feature >= table_.u16(features) || table_.u32(record) != tag('k', 'e', 'r', 'n')) continue;
            const std::size_t featureTable = features + table_.u16(record + 4);
            const std::size_t count = table_.u16(featureTable + 2);
            if (!spend(count)) return;
            for (std::size_t j = 0; j < count; ++j) isLookupOfKerning_[table_.u16(featureTable + 4 + 2 * j)] = true;
        }
    }

    /// False where the table asks for too much work; so too below.
    bool readLookup(std::size_t lookup) {
        ++lookup_;
        cells_.resize(glyphs_.count() * glyphs_.count());
        const unsigned type = table_.u16(lookup);
        for (std::size_t i = 0; i < table_.u16(lookup + 4); ++i) {
            if (!spend(1)) return false;
            const std::size_t offset = table_.u16(lookup + 6 + 2 * i);
            if (offset == 0) continue;
            std::size_t subtable = lookup + offset;
            unsigned subtableType = type;
            if (type == kExtension && table_.u16(subtable) == 1) {
                subtableType = table_.u16(subtable + 2);
                subtable += table_.u32(subtable + 4);
            }
            if (subtableType != kPairAdjustment) continue;
            const unsigned format = table_.u16(subtable);
            if (format == 1 && !readListedPairs(subtable)) return false;
            if (format == 2 && !readClassPairs(subtable)) return false;
        }
        return true;
    }

    /// Format 1: applies to the pairs it lists.
    bool readListedPairs(std::size_t subtable) {
        const ValueFormat value(table_.u16(subtable + 4));
        const ValueFormat second(table_.u16(subtable + 6));
        const std::size_t recordSize = 2 + value.size + second.size;
        if (!readCoverage(subtable)) return false;
        for (const CoveredGlyph& first : covered_) {
            if (first.coverageIndex >= table_.u16(subtable + 8)) continue;
            const std::size_t set = subtable + table_.u16(subtable + 10 + 2 * first.coverageIndex);
            const std::size_t count = table_.u16(set);
            if (!spend(count)) return false;
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t record = set + 2 + i * recordSize;
                const std::uint16_t number = glyphs_.number(table_.u16(record));
                if (number != KernedGlyphs::kNone) apply(first.number, number, value, record + 2);
            }
        }
        return true;
    }

    /// Format 2: applies to all pairs whose first glyph it covers.
    bool readClassPairs(std::size_t subtable) {
        const ValueFormat value(table_.u16(subtable + 4));
        const ValueFormat second(table_.u16(subtable + 6));
        const std::size_t recordSize = value.size + second.size;
        const std::size_t firstClasses = table_.u16(subtable + 12);
        const std::size_t secondClasses = table_.u16(subtable + 14);
        if (!readCoverage(subtable) || !readClasses(subtable + table_.u16(subtable + 8), firstClasses_) ||
            !readClasses(subtable + table_.u16(subtable + 10), secondClasses_)) {
            return false;
        }
        for (const CoveredGlyph& first : covered_) {
            if (!spend(glyphs_.count())) return false;
            const std::size_t row = firstClasses_[first.number];
            if (row >= firstClasses) continue;
            for (std::size_t number = 0; number < glyphs_.count(); ++number) {
                const std::size_t column = secondClasses_[number];
                if (column >= secondClasses) continue;
                apply(first.number, number, value, subtable + 16 + (row * secondClasses + column) * recordSize);
            }
        }
        return true;
    }

    void apply(std::size_t first, std::size_t second, const ValueFormat& format, std::size_t value) {
        Cell& cell = cells_[first * glyphs_.count() + second];
        if (cell.decidedBy == lookup_) return;
        cell.decidedBy = lookup_;
        if (format.hasAdvance) cell.total += table_.i16(value + format.advance);
    }

    /// Fills `covered_` with the kerned glyphs that the subtable covers.
    bool readCoverage(std::size_t subtable) {
        covered_.clear();
        const std::size_t coverage = subtable + table_.u16(subtable + 2);
        const unsigned format = table_.u16(coverage);
        const std::size_t count = table_.u16(coverage + 2);
        if (!spend(count)) return false;
        for (std::size_t i = 0; i < count; ++i) {
            if (format == 1) {
                cover(table_.u16(coverage + 4 + 2 * i), i);
            } else if (format == 2) {
                const std::size_t range = coverage + 4 + 6 * i;
                const std::size_t start = table_.u16(range);
                const std::size_t end = lastGlyph(table_.u16(range + 2));
                if (!spend(end - std::min(start, end))) return false;
                const std::size_t startIndex = table_.u16(range + 4);
                for (std::size_t glyph = start; glyph <= end; ++glyph) cover(glyph, startIndex + glyph - start);
            }
        }
        return true;
    }

    void cover(std::size_t glyph, std::size_t coverageIndex) {
        const std::uint16_t number = glyphs_.number(glyph);
        if (number != KernedGlyphs::kNone) covered_.push_back({number, coverageIndex});
    }

    /// Classes of the kerned glyphs by their numbers; 0 for those that the definition does not list.
    bool readClasses(std::size_t definition, std::vector<std::uint16_t>& classes) {
        classes.assign(glyphs_.count(), 0);
        const unsigned format = table_.u16(definition);
        if (format == 1) {
            const std::size_t start = table_.u16(definition + 2);
            const std::size_t count = table_.u16(definition + 4);
            for (std::size_t i = 0; i < count; ++i) classify(start + i, table_.u16(definition + 6 + 2 * i), classes);
            return spend(count + glyphs_.count());
        }
        const std::size_t ranges = format == 2 ? table_.u16(definition + 2) : std::size_t{0};
        for (std::size_t i = 0; i < ranges; ++i) {
            const std::size_t range = definition + 4 + 6 * i;
            const std::size_t start = table_.u16(range);
            const std::size_t end = lastGlyph(table_.u16(range + 2));
            if (!spend(1 + end - std::min(start, end))) return false;
            for (std::size_t glyph = start; glyph <= end; ++glyph) classify(glyph, table_.u16(range + 4), classes);
        }
        return spend(glyphs_.count());
    }

    void classify(std::size_t glyph, std::uint16_t glyphClass, std::vector<std::uint16_t>& classes) const {
        const std::uint16_t number = glyphs_.number(glyph);
        if (number != KernedGlyphs::kNone) classes[number] = glyphClass;
    }

    /// `glyph` within the font.
    std::size_t lastGlyph(std::size_t glyph) const { return std::min(glyph, glyphs_.fontGlyphs() - 1); }

    BigEndianTable table_;
    const KernedGlyphs& glyphs_;
    std::vector<bool> isLookupOfKerning_ = std::vector<bool>(0x10000);
    std::vector<Cell> cells_;  // by first, then second glyph; empty until a lookup applies
    std::vector<CoveredGlyph> covered_;
    std::vector<std::uint16_t> firstClasses_;
    std::vector<std::uint16_t> secondClasses_;
    std::uint32_t lookup_ = 0;
    std::size_t stepsLeft_ = kMostSteps;
};

}  // namespace

std::vector<UnitKerningPair> gposKerningPairs(std::span<const std::byte> table, std::span<const char16_t> codes) {
    const KernedGlyphs glyphs(codes);
    if (table.empty() || glyphs.count() == 0) return {};
    PairReader reader(table, glyphs);
    reader.readLookups();
    return reader.pairs();
}

}  // namespace ovaline::platform
