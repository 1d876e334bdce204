#include "pages/text_numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <limits>

namespace ovaline {
namespace {

TEST(TextNumbers, LeadingNumber) {
    constexpr double kMost = std::numeric_limits<double>::max();
    for (const char16_t* const text :
         {u"", u".", u"- 1", u"0x10", u"inf", u"1e-400", u"0e999999999999999999999", u"\x0663"})
        EXPECT_EQ(leadingNumber(text), 0) << testing::PrintToString(std::u16string(text));
    const std::pair<const char16_t*, double> cases[] = {
        {u"20.5", 20.5},     {u" \t-3.25mm", -3.25}, {u"+.5", 0.5},   {u"5.", 5},  {u"1e2", 100},
        {u"1e+", 1},         {u"1E-2x", 0.01},       {u"1.2.3", 1.2}, {u"1,5", 1}, {u"1e400", kMost},
        {u"-1e400", -kMost}, {u"0.00001e310", 1e305}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(leadingNumber(text), number) << testing::PrintToString(std::u16string(text));
    const std::u16string zeros(500, u'0');
    EXPECT_EQ(leadingNumber(u"1" + zeros), kMost);
    EXPECT_EQ(leadingNumber(u"1e9" + zeros), kMost);
    EXPECT_EQ(leadingNumber(u"1" + zeros + u"e-500"), 1);
    EXPECT_EQ(leadingNumber(u"0." + zeros + u"1e501"), 1);
    EXPECT_EQ(leadingNumber(u"0." + zeros + u"1"), 0);
    EXPECT_EQ(nearestSingle(kMost), std::numeric_limits<float>::max());
}

// The C locale is the one that programs start in.
TEST(TextNumbers, WrittenAsPrintfDoes) {
    const auto printed = [](const char* format, auto... values) {
        std::array<char, 400> text{};
        return std::u16string(text.data(), text.data() + std::snprintf(text.data(), text.size(), format, values...));
    };
    for (const double number : {0.0, -0.0, 0.04, -0.04, 2.5, 999999.5, 1234567.0, 0.00001, 5.1234567, 1e22, -1e308,
                                std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        for (const int decimals : {0, 1, 3, kMostDecimals})
            EXPECT_EQ(fixedText(number, decimals), printed("%.*f", decimals, number)) << number;
        EXPECT_EQ(generalText(number), printed("%g", number)) << number;
    }
    EXPECT_EQ(fixedText(-std::numeric_limits<double>::quiet_NaN(), 3), u"nan");
}

}  // namespace
}  // namespace ovaline
