// The parts of an AutoDate pattern.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ovaline {

/// Whether the code unit at `at` and the next one are the two halves of one character.
bool beginsSurrogatePair(std::u16string_view text, std::size_t at);

/// A piece of a pattern. The sources of all its parts, in order, are the pattern.
struct PatternPart {
    enum class Kind {
        Literal,     ///< text without a percent sign, written as it is
        Specifier,   ///< a percent sign, its flags and a letter, known or not
        Unfinished,  ///< a specifier without letter, at the pattern's end or at a '+' without digits: writes nothing
    };

    Kind kind = Kind::Literal;
    std::u16string_view source;              ///< the part as it stands in the pattern, at least one code unit
    char16_t letter = 0;                     ///< of a specifier; a pair's first half where it is a surrogate pair
    bool isAlternative = false;              ///< the flag '#'
    std::optional<std::int32_t> yearsAdded;  ///< N of the flag '+N', 2147483647 for all larger numbers
};

/// Reads a pattern from left to right.
class PatternReader {
public:
    /// The parts view into `pattern`.
    explicit PatternReader(std::u16string_view pattern) : pattern_(pattern) {}

    /// Whether there is a next part, and then that part.
    bool next(PatternPart& part);

private:
    PatternPart::Kind readSpecifier(PatternPart& part);
    bool readYears(PatternPart& part);

    std::u16string_view pattern_;
    std::size_t at_ = 0;
};

}  // namespace ovaline
