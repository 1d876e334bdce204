// The automation protocol over a fake control.
#include <gtest/gtest.h>

#include <array>
#include <nlohmann/json.hpp>

#include "fake_control.h"
#include "host/automation.h"
#include "host/base64.h"

namespace ovaline::host {
namespace {

using testing::fake;
using testing::fakeModule;
using testing::streamOf;

class AutomationTest : public ::testing::Test {
protected:
    void SetUp() override { fake() = {}; }
    std::string answer(std::string_view line) { return automation_.answer(line); }
    /// The answer's member, as JSON.
    Json member(std::string_view line, const char* name) { return parseJson(answer(line)).at(name); }

    Automation automation_{fakeModule};
};

std::string inBase64(std::span<const std::byte> bytes) {
    std::string text;
    appendBase64(text, bytes);
    return text;
}

const std::string kEvents = R"("events": [{"posRect": [1, 2, 3, 4]}, {"viewChange": true}])";

TEST_F(AutomationTest, PutsAndGetsInTheProtocolsForm) {
    EXPECT_EQ(answer(R"({"put": "Width", "value": 30})"), R"({"hr": 0, )" + kEvents + "}");
    EXPECT_EQ(answer(R"({"get": "Width"})"), R"({"hr": 0, "value": 30.0})");
    EXPECT_EQ(answer(R"({"call": "SetUpdateFlag", "args": [0]})"), R"({"hr": 0})");
    EXPECT_EQ(answer(R"({"put": "ArrayXDimension", "value": 0})"), R"({"hr": 1})");
    EXPECT_EQ(answer(R"({"call": "FlipH"})"), R"({"hr": -2147467263})");
    EXPECT_EQ(answer(R"({"call": "GetUnitFactor"})"), R"({"hr": -2147467263})");
    EXPECT_EQ(answer(R"({"call": "GetArrayType"})"), R"({"hr": 0, "value": 1})");
    fake().resultWidth = 20000;
    fake().resultHeight = -5;
    EXPECT_EQ(answer(R"({"call": "GetResultSize"})"), R"({"hr": 0, "values": [0, 0, 20000, -5]})");
    std::vector<std::byte> record(272);
    for (std::size_t i = 0; i < record.size(); ++i) record[i] = static_cast<std::byte>(i);
    EXPECT_EQ(answer(R"({"call": "GetProperty"})"), R"({"hr": 0, "data": ")" + inBase64(record) + "\"}");
    EXPECT_EQ(answer(R"({"call": "SetProperty", "data": ")" + inBase64(record) + "\"}"), R"({"hr": 0})");
    EXPECT_EQ(fake().record, record);
    EXPECT_TRUE(automation_.understoodAll());
}

TEST_F(AutomationTest, ValuesComeBackAsTheControlHoldsThem) {
    const std::array<const char*, 3> cases[] = {
        {"Width", "1e300", "\"Infinity\""},
        {"Width", "\"NaN\"", "\"NaN\""},
        {"FontBold", "true", "-1"},
        {"FontBold", "-32768", "-32768"},
        {"ArrayYDimension", "7.0", "7"},
        {"SerNumIncrement", "-2147483648", "-2147483648"},
        {"FillStyle", "\"Cross\"", "3"},
        {"FillStyle", "99", "99"},
        {"AutoDatePosition", "\"After_Suffix\"", "261"},
        {"TextData", "\"\\ud800\"", "\"\\ud800\""},
    };
    for (const auto& [property, put, held] : cases) {
        answer("{\"put\": \"" + std::string(property) + "\", \"value\": " + put + "}");
        EXPECT_EQ(answer("{\"get\": \"" + std::string(property) + "\"}"),
                  std::string("{\"hr\": 0, \"value\": ") + held + "}")
            << property << " = " << put;
    }
}

