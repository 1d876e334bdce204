#include "text/alphanumeric_serial.h"

#include <string_view>

// A code is an odometer with two exceptions.
//
// The odometer. What adding 1 does to a position depends on its own character alone, so n additions can be made at
// once, and the carries that they give are the additions to the position before it. A character rises by one code unit
// an addition, 0 following 0xFFFF, until it has been '9' or 'Z', whichever comes first. From there on it goes round
// '0'..'9' or 'A'..'Z', with a carry each time that it starts over, and never leaves that round.
//
// The exceptions. A code of nines only becomes 'A' and zeros, and one of 'Z's and a last '9', which "9" alone is too,
// ends in 'A'. Every step must see them, so the odometer may only be turned as far as the next one.
//
// When the next one comes. Let rise(i) be the additions that position i needs to come to the character that the
// exception wants there, and round(i) the size of its round. It shows that character after rise(i) + m * round(i)
// additions, m = 0, 1, ..., and has carried m times by then, so m is the number of additions a(i - 1) that the position
// before it has had. A carry out of the first position is lost, and there m = 0 comes first:
//
//     a(1) = rise(1)
//     a(i) = rise(i) + round(i) * a(i - 1)
//
// The last a is the number of steps to go. If a position's round does not contain the character wanted, the position
// does not pass it on the way there either, and the exception can't come.
//
// How often. After "Z...ZA" the last position is a letter and after "A0...0" the first one is. A letter never becomes a
// '9' again, so each exception happens at most once, and every advance ends after three turns at the latest.

namespace ovaline {
namespace {

struct Wheel {
    char16_t first, last;

    std::uint64_t round() const { return last - first + std::uint64_t{1}; }
    /// Additions after which `character`, which runs into this wheel's round, first shows its last character.
    std::uint64_t rise(char16_t character) const { return static_cast<char16_t>(last - character); }
};

constexpr Wheel kDigits{u'0', u'9'}, kLetters{u'A', u'Z'};

/// The round that `character` belongs to or runs into: beyond 'Z' it comes to the digits by way of 0xFFFF and 0.
const Wheel& wheelOf(char16_t character) {
    return character > kDigits.last && character <= kLetters.last ? kLetters : kDigits;
}

/// Adds to one position and returns its carries.
std::uint64_t turn(char16_t& character, std::uint64_t additions) {
    const Wheel& wheel = wheelOf(character);
    const std::uint64_t rise = wheel.rise(character);
    if (additions <= rise) {
        character = static_cast<char16_t>(character + additions);
        return 0;
    }
    const std::uint64_t past = additions - rise - 1;
    character = static_cast<char16_t>(wheel.first + past % wheel.round());
    return past / wheel.round() + 1;
}

/// Advances by steps among which there is no exception.
void turnOdometer(std::u16string& code, std::uint64_t steps) {
    for (auto position = code.rbegin(); position != code.rend() && steps > 0; ++position) {
        steps = turn(*position, steps);
    }
}

/// Steps until the code is one that has an exception, `limit` (at least 1) if there is none within as many.
std::uint64_t stepsToException(std::u16string_view code, std::uint64_t limit) {
    // The first position decides which of the two it can be: all nines, or 'Z's up to the last one.
    const Wheel* const head = &wheelOf(code.front());
    std::uint64_t steps = 0;
    for (std::size_t i = 0; i < code.size(); ++i) {
        const Wheel* const wanted = i + 1 < code.size() ? head : &kDigits;
        if (&wheelOf(code[i]) != wanted) return limit;
        const std::uint64_t rise = wanted->rise(code[i]);
        if (rise > limit || steps > (limit - rise) / wanted->round()) return limit;
        steps = rise + wanted->round() * steps;
    }
    return steps;
}

/// The step from a code that has an exception. It is the same for "9" whichever of the two that is taken for.
void stepByException(std::u16string& code) {
    if (code.front() == u'9') {
        code.assign(code.size(), u'0');
        code.front() = u'A';
    } else {
        code.back() = u'A';
    }
}

}  // namespace

void advanceAlphanumericSerial(std::u16string& code, std::uint64_t steps) {
    while (!code.empty() && steps > 0) {
        const std::uint64_t regular = stepsToException(code, steps);
        turnOdometer(code, regular);
        steps -= regular;
        if (steps > 0) {
            stepByException(code);
            --steps;
        }
    }
}

}  // namespace ovaline
