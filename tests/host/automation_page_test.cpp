// The "page" lines of the automation protocol over a fake page.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "fake_control.h"
#include "fake_page.h"
#include "host/automation.h"

namespace ovaline::host {
namespace {

using testing::fake;
using testing::fakeModule;

constexpr const char* kOpenText = R"({"page": "text", "open": true})";

class AutomationPageTest : public ::testing::Test {
protected:
    void SetUp() override { fake() = {}; }
    void TearDown() override {
        automation_ = Automation(fakeModule);
        EXPECT_EQ(testing::fakePagesAlive() + fake().alive, 0);
    }
    std::string answer(std::string_view line) { return automation_.answer(line); }

    Automation automation_{fakeModule};
};

struct Exchange {
    const char* line;  ///< what follows {"page": "text",
    const char* answer;
};

TEST_F(AutomationPageTest, LinesDoWhatAPersonDoes) {
    ASSERT_EQ(answer(kOpenText), R"({"hr": 0, "value": "A \"title\""})");
    const Exchange exchanges[] = {
        {R"("dirty": true)", R"({"hr": 1, "value": false})"},
        {R"("id": 201, "type": "ж😀\ud800")",
         R"({"hr": 0, "events": [{"message": "ж"}, {"message": "ж😀"}, {"message": "ж😀\ud800"}]})"},
        {R"("id": 201, "read": true)",
         R"({"hr": 0, "value": {"text": "ж😀\ud800", "visible": true, "enabled": true, "limit": null, )"
         R"("digitsOnly": false}})"},
        {R"("dirty": true)", R"({"hr": 0, "value": true})"},
        {R"("id": 201, "type": "")", R"({"hr": 0})"},
        {R"("id": 205, "click": true)",
         R"({"hr": 0, "events": [{"pageStatus": 1}, {"posRect": [1, 2, 3, 4]}, {"viewChange": true}, )"
         R"({"message": "done"}]})"},
        {R"("id": 205, "read": true)",
         R"({"hr": 0, "value": {"text": "Bold", "visible": true, "enabled": true, "checked": true}})"},
        {R"("id": 266, "select": 1)", R"({"hr": 0, "events": [{"pageStatus": 1}]})"},
        {R"("id": 266, "read": true)",
         R"({"hr": 0, "value": {"text": "\ud83dtwo", "visible": true, "enabled": true, "selected": 1, )"
         R"("items": ["one", "\ud83dtwo"]}})"},
        {R"("id": 1004, "read": true)",
         R"({"hr": 0, "value": {"text": "", "visible": true, "enabled": true, "selected": -1, "items": []}})"},
        {R"("id": 208, "spin": -2)", R"({"hr": 0, "events": [{"pageStatus": 2}, {"pageStatus": 2}]})"},
        {R"("id": 208, "read": true)", R"({"hr": 0, "value": {"visible": true, "enabled": true, "range": [-2, 3]}})"},
        {R"("id": 1239, "read": true)",
         R"({"hr": 0, "value": {"text": "", "visible": false, "enabled": true, "limit": null, )"
         R"("digitsOnly": false}})"},
        {R"("id": 1213, "type": "12345")",
         R"({"hr": 0, "events": [{"message": ""}, {"message": ""}, {"message": ""}, {"message": ""}]})"},
        {R"("id": 1213, "read": true)",
         R"({"hr": 0, "value": {"text": "1234", "visible": true, "enabled": true, "limit": 4, "digitsOnly": false}})"},
        {R"("apply": true)",
         R"({"hr": 1, "events": [{"posRect": [1, 2, 3, 4]}, {"viewChange": true}, {"pageStatus": 4}]})"},
        {R"("close": true)", R"({"hr": 0})"},
        {R"("open": true)", R"({"hr": 0, "value": "A \"title\""})"},
        {R"("id": 201, "read": true)",
         R"({"hr": 0, "value": {"text": "", "visible": true, "enabled": true, "limit": null, "digitsOnly": false}})"},
    };
    for (const auto& [line, expected] : exchanges)
        EXPECT_EQ(answer(std::string(R"({"page": "text", )") + line + "}"), expected) << line;
    EXPECT_TRUE(automation_.understoodAll());
    const Json controls = parseJson(answer(R"({"page": "text", "controls": true})")).at("value");
    EXPECT_EQ(controls.at(0), 1201);
    EXPECT_EQ(controls.at(1), 201);
}

TEST_F(AutomationPageTest, PagesOfOneRunAreApart) {
    const char* serial = R"({"page": "serial", "open": true, "on": "other"})";
    EXPECT_EQ(answer(kOpenText), R"({"hr": 0, "value": "A \"title\""})");
    EXPECT_EQ(answer(serial), R"({"hr": 0, "value": "A \"title\""})");
    EXPECT_EQ(answer(R"({"page": "serial", "open": true})"), R"({"hr": 0, "value": "A \"title\""})");
    EXPECT_EQ(testing::fakePagesAlive(), 3);
    EXPECT_EQ(fake().alive, 2);
    EXPECT_EQ(answer(R"({"page": "serial", "id": 273, "read": true, "on": "other"})"),
              R"({"hr": 0, "value": {"visible": true, "enabled": true, "selected": -1, "items": []}})");
    EXPECT_NE(answer(R"({"page": "text", "dirty": true, "on": "other"})").find("the text page is not open"),
              std::string::npos);
    EXPECT_EQ(answer(R"({"page": "serial", "close": true, "on": "other"})"), R"({"hr": 0})");
    EXPECT_EQ(testing::fakePagesAlive(), 2);
}

