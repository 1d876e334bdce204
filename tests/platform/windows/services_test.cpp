// What the services of Windows add to their contracts: the system's own calendar, zones, names and messages.
#include <gtest/gtest.h>

#include <cerrno>
#include <ctime>

#include "platform/clock.h"
#include "platform/module_loader.h"
#include "platform/module_path.h"
#include "platform/paths.h"
#include "platform/resources.h"
#include "platform/windows/text.h"
#include "registry_backend.h"
#include "tests/platform/wall_clock.h"

namespace ovaline::platform {
namespace {

namespace fs = std::filesystem;

TEST(WindowsClock, NowIsTheWallClock) {
    const std::time_t before = std::time(nullptr);
    const std::time_t shown = secondsOf(systemClock().now());
    // Both round down to whole seconds, of clocks that need not tick together.
    EXPECT_GE(shown, before - 1);
    EXPECT_LE(shown, std::time(nullptr) + 1);
}

TEST(WindowsClock, ZoneIsTheOneInEffectAtThatTime) {
    TIME_ZONE_INFORMATION zone{};
    GetTimeZoneInformation(&zone);
    const std::u16string standard(viewOf(zone.StandardName));
    const std::u16string daylight(viewOf(zone.DaylightName));
    ASSERT_FALSE(standard.empty());
    // Where the zone knows daylight saving, one of the two solstices has it.
    const bool changes = zone.DaylightDate.wMonth != 0;
    const auto june = systemClock().zoneName({2026, 6, 21, 12});
    const auto december = systemClock().zoneName({2026, 12, 21, 12});
    EXPECT_EQ(changes, june != december);
    for (const auto& name : {june, december}) EXPECT_TRUE(name == standard || (changes && name == daylight));
    // Before the system's calendar begins, and at its end.
    EXPECT_EQ(systemClock().zoneName({100, 12, 21, 12}), december);
    EXPECT_EQ(systemClock().zoneName({9999, 12, 21, 12}), december);
}

TEST(WindowsClock, DefaultTextIsThatOfTheUsersLocale) {
    for (const CalendarTime time :
         {CalendarTime{2026, 11, 17, 19, 33, 24}, CalendarTime{100, 1, 1}, CalendarTime{9999, 12, 31, 23, 59, 59}}) {
        const std::u16string text = systemClock().defaultText(time);
        const int year = time.year % 100;
        const std::u16string digits{static_cast<char16_t>(u'0' + year / 10), static_cast<char16_t>(u'0' + year % 10)};
        EXPECT_NE(text.find(digits), std::u16string::npos) << utf8(wide(text));
        EXPECT_EQ(text.find(u':') != std::u16string::npos, time.hour != 0) << "midnight is left out";
    }
    // The number of days that stands for a date counts backwards before 1900, the time within the day never does.
    EXPECT_NE(systemClock().defaultText({1899, 12, 29, 18, 30, 5}).find(u"30:05"), std::u16string::npos);
}

TEST(WindowsResources, StringsOfALanguageAndOfTheProcess) {
    EXPECT_EQ(loadString(201, 1049), u"Префикс");
    EXPECT_EQ(loadString(201, 2052), u"前缀");
    EXPECT_EQ(loadString(201, 1041), u"先頭文字");
    EXPECT_EQ(loadString(201, 1036), std::nullopt);
    EXPECT_EQ(loadString(201, 1034), std::nullopt);
    EXPECT_EQ(loadString(204, 1033), std::nullopt) << "an empty place in a block of strings";
    EXPECT_EQ(loadString(60000, 1033), std::nullopt);
    EXPECT_EQ(loadString(20013), u"%d.%m.%Y");
    EXPECT_EQ(loadString(201), loadString(201, GetUserDefaultUILanguage()).value_or(u"Prefix"));
}

TEST(WindowsPaths, NamesAreUtf8) {
    const std::string name = "gr\xC3\xB6\xC3\x9F \xE5\x89\x8D\xF0\x9F\x98\x80.txt";
    EXPECT_EQ(pathText(pathOf(name)), name);
    EXPECT_EQ(pathOf("a\xFF").native(), L"a\xFFFD");
    EXPECT_EQ(pathText(fs::path(L"a\xD800")), "a\xEF\xBF\xBD");
    const fs::path file = fs::temp_directory_path() / pathOf(name);
    fs::remove(file);
    std::FILE* made = createFile(file);
    ASSERT_TRUE(made);
    EXPECT_EQ(std::fwrite("1\n", 1, 2, made), 2u);
    std::fclose(made);
    EXPECT_EQ(fs::file_size(file), 2u) << "bytes as they are";
    errno = 0;
    EXPECT_FALSE(createFile(file));
    EXPECT_EQ(errno, EEXIST);
    // What is written beside takes the place of what is there.
    const fs::path other = fs::temp_directory_path() / pathOf("other " + name);
    made = createFile(other);
    ASSERT_TRUE(made);
    std::fclose(made);
    fs::rename(other, file);
    EXPECT_EQ(fs::file_size(file), 0u);
    fs::remove(file);
}

TEST(WindowsModule, PathsAndMissingModules) {
    const auto path = modulePath();
    ASSERT_TRUE(path);
    EXPECT_EQ(fs::path(*path).parent_path(), programFolder());
    const auto missing = loadModule(programFolder() / "missing.dll");
    ASSERT_TRUE(std::holds_alternative<std::string>(missing));
    EXPECT_NE(std::get<std::string>(missing).find("missing.dll: "), std::string::npos);
    // The program itself is a module without those exports.
    const auto other = loadModule(fs::path(*path));
    ASSERT_TRUE(std::holds_alternative<std::string>(other));
    EXPECT_NE(std::get<std::string>(other).find("has no Dll"), std::string::npos);
}

TEST(WindowsRegistry, WhatOtherProgramsStored) {
    PlatformBackend backend;
    constexpr wchar_t kKey[] = L"Other";
    const auto store = [&](const wchar_t* name, DWORD type, const void* data, DWORD size) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name, type, data, size), ERROR_SUCCESS);
    };
    const auto value = [&](std::u16string_view name) {
        return backend.registry.value(u"HKEY_CURRENT_USER\\Other", name);
    };
    store(L"unended", REG_SZ, L"abc", 6);
    store(L"twice ended", REG_SZ, L"abc\0", 10);
    store(L"odd", REG_SZ, L"abc", 5);
    store(L"long", REG_SZ, std::wstring(3000, L'x').c_str(), 6002);
    store(L"bytes", REG_BINARY, L"abc", 6);
    store(L"short number", REG_DWORD, L"a", 2);
    EXPECT_EQ(value(u"unended"), RegistryValue(u"abc"));
    EXPECT_EQ(value(u"twice ended"), RegistryValue(u"abc"));
    EXPECT_EQ(value(u"odd"), RegistryValue(u"ab"));
    EXPECT_EQ(value(u"long"), RegistryValue(std::u16string(3000, u'x')));
    EXPECT_EQ(value(u"bytes"), std::nullopt);
    EXPECT_EQ(value(u"short number"), std::nullopt);
}

}  // namespace
}  // namespace ovaline::platform
