#include "text/serial_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <random>

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

TEST(SerialNumber, DisplayForm) {
    struct Row {
        std::u16string serial;
        std::int32_t type, digits;
        std::u16string shown;
    };
    const std::u16string longCode(700, u'A');
    const Row rows[] = {
        // The count pads and never cuts a number; the sign is one of its characters.
        {u"43", Numerical, 4, u"0043"},
        {u"123456", Numerical, 4, u"123456"},
        {u"-12", Numerical, 5, u"-0012"},
        {u"-12", Numerical, 2, u"-12"},
        {u"0042", Numerical, None, u"42"},
        {u"-5", Numerical, kSmallest, u"-5"},
        {u"-1", Numerical, 22, u"-000000000000000000001"},
        {u"-7", Numerical, kLargest, u"-" + std::u16string(kMaxDisplayWidth - 2, u'0') + u"7"},
        // How a number is read.
        {u"", Numerical, 4, u"0000"},
        {u"12.9", Numerical, 0, u"12"},
        {u" \t\n\v\f\r12", Numerical, 0, u"12"},
        {u"\u00A012", Numerical, 0, u"0"},
        {u"  +12", Numerical, 0, u"12"},
        {u"+-12", Numerical, 0, u"0"},
        {std::u16string(u"1\0002", 3), Numerical, 0, u"1"},
        {u"9223372036854775807", Numerical, 4, u"9223372036854775807"},
        {u"9223372036854775808", Numerical, 4, u"9223372036854775807"},
        {u"100000000000000000000000000000007", Numerical, 0, u"9223372036854775807"},
        {u"-9223372036854775808", Numerical, 4, u"-9223372036854775808"},
        {u"-9223372036854775809", Numerical, 0, u"-9223372036854775808"},
        // A code is cut to twice the count as well.
        {u"AB", Alphanumeric, 3, u"0AB"},
        {u"ABCD", Alphanumeric, 3, u"ABCD"},
        {u"ABCDEFGH", Alphanumeric, 3, u"ABCDEF"},
        {u"ABCDEFGH", Alphanumeric, 0, u"ABCDEFGH"},
        {u"\uFFFF ab", Alphanumeric, 5, u"0\uFFFF ab"},
        {u"", Alphanumeric, 3, u"000"},
        {u"A", Alphanumeric, kLargest, std::u16string(kMaxDisplayWidth - 1, u'0') + u"A"},
        {longCode, Alphanumeric, 300, longCode.substr(0, 600)},
        {longCode, Alphanumeric, kLargest, longCode},
        {u"12", kUnknownType, 4, u""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(serialDisplayForm(row.serial, row.type, row.digits), row.shown)
            << "row " << &row - rows << ", digits " << row.digits;
}

// The rules by example; the reference, which the walks below rely on, keeps them as well.
TEST(SerialNumber, OneStep) {
    struct Row {
        std::u16string serial;
        std::int32_t type, digits;
        std::u16string next;
    };
    const Row rows[] = {
        {u"9999", Numerical, 4, u"0"},       {u"10000", Numerical, 4, u"0"},
        {u"  +0042x", Numerical, 4, u"43"},  {u"-5", Numerical, 4, u"0"},
        {u"-5", Numerical, 0, u"-4"},        {u"-8446744073709551617", Numerical, 19, u"0"},
        {u"-5", Numerical, kLargest, u"-4"},

        {u"A9", Alphanumeric, 4, u"B0"},     {u"9", Alphanumeric, 4, u"A"},
        {u"999", Alphanumeric, 4, u"A00"},   {u"ZZ9", Alphanumeric, 4, u"ZZA"},
        {u"Z99", Alphanumeric, 4, u"A00"},   {u"az", Alphanumeric, 4, u"a{"},
        {u"@9", Alphanumeric, 4, u"A0"},     {u"A\uFFFF9", Alphanumeric, 4, std::u16string(u"A\0000", 3)},
        {u"Z9", kUnknownType, 4, u"ZA"},     {u"42", -1, 1, u"43"},
    };
    for (const Row& row : rows) {
        ExceptionCount met;
        EXPECT_EQ(StepSerialNumber(row.serial, row.type, row.digits), row.next) << "row " << &row - rows;
        EXPECT_EQ(plainStep(row.serial, row.type, row.digits, met), row.next) << "row " << &row - rows;
    }
}

// Further than single steps can be taken.
TEST(SerialNumber, ManySteps) {
    struct Row {
        std::u16string serial;
        std::int32_t type, digits;
        std::uint64_t steps;
        std::u16string next;
    };
    const Row rows[] = {
        {u" 0042x", Numerical, 4, 0, u" 0042x"},
        {u"1", Numerical, 0, kMostSteps, u"139640124146176"},
        {u"1", Numerical, 0, kAllSteps, u"0"},
        {u"-8446744073709551617", Numerical, 19, kAllSteps, u"8446744073709551614"},
        {u"000000000", Alphanumeric, 4, 1000000000, u"A00000000"},
        {u"AAAAAAAA0", Alphanumeric, 4, 2088270645760 + 26, u"AAAAAAAAA"},
        {u"", Alphanumeric, 4, kAllSteps, u""},
        {std::u16string(1000, u'9'), Alphanumeric, 4, 11, u"A" + std::u16string(997, u'0') + u"10"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(advanceSerialNumber(row.serial, row.type, row.digits, row.steps), row.next) << "row " << &row - rows;
}

class SerialRandomTest : public testing::Test {
protected:
    template <typename Integer>
    Integer number(Integer from, Integer to) {
        return std::uniform_int_distribution<Integer>(from, to)(random);
    }
    char16_t character() {
        // Mostly the ends of the rounds and their neighbours: there the rules act.
        static constexpr std::u16string_view kEnds = u"0189AYZ/:;@[\\0189AYZ/:;@[\\azB5 -+\uFFFF\uFFFE\xD83D\xDE00";
        return number(0, 9) == 0 ? static_cast<char16_t>(number(0, 0xFFFF))
                                 : kEnds[number(std::size_t{0}, kEnds.size() - 1)];
    }
    std::u16string filled(std::size_t length, char16_t first, char16_t last) {
        std::u16string text;
        while (text.size() < length) text.push_back(static_cast<char16_t>(number<int>(first, last)));
        return text;
    }
    /// Codes that run into the exceptions soon, digits with signs and spaces, and any characters.
    std::u16string serial() {
        const std::size_t length = number<std::size_t>(0, number(0, 3) == 0 ? 25 : 5);
        switch (number(0, 4)) {
            case 0:
                return filled(length, u'8', u'9');
            case 1:
                return filled(length, u'Y', u'Z') + filled(1, u'0', u'9');
            case 2:
                return (number(0, 1) == 0 ? u"-" : u" \t+") + filled(length, u'0', u'9') + u"x";
            default: {
                std::u16string text;
                while (text.size() < length) text.push_back(character());
                return text;
            }
        }
    }
    /// A serial number and how it counts.
    struct Start {
        std::u16string text;
        std::int32_t type, digits;

        std::u16string after(std::uint64_t steps) const { return advanceSerialNumber(text, type, digits, steps); }
        friend std::ostream& operator<<(std::ostream& out, const Start& start) {
            for (const char16_t c : start.text) out << std::hex << static_cast<unsigned>(c) << ' ';
            return out << std::dec << "type " << start.type << " digits " << start.digits;
        }
    };
    Start start() {
        const auto oneOf = [&](std::int32_t from, std::int32_t to) {
            return number(0, 7) == 0 ? number(kSmallest, kLargest) : number(from, to);
        };
        return {serial(), oneOf(0, 1), number(0, 1) == 0 ? oneOf(-2, 22) : number(0, 5)};
    }

    std::mt19937_64 random{20240607};
    ExceptionCount met;
};

TEST_F(SerialRandomTest, WalksEqualTheirSingleSteps) {
    for (int walk = 0; walk < 20000; ++walk) {
        const Start from = start();
        const bool isLong = walk % 20 == 0;
        const std::uint64_t end = isLong ? number<std::uint64_t>(0, walk % 200 == 0 ? 200000 : 20000) : 40;
        std::u16string plain = from.text;
        for (std::uint64_t steps = 0; steps < end; ++steps) {
            if (!isLong || number(0, 999) == 0) {
                ASSERT_EQ(from.after(steps), plain) << from << ", " << steps;
            }
            plain = plainStep(plain, from.type, from.digits, met);
        }
        ASSERT_EQ(from.after(end), plain) << from << ", " << end;
    }
    EXPECT_GT(met.allNines, 500);
    EXPECT_GT(met.lastNineBehindLetters, 500);
}

// In each position of a short code, and through the wrap at 0xFFFF.
TEST_F(SerialRandomTest, EveryCodeUnitEqualsItsSingleSteps) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t c = static_cast<char16_t>(unit);
        for (const std::u16string& text : {std::u16string{c}, std::u16string{c, u'8'}, std::u16string{u'9', c, u'9'}}) {
            std::u16string plain = text;
            for (int step = 0; step < 30; ++step) plain = plainAlphanumericStep(plain, met);
            ASSERT_EQ(advanceSerialNumber(text, Alphanumeric, 4, 30), plain) << unit;
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
        const Start from = start();
        // All orders of magnitude alike.
        const auto steps = [&] { return number<std::uint64_t>(0, kAllSteps / 2) >> number(0, 63); };
        const std::uint64_t a = steps(), b = steps();
        ASSERT_EQ(from.after(a + b), (Start{from.after(a), from.type, from.digits}.after(b)))
            << from << ", " << a << " and " << b;
    }
}

}  // namespace
}  // namespace ovaline
