#include "text/serial_number.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <sstream>

#include "plain_serial.h"
#include "text/enumerations.h"

namespace ovaline {
namespace {

constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kUnknownType = 2;

/// The most steps that a host can ask for: the largest increment for each copy of the largest array.
constexpr std::uint64_t kMostSteps = std::uint64_t{255} * 255 * std::uint64_t{kLargest};
constexpr std::uint64_t kAllSteps = std::numeric_limits<std::uint64_t>::max();

std::string codeUnits(const std::u16string& text) {
    std::ostringstream out;
    for (const char16_t c : text) {
        if (c > u' ' && c < 127) {
            out << static_cast<char>(c);
        } else {
            out << "\\x" << std::hex << static_cast<unsigned>(c) << ' ';
        }
    }
    return '"' + out.str() + '"';
}

TEST(SerialDisplayFormTest, FollowsTypeAndDigitCount) {
    struct Row {
        const char* name;
        std::u16string serial;
        std::int32_t type, digits;
        std::u16string shown;
    };
    const Row rows[] = {
        {"padded", u"43", Numerical, 4, u"0043"},
        {"as wide as the count", u"9998", Numerical, 4, u"9998"},
        {"started over", u"0", Numerical, 4, u"0000"},
        {"longer than the count, uncut", u"123456", Numerical, 4, u"123456"},
        {"a minus sign counts", u"-12", Numerical, 5, u"-0012"},
        {"a minus sign fills the width", u"-12", Numerical, 3, u"-12"},
        {"a minus sign exceeds the width", u"-12", Numerical, 2, u"-12"},
        {"minus zero", u"-0", Numerical, 3, u"000"},
        {"no count", u"0042", Numerical, None, u"42"},
        {"one digit", u"7", Numerical, One, u"7"},
        {"the most listed digits", u"1", Numerical, Fifteen, u"000000000000001"},
        {"a negative count", u"0042", Numerical, -1, u"42"},
        {"the smallest count", u"-5", Numerical, kSmallest, u"-5"},
        {"more than the listed digits", u"1", Numerical, 16, u"0000000000000001"},
        {"wider than any value", u"-1", Numerical, 22, u"-000000000000000000001"},
        {"width limit", u"-7", Numerical, kLargest, u"-" + std::u16string(kMaxDisplayWidth - 2, u'0') + u"7"},
        {"empty text", u"", Numerical, 4, u"0000"},
        {"empty text, no count", u"", Numerical, 0, u"0"},
        {"no digits", u"abc", Numerical, 2, u"00"},
        {"digits up to another character", u"12abc", Numerical, 0, u"12"},
        {"a fraction", u"12.9", Numerical, 0, u"12"},
        {"leading white space", u" \t\n\v\f\r12", Numerical, 0, u"12"},
        {"white space alone", u" \t ", Numerical, 0, u"0"},
        {"a no-break space is no white space", u"\u00A012", Numerical, 0, u"0"},
        {"full-width digits are no digits", u"\uFF11\uFF12", Numerical, 0, u"0"},
        {"plus sign", u"  +12", Numerical, 0, u"12"},
        {"two signs", u"+-12", Numerical, 0, u"0"},
        {"space behind the sign", u"- 12", Numerical, 0, u"0"},
        {"a sign alone", u"-", Numerical, 3, u"000"},
        {"a zero code unit ends the digits", std::u16string(u"1\0002", 3), Numerical, 0, u"1"},
        {"largest value", u"9223372036854775807", Numerical, 4, u"9223372036854775807"},
        {"beyond the largest", u"9223372036854775808", Numerical, 4, u"9223372036854775807"},
        {"far beyond the largest", u"100000000000000000000000000000007", Numerical, 0, u"9223372036854775807"},
        {"smallest value", u"-9223372036854775808", Numerical, 4, u"-9223372036854775808"},
        {"beyond the smallest", u"-9223372036854775809", Numerical, 0, u"-9223372036854775808"},
        {"many leading zeros", std::u16string(40, u'0') + u"5", Numerical, 2, u"05"},

        {"short code padded", u"AB", Alphanumeric, 3, u"0AB"},
        {"long code cut to twice the count", u"ABCDEFGH", Alphanumeric, 3, u"ABCDEF"},
        {"between once and twice the count", u"ABCD", Alphanumeric, 3, u"ABCD"},
        {"exactly twice the count", u"ABCDEF", Alphanumeric, 3, u"ABCDEF"},
        {"one digit, code cut", u"ABC", Alphanumeric, 1, u"AB"},
        {"code, no count", u"ABCDEFGH", Alphanumeric, 0, u"ABCDEFGH"},
        {"code, a negative count", u"ABC", Alphanumeric, -4, u"ABC"},
        {"code, the smallest count", u"ABC", Alphanumeric, kSmallest, u"ABC"},
        {"code of any code units", u"\uFFFF ab", Alphanumeric, 5, u"0\uFFFF ab"},
        {"empty code", u"", Alphanumeric, 3, u"000"},
        {"empty code, no count", u"", Alphanumeric, 0, u""},
        {"code, more than the listed digits", u"A", Alphanumeric, 17, u"0000000000000000A"},
        {"code, width limit", u"A", Alphanumeric, kLargest, std::u16string(kMaxDisplayWidth - 1, u'0') + u"A"},
        {"a cut beyond the width limit", std::u16string(700, u'A'), Alphanumeric, 300, std::u16string(600, u'A')},
        {"long code, the largest count", std::u16string(700, u'A'), Alphanumeric, kLargest, std::u16string(700, u'A')},

        {"unknown type", u"12", kUnknownType, 4, u""},
        {"negative type", u"12", -1, 0, u""},
    };
    for (const Row& row : rows) EXPECT_EQ(serialDisplayForm(row.serial, row.type, row.digits), row.shown) << row.name;
}

TEST(SerialStepTest, OneStep) {
    struct Row {
        const char* name;
        std::u16string serial;
        std::int32_t type, digits;
        std::u16string next;
    };
    const Row rows[] = {
        {"up to the limit", u"9998", Numerical, 4, u"9999"},
        {"over the limit", u"9999", Numerical, 4, u"0"},
        {"the limit itself", u"10000", Numerical, 4, u"0"},
        {"far beyond the limit", u"123456", Numerical, 4, u"0"},
        {"leading zeros go", u"0042", Numerical, 4, u"43"},
        {"negative with a limit", u"-5", Numerical, 4, u"0"},
        {"minus one with a limit", u"-1", Numerical, 4, u"0"},
        {"negative without a limit", u"-5", Numerical, 0, u"-4"},
        {"largest value without a limit", u"9223372036854775807", Numerical, 0, u"-9223372036854775808"},
        {"largest value with a limit", u"9223372036854775807", Numerical, 15, u"0"},
        {"smallest value with a limit", u"-9223372036854775808", Numerical, 15, u"0"},
        {"trailing text", u"12abc", Numerical, 4, u"13"},
        {"empty text", u"", Numerical, 4, u"1"},
        {"white space and sign", u"  +7", Numerical, 4, u"8"},
        {"one digit", u"9", Numerical, One, u"0"},
        {"fifteen digits", u"999999999999999", Numerical, Fifteen, u"0"},
        {"negative count, no limit", u"9999", Numerical, -4, u"10000"},
        {"smallest count, no limit", u"-1", Numerical, kSmallest, u"0"},
        {"sixteen digits, below", u"999999999999999", Numerical, 16, u"1000000000000000"},
        {"sixteen digits, over", u"9999999999999999", Numerical, 16, u"0"},
        {"eighteen digits, over", u"999999999999999999", Numerical, 18, u"0"},
        {"nineteen digits reach into the negative values", u"9223372036854775807", Numerical, 19,
         u"-9223372036854775808"},
        {"nineteen digits, the last value", u"-8446744073709551617", Numerical, 19, u"0"},
        {"nineteen digits, the value before", u"-8446744073709551618", Numerical, 19, u"-8446744073709551617"},
        {"nineteen digits, a negative beyond", u"-5", Numerical, 19, u"0"},
        {"twenty digits never start over", u"-5", Numerical, 20, u"-4"},
        {"the largest count never starts over", u"9223372036854775807", Numerical, kLargest, u"-9223372036854775808"},

        {"digit carries into letter", u"A9", Alphanumeric, 4, u"B0"},
        {"letter carries into letter", u"AZ", Alphanumeric, 4, u"BA"},
        {"nine behind the last letter", u"Z9", Alphanumeric, 4, u"ZA"},
        {"last letters", u"ZZ", Alphanumeric, 4, u"AA"},
        {"nine alone", u"9", Alphanumeric, 4, u"A"},
        {"Z alone", u"Z", Alphanumeric, 4, u"A"},
        {"@ alone", u"@", Alphanumeric, 4, u"A"},
        {"two nines", u"99", Alphanumeric, 4, u"A0"},
        {"three nines", u"999", Alphanumeric, 4, u"A00"},
        {"carry out of the first position", u"Z99", Alphanumeric, 4, u"A00"},
        {"letter amid digits", u"0Z9", Alphanumeric, 4, u"1A0"},
        {"lower case does not carry", u"az", Alphanumeric, 4, u"a{"},
        {"lower case takes a carry", u"a9", Alphanumeric, 4, u"b0"},
        {"nine behind last letters", u"ZZ9", Alphanumeric, 4, u"ZZA"},
        {"three last letters", u"ZZZ", Alphanumeric, 4, u"AAA"},
        {"two nines behind a letter", u"A99", Alphanumeric, 4, u"B00"},
        {"letters behind a nine", u"9ZZ", Alphanumeric, 4, u"0AA"},
        {"nines but for the first", u"899", Alphanumeric, 4, u"900"},
        {"nines but for one amid", u"989", Alphanumeric, 4, u"990"},
        {"below 0", u"A/", Alphanumeric, 4, u"A0"},
        {"below A", u"A@", Alphanumeric, 4, u"AA"},
        {"a colon is past 9 already", u"A:", Alphanumeric, 4, u"A;"},
        {"a bracket is past Z already", u"A[", Alphanumeric, 4, u"A\\"},
        {"a carry makes / a digit", u"/9", Alphanumeric, 4, u"00"},
        {"a carry makes @ a letter", u"@9", Alphanumeric, 4, u"A0"},
        {"a carry ends at a colon", u"9:9", Alphanumeric, 4, u"9;0"},
        {"largest code unit", u"A\uFFFF", Alphanumeric, 4, std::u16string(u"A\0", 2)},
        {"a carry into the largest code unit", u"A\uFFFF9", Alphanumeric, 4, std::u16string(u"A\0000", 3)},
        {"empty code", u"", Alphanumeric, 4, u""},
        {"the count has no effect", u"999", Alphanumeric, 0, u"A00"},
        {"the count does not cut", u"ABCDEFGH", Alphanumeric, 1, u"ABCDEFGI"},
        {"unknown type", u"Z9", kUnknownType, 4, u"ZA"},
        {"negative type", u"42", -1, 1, u"43"},
    };
    for (const Row& row : rows) {
        ExceptionCount met;
        EXPECT_EQ(StepSerialNumber(row.serial, row.type, row.digits), row.next) << row.name;
        EXPECT_EQ(plainStep(row.serial, row.type, row.digits, met), row.next) << row.name << ", in the reference";
    }
}

TEST(SerialAdvanceTest, ManySteps) {
    struct Row {
        const char* name;
        std::u16string serial;
        std::int32_t type, digits;
        std::uint64_t steps;
        std::u16string next;
    };
    const Row rows[] = {
        {"no step leaves the text", u" 0042x", Numerical, 4, 0, u" 0042x"},
        {"no step leaves a value beyond the limit", u"123456", Numerical, 4, 0, u"123456"},
        {"no step leaves a code", u"z9\uFFFF", Alphanumeric, 4, 0, u"z9\uFFFF"},
        {"over the limit", u"9998", Numerical, 4, 3, u"1"},
        {"beyond the limit first to 0", u"123456", Numerical, 4, 3, u"2"},
        {"the limit itself first to 0", u"10000", Numerical, 4, 3, u"2"},
        {"negative first to 0", u"-5", Numerical, 4, 5, u"4"},
        {"minus one is as far as any", u"-1", Numerical, 4, 10000, u"9999"},
        {"a whole round", u"7", Numerical, 2, 100, u"7"},
        {"an array of six", u"7", Numerical, 2, 6, u"13"},
        {"an array of six by two", u"7", Numerical, 2, 12, u"19"},
        {"through zero without a limit", u"-5", Numerical, 0, 12, u"7"},
        {"over the largest value", u"9223372036854775806", Numerical, 0, 3, u"-9223372036854775807"},
        {"the most steps", u"1", Numerical, 4, kMostSteps, u"6176"},
        {"the most steps without a limit", u"1", Numerical, 0, kMostSteps, u"139640124146176"},
        {"all steps without a limit", u"1", Numerical, 0, kAllSteps, u"0"},
        {"all steps, nineteen digits", u"-8446744073709551617", Numerical, 19, kAllSteps, u"8446744073709551614"},

        {"both exceptions of two positions", u"98", Alphanumeric, 4, 2 + 261, u"ZB"},
        {"letters to the end and again", u"A00", Alphanumeric, 4, 2600, u"A00"},
        {"from zeros into letters", u"000", Alphanumeric, 4, 1000, u"A00"},
        {"from zeros through the letters", u"000", Alphanumeric, 4, 3600, u"A00"},
        {"nine zeros, last of the digits", u"000000000", Alphanumeric, 4, 999999999, u"999999999"},
        {"nine zeros, first of the letters", u"000000000", Alphanumeric, 4, 1000000000, u"A00000000"},
        {"nine As, last before the exception", u"AAAAAAAA0", Alphanumeric, 4, 2088270645759, u"ZZZZZZZZ9"},
        {"nine As, through the exception", u"AAAAAAAA0", Alphanumeric, 4, 2088270645760, u"ZZZZZZZZA"},
        {"nine As, all letters from then on", u"AAAAAAAA0", Alphanumeric, 4, 2088270645760 + 26, u"AAAAAAAAA"},
        {"lower case runs to the digits", u"aa", Alphanumeric, 4, 65496 * 11, u"99"},
        {"and from there into letters", u"aa", Alphanumeric, 4, 65496 * 11 + 1, u"A0"},
        {"one position, all letters from A on", u"0", Alphanumeric, 4, 10 + 26 * 1000 + 3, u"D"},
        {"empty code", u"", Alphanumeric, 4, kAllSteps, u""},
        {"long code", std::u16string(1000, u'9'), Alphanumeric, 4, 11, u"A" + std::u16string(997, u'0') + u"10"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(advanceSerialNumber(row.serial, row.type, row.digits, row.steps), row.next) << row.name;
    }
}

class SerialRandomTest : public testing::Test {
protected:
    template <typename Integer>
    Integer number(Integer from, Integer to) {
        return std::uniform_int_distribution<Integer>(from, to)(random);
    }
    char16_t character() {
        // Mostly the ends of the rounds and their neighbours: there the rules act.
        static constexpr std::u16string_view kEnds = u"0189AYZ/:;@[\\";
        static constexpr std::u16string_view kOthers = u"azB5 -+\uFFFF\uFFFE\uFFF0\xD83D\xDE00";
        switch (number(0, 9)) {
            case 0:
                return static_cast<char16_t>(number(0, 0xFFFF));
            case 1:
                return kOthers[number(std::size_t{0}, kOthers.size() - 1)];
            default:
                return kEnds[number(std::size_t{0}, kEnds.size() - 1)];
        }
    }
    std::u16string filled(std::size_t length, char16_t first, char16_t last) {
        std::u16string text;
        while (text.size() < length) text.push_back(static_cast<char16_t>(number<int>(first, last)));
        return text;
    }
    /// Codes that run into the exceptions soon, digits with signs and spaces, and any characters.
    std::u16string serial() {
        const std::size_t length = number<std::size_t>(0, number(0, 3) == 0 ? 25 : 5);
        switch (number(0, 5)) {
            case 0:
                return filled(length, u'8', u'9');
            case 1:
                return filled(length, u'Y', u'Z') + filled(1, u'0', u'9');
            case 2:
                return filled(length, u'0', u'9');
            case 3:
                return (number(0, 1) == 0 ? u"-" : u" \t+") + filled(length, u'0', u'9') + u"x";
            default: {
                std::u16string text;
                while (text.size() < length) text.push_back(character());
                return text;
            }
        }
    }
    std::int32_t type() { return number(0, 7) == 0 ? number(kSmallest, kLargest) : number(0, 1); }
    std::int32_t digitCount() { return number(0, 7) == 0 ? number(kSmallest, kLargest) : number(-2, 22); }

    std::mt19937_64 random{20240607};
};

TEST_F(SerialRandomTest, EveryStepOfAWalkIsReachedFromItsStart) {
    ExceptionCount met;
    for (int walk = 0; walk < 20000; ++walk) {
        const std::u16string start = serial();
        const std::int32_t kind = type(), digits = digitCount();
        std::u16string plain = start;
        for (std::uint64_t steps = 0; steps < 40; ++steps) {
            ASSERT_EQ(advanceSerialNumber(start, kind, digits, steps), plain)
                << codeUnits(start) << ", type " << kind << ", digits " << digits << ", steps " << steps;
            const std::u16string next = plainStep(plain, kind, digits, met);
            ASSERT_EQ(StepSerialNumber(plain, kind, digits), next)
                << codeUnits(plain) << ", type " << kind << ", digits " << digits;
            plain = next;
        }
    }
    EXPECT_GT(met.allNines, 500);
    EXPECT_GT(met.lastNineBehindLetters, 500);
}

TEST_F(SerialRandomTest, LongWalksEqualTheirSingleSteps) {
    ExceptionCount met;
    for (int walk = 0; walk < 1500; ++walk) {
        const std::u16string start = serial();
        const std::int32_t kind = type(), digits = number(0, 2) == 0 ? digitCount() : number(0, 5);
        const std::uint64_t end = number<std::uint64_t>(0, walk % 10 == 0 ? 200000 : 20000);
        std::u16string plain = start;
        for (std::uint64_t steps = 0; steps < end; ++steps) {
            if (number(0, 999) == 0) {
                ASSERT_EQ(advanceSerialNumber(start, kind, digits, steps), plain)
                    << codeUnits(start) << ", type " << kind << ", digits " << digits << ", steps " << steps;
            }
            plain = plainStep(plain, kind, digits, met);
        }
        ASSERT_EQ(advanceSerialNumber(start, kind, digits, end), plain)
            << codeUnits(start) << ", type " << kind << ", digits " << digits << ", steps " << end;
    }
    EXPECT_GT(met.allNines, 5);
    EXPECT_GT(met.lastNineBehindLetters, 5);
}

// Every code unit in each position of a short code, through its wrap at 0xFFFF where it has one.
TEST_F(SerialRandomTest, EveryCodeUnitEqualsItsSingleSteps) {
    ExceptionCount met;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t c = static_cast<char16_t>(unit);
        for (const std::u16string& start :
             {std::u16string{c}, std::u16string{c, u'8'}, std::u16string{u'9', c, u'9'}}) {
            std::u16string plain = start;
            for (int step = 0; step < 30; ++step) plain = plainAlphanumericStep(plain, met);
            ASSERT_EQ(advanceSerialNumber(start, Alphanumeric, 4, 30), plain) << codeUnits(start);
        }
    }
    std::u16string plain(1, u'[');
    for (std::uint64_t steps = 0; steps < 70000; ++steps) {
        ASSERT_EQ(advanceSerialNumber(u"[", Alphanumeric, 4, steps), plain) << steps;
        plain = plainAlphanumericStep(plain, met);
    }
}

// Where single steps would take years: two ways to the same number must agree.
TEST_F(SerialRandomTest, HugeAdvancesAddUp) {
    for (int i = 0; i < 300000; ++i) {
        const std::u16string start = serial();
        const std::int32_t kind = type(), digits = digitCount();
        // All orders of magnitude alike.
        const auto steps = [&] { return number<std::uint64_t>(0, kAllSteps / 2) >> number(0, 63); };
        const std::uint64_t a = steps(), b = steps();
        ASSERT_EQ(advanceSerialNumber(start, kind, digits, a + b),
                  advanceSerialNumber(advanceSerialNumber(start, kind, digits, a), kind, digits, b))
            << codeUnits(start) << ", type " << kind << ", digits " << digits << ", steps " << a << " and " << b;
    }
}

}  // namespace
}  // namespace ovaline