TEST_F(AutomationTest, WhatIsNotUnderstoodChangesNothingAndSaysWhy) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "not JSON"},
        {"[]", "one JSON object"},
        {"{}", "put, get, call, draw, page, lang, registry or register"},
        {R"({"put": "Width"})", "value"},
        {R"({"put": "Width", "value": "wide"})", "Width takes a number"},
        {R"({"put": "Width", "value": 1, "valeu": 2})", "valeu"},
        {R"({"put": "Width", "value": 1, "value": 2})", "twice"},
        {R"({"put": "Width", "get": "Width", "value": 1})", "one of"},
        {R"({"put": "Widht", "value": 1})", "did you mean Width"},
        {R"({"put": "FlipH", "value": 1})", "no property"},
        {R"({"get": 7})", "takes a text"},
        {R"({"put": "ArrayXDimension", "value": 1.5})", "ArrayXDimension takes a whole number"},
        {R"({"put": "ArrayXDimension", "value": 2147483648})", "ArrayXDimension takes a whole number"},
        {R"({"put": "ArrayXDimension", "value": true})", "ArrayXDimension takes a whole number"},
        {R"({"put": "FontBold", "value": 32768})", "FontBold takes"},
        {R"({"put": "FillStyle", "value": "Crss"})", "did you mean Cross"},
        {R"({"put": "TextData", "value": 5})", "TextData takes a text"},
        {R"({"call": "SetUpdateFlag"})", "takes 1 arguments, not 0"},
        {R"({"call": "SetScreenXY", "args": [1, "2"]})", "Top of SetScreenXY"},
        {R"({"call": "SetLeftTopinDACUnits", "args": [65536, 0]})", "65535"},
        {R"({"call": "SetUpdateFlag", "args": 1})", "takes a list"},
        {R"({"call": "GetVectorData", "size": -1})", "size"},
        {R"({"call": "GetVectorData", "size": 4294967296})", "size"},
        {R"({"call": "SetProperty", "data": "AAAA"})", "272 bytes"},
        {R"({"call": "Width"})", "no method"},
        {R"({"get": "Width", "on": 3})", "takes a text"},
        {R"({"page": "text"})", "one of open, read, type"},
        {R"({"page": "tekst", "open": true})", R"("text" or "serial")"},
        {R"({"page": "text", "open": 1})", "\"open\" takes true"},
        {R"({"page": "text", "open": true, "id": 201})", "takes no \"id\""},
        {R"({"page": "text", "read": true, "click": true, "id": 201})", "one action, not read and click"},
        {R"({"page": "text", "read": true})", "\"id\" of a control"},
        {R"({"page": "text", "read": true, "id": "201"})", "\"id\" takes a whole number"},
        {R"({"page": "serial", "read": true, "id": 201})", "the serial page is not open"},
        {R"({"draw": "x.gif"})", "a .png, .svg or .pdf file, not x.gif"},
        {R"({"draw": "x.png", "width": -1})", "\"width\""},
        {R"({"draw": "x.png", "height": 1.5})", "\"height\""},
        {R"({"draw": "x.png", "dpi": 0})", "\"dpi\" takes a number"},
        {R"({"draw": "x.png", "background": "#12345g"})", "takes a colour"},
        {R"({"draw": "x.png", "background": "#+12345"})", "takes a colour"},
        {R"({"draw": "x.png", "colour": "#123456"})", "takes no"},
        {R"({"lang": -1})", "\"lang\" takes a whole number"},
        {R"({"lang": 25, "value": 1})", "takes no \"value\""},
        {R"({"registry": "HKCR", "list": true})", "under HKEY_CLASSES_ROOT or"},
        {R"({"registry": "HKEY_CLASSES_ROOT\\", "list": true})", "under HKEY_CLASSES_ROOT or"},
        {R"({"registry": "HKEY_CLASSES_ROOT"})", "either a \"name\" or"},
        {R"({"registry": "HKEY_CLASSES_ROOT", "list": true, "name": ""})", "either a \"name\" or"},
        {R"({"registry": "HKEY_CLASSES_ROOT", "list": false})", "\"list\" takes true"},
        {R"({"register": 1})", "true or false"},
    };
    for (const auto& [line, expected] : cases) {
        Automation automation(fakeModule);
        const Json said = parseJson(automation.answer(line));
        ASSERT_TRUE(said.contains("error") && said.size() == 1) << line;
        EXPECT_NE(said["error"].get<std::string>().find(expected), std::string::npos) << line << said;
        EXPECT_FALSE(automation.understoodAll());
    }
    EXPECT_EQ(fake().regenerations, 0);
    EXPECT_EQ(fake().alive, 0);
}

TEST_F(AutomationTest, BuffersAreAnsweredUpToTheirEnd) {
    fake().stream = streamOf({{'u', 1, 2}, {'d', 3, 4}, kEndRecord});
    fake().askedSize = 100;
    const std::string data = inBase64(fake().stream);
    EXPECT_EQ(answer(R"({"call": "GetVectorData"})"),
              R"({"hr": 0, "size": 100, "data": ")" + data + R"(", "overrun": false})");
    EXPECT_EQ(answer(R"({"call": "GetVectorData", "size": 27})"),
              R"({"hr": 0, "size": 27, "data": ")" + data + R"(", "overrun": false})");
    EXPECT_EQ(member(R"({"call": "GetOutlineData"})", "size"), 16 << 20);
    EXPECT_EQ(member(R"({"call": "GetOutlineData"})", "data"), data);
    // As much as a host can ask for, or has addresses for.
    const std::string most = sizeof(void*) == 4 ? "500000000" : "4294967295";
    EXPECT_EQ(member(R"({"call": "GetVectorData", "size": )" + most + "}", "data"), data);
    for (const std::size_t overrun : {1u, 4096u}) {
        fake().overrun = overrun;
        EXPECT_EQ(member(R"({"call": "GetVectorData", "size": 27})", "overrun"), true) << overrun;
    }
    fake().overrun = 0;
    for (const int byte : {2, 0, 9, 0, 1, 1, 1, 1}) fake().raster.push_back(static_cast<std::byte>(byte));
    EXPECT_EQ(answer(R"({"call": "GetRasterData"})"),
              R"({"hr": 0, "size": 70, "data": ")" + inBase64(fake().raster) + R"(", "overrun": false})");
}

TEST_F(AutomationTest, ControlsOfOneRunAreApart) {
    answer(R"({"put": "Width", "value": 1})");
    answer(R"({"put": "Width", "value": 2, "on": "other"})");
    EXPECT_EQ(member(R"({"get": "Width"})", "value"), 1.0);
    EXPECT_EQ(member(R"({"get": "Width", "on": "control"})", "value"), 1.0);
    EXPECT_EQ(member(R"({"get": "Width", "on": "other"})", "value"), 2.0);
    EXPECT_EQ(fake().alive, 2);
    automation_ = Automation(fakeModule);
    EXPECT_EQ(fake().alive, 0);
}

TEST(Automation, ModuleThatIsNotThereIsAnsweredToo) {
    Automation automation([]() -> platform::GetClassObject {
        return [](REFCLSID, REFIID, void**) STDAPICALLTYPE -> HRESULT { return CLASS_E_CLASSNOTAVAILABLE; };
    });
    EXPECT_NE(automation.answer(R"({"get": "Width"})").find("0x80040111"), std::string::npos);
}

}  // namespace
}  // namespace ovaline::host