TEST_F(AutomationPageTest, PageThatDoesNotShowItselfIsNotOpen) {
    testing::fakePageRefusal() = E_OUTOFMEMORY;
    EXPECT_EQ(answer(kOpenText), R"({"hr": -2147024882})");
    testing::fakePageRefusal() = S_OK;
    EXPECT_EQ(testing::fakePagesAlive(), 0);
    EXPECT_TRUE(automation_.understoodAll());
    EXPECT_EQ(answer(kOpenText), R"({"hr": 0, "value": "A \"title\""})");
}

TEST_F(AutomationPageTest, WhatCannotBeDoneChangesNothingAndSaysWhy) {
    const std::pair<const char*, const char*> closed[] = {
        {R"({"page": "text"})", "one of open, read, type"},
        {R"({"page": 1, "open": true})", "takes a text"},
        {R"({"page": "tekst", "open": true})", R"("text" or "serial")"},
        {R"({"page": "text", "open": 1})", "\"open\" takes true"},
        {R"({"page": "text", "open": true, "id": 201})", "takes no \"id\""},
        {R"({"page": "text", "open": true, "put": "Width"})", "takes no \"put\""},
        {R"({"page": "text", "read": true, "click": true, "id": 201})", "one action, not read and click"},
        {R"({"page": "text", "read": true})", "\"id\" of a control"},
        {R"({"page": "text", "read": true, "id": "201"})", "\"id\" takes a whole number"},
        {R"({"page": "text", "close": true})", "the text page is not open"},
        {R"({"page": "serial", "read": true, "id": 201})", "the serial page is not open"},
    };
    const std::pair<const char*, const char*> opened[] = {
        {kOpenText, "the text page is open already"},
        {R"({"page": "text", "id": 9, "read": true})", "no control 9"},
        {R"({"page": "text", "id": 9, "click": true})", "no control 9"},
        {R"({"page": "text", "id": 201, "type": 61})", "\"type\" takes a text"},
        {R"({"page": "text", "id": 1239, "type": "1"})", "control 1239 is hidden"},
        {R"({"page": "text", "id": 266, "select": 2})", "no item 2"},
        {R"({"page": "text", "id": 266, "select": "one"})", "\"select\" takes a whole number"},
        {R"({"page": "text", "id": 266, "doubleClick": 0})", "not a list box"},
        {R"({"page": "text", "id": 208, "spin": 10001})", "10000 clicks"},
        {R"({"page": "text", "id": 208, "spin": 1.5})", "\"spin\" takes a whole number"},
        {R"({"page": "text", "id": 201, "click": false})", "\"click\" takes true"},
        {R"({"page": "text", "id": 1201, "draw": "x.gif"})", "a .png, .svg or .pdf file"},
        {R"({"page": "text", "id": 1201, "draw": "x.png", "width": 3})", "takes no \"width\""},
        {R"({"page": "text", "id": 201, "draw": "x.png"})", "control 201 shows no picture"},
    };
    const auto expectErrors = [&](std::span<const std::pair<const char*, const char*>> cases) {
        for (const auto& [line, expected] : cases) {
            const Json said = parseJson(answer(line));
            ASSERT_TRUE(said.contains("error") && said.size() == 1) << line << said;
            EXPECT_NE(said["error"].get<std::string>().find(expected), std::string::npos) << line << said;
        }
    };
    expectErrors(closed);
    EXPECT_EQ(fake().alive, 0) << "no control is made for a line that does nothing";
    answer(kOpenText);
    expectErrors(opened);
    EXPECT_FALSE(automation_.understoodAll());
    EXPECT_EQ(answer(R"({"page": "text", "dirty": true})"), R"({"hr": 1, "value": false})");
}

TEST_F(AutomationPageTest, PreviewIsDrawnInItsOwnSize) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "ovaline-preview-test.png";
    answer(kOpenText);
    EXPECT_EQ(answer(R"({"page": "text", "id": 1201, "draw": ")" + file.generic_string() + "\"}"), R"({"hr": 0})");
    std::ifstream png(file, std::ios::binary);
    std::string head(24, '\0');
    png.read(head.data(), static_cast<std::streamsize>(head.size()));
    EXPECT_EQ(head.substr(1, 3), "PNG");
    EXPECT_EQ(head.substr(16), std::string("\0\0\0\xEA\0\0\0\x9C", 8)) << "234 x 156";
    png.close();
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace ovaline::host
