// Text and numbers on their way between bytes, JSON and the control.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <random>

#include "host/base64.h"
#include "host/decimal.h"
#include "host/failure.h"
#include "host/json_text.h"
#include "host/suggestion.h"
#include "host/text_encoding.h"

namespace ovaline::host {
namespace {

std::string base64(std::string_view text) {
    std::string out;
    appendBase64(out, std::as_bytes(std::span(text)));
    return out;
}

TEST(Base64, EveryLengthComesBackAndAnythingElseIsRefused) {
    EXPECT_EQ(base64("f"), "Zg==");
    EXPECT_EQ(base64("fo"), "Zm8=");
    EXPECT_EQ(base64("foobar"), "Zm9vYmFy");
    std::mt19937 random(1);
    for (std::size_t length = 0; length < 300; ++length) {
        std::vector<std::byte> bytes(length);
        for (std::byte& byte : bytes) byte = static_cast<std::byte>(random());
        std::string text;
        appendBase64(text, bytes);
        EXPECT_EQ(decodeBase64(text), bytes);
    }
    for (const char* text : {"Zg", "Z===", "====", "Zm9v!bar", "Zg==Zg==", "Zm=v"})
        EXPECT_FALSE(decodeBase64(text)) << text;
}

std::string single(float value) {
    std::string out;
    appendSingle(out, value);
    return out;
}

TEST(Decimal, SinglesAreShortAndComeBack) {
    EXPECT_EQ(single(-0.0f), "-0.0");
    EXPECT_EQ(single(15882.62f), "15882.62");
    EXPECT_EQ(single(1e20f), "1e+20");
    EXPECT_EQ(single(std::numeric_limits<float>::quiet_NaN()), "\"NaN\"");
    EXPECT_EQ(single(-std::numeric_limits<float>::infinity()), "\"-Infinity\"");
    std::mt19937 random(2);
    for (int i = 0; i < 100000; ++i) {
        const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(value)) continue;
        const std::string text = single(value);
        float back = 0;
        std::from_chars(text.data(), text.data() + text.size(), back);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(back), std::bit_cast<std::uint32_t>(value)) << text;
    }
}

TEST(Decimal, MillimetresAreRoundedAndTrimmed) {
    const std::pair<double, const char*> cases[] = {{-0.00001, "0"},         {0.0001, "0.0001"}, {0.99996, "1"},
                                                    {12.3456789, "12.3457"}, {1e6, "1000000"},   {-0.05, "-0.05"}};
    for (const auto& [value, expected] : cases) {
        std::string text;
        appendMillimetres(text, value);
        EXPECT_EQ(text, expected);
    }
}

TEST(Encoding, EveryCodePointComesBackAndIllFormedUtf8IsRefused) {
    for (const char* text : {"\x80", "\xC0\xAF", "\xE0\x9F\xBF", "\xC3", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82",
                             "\xF8\x88\x80\x80\x80"})
        EXPECT_FALSE(toUtf16(text)) << text;
    EXPECT_EQ(toUtf16Replacing("a\xC3"), u"a\uFFFD");
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (isSurrogate(codePoint)) continue;
        std::string utf8;
        appendUtf8(utf8, codePoint);
        const auto utf16 = toUtf16(utf8);
        ASSERT_TRUE(utf16) << utf8;
        ASSERT_EQ(toUtf8(*utf16), utf8);
    }
    EXPECT_EQ(toUtf8(std::u16string(1, u'\xD800') + u"a"), "\uFFFDa");
}

TEST(JsonText, EveryTextSurvives) {
    const std::u16string cases[] = {
        std::u16string(u"a\0b", 3),
        u"\"quoted\\\" \n\t\x1F\x7F",
        std::u16string{u'a', 0xDC00, 0xD800, u'b', 0xD83D},
        u"\uFDD0fdd0 \u65E5 \U0001F600 \uFDD0d800",
        std::u16string{0xFDD0, 0xD800, 0xFDD0},
    };
    for (const std::u16string& text : cases) {
        std::string json;
        appendJsonText(json, text);
        EXPECT_EQ(textOf(parseJson(json)), text);
    }
    // Escapes as others write them.
    EXPECT_EQ(textOf(parseJson(R"("\uD83Dx")")), (std::u16string{0xD83D, u'x'}));
    EXPECT_EQ(textOf(parseJson(R"("\ud83d\ud83d\ude00")")), (std::u16string{0xD83D, 0xD83D, 0xDE00}));
    EXPECT_EQ(textOf(parseJson(R"("\\ud83d")")), u"\\ud83d");
    EXPECT_EQ(textOf(parseJson(R"("\uFDD0d800")")), u"\uFDD0d800");
    EXPECT_EQ(textOf(jsonOf("\\ud83d \uFDD0d800")), u"\\ud83d \uFDD0d800");
}

TEST(JsonText, WhatIsNoJsonIsRefusedInOneShortLine) {
    const std::string deep(100000, '[');
    for (const std::string& text : {std::string("{\"a\": 1} x"), std::string("{\"a\": 1, \"a\": 2}"),
                                    std::string("\"\\ud8"), std::string("\"\xFF\""), std::string("1e999"), deep}) {
        try {
            parseJson(text);
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_LT(std::string_view(failure.what()).size(), 80u);
        }
    }
}

TEST(Suggestion, NearestNameIfAnyIsNear) {
    const std::string_view names[] = {"Width", "Height", "FillStyle"};
    EXPECT_EQ(suggestion("FILLSTYLE", names), "; did you mean FillStyle?");
    EXPECT_EQ(suggestion("Colour", names), "");
    EXPECT_EQ(suggestion(std::string(1000000, 'x'), names), "");
}

}  // namespace
}  // namespace ovaline::host
