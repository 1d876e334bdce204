// The registry as a file: its text, and what other programs and people may do to it.
#include "platform/posix/registry_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <thread>

#include "platform/posix/registry_text.h"
#include "platform/posix/utf8.h"
#include "registry_backend.h"

namespace ovaline::platform {
namespace {

namespace fs = std::filesystem;
using Kind = RegistryChange::Kind;
using Names = std::vector<std::u16string>;

class RegistryFileTest : public ::testing::Test {
protected:
    void write(std::string_view text) const { std::ofstream(file_, std::ios::binary) << text; }
    std::string text() const {
        std::ifstream file(file_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static HRESULT setLanguage(Registry& registry) {
        const RegistryChange change{Kind::SetValue, u"HKEY_CURRENT_USER\\Host", u"Lang", std::uint32_t{25}};
        return registry.apply({&change, 1});
    }

    TemporaryFolder folder_;
    fs::path file_ = folder_.path / "registry.reg";
    FileRegistry registry_{file_};
};

const std::string kHeader = "Windows Registry Editor Version 5.00\n";

TEST_F(RegistryFileTest, TextForm) {
    EXPECT_EQ(setLanguage(registry_), S_OK);
    const RegistryChange change{Kind::SetValue, u"HKEY_CURRENT_USER\\Host", u"", u"a \"b\" \\ \u00E4"};
    EXPECT_EQ(registry_.apply({&change, 1}), S_OK);
    EXPECT_EQ(text(), kHeader +
                          "\n[HKEY_CLASSES_ROOT]\n\n[HKEY_CURRENT_USER]\n\n[HKEY_CURRENT_USER\\Host]\n"
                          "@=\"a \\\"b\\\" \\\\ \xC3\xA4\"\n\"Lang\"=dword:00000019\n");
}

TEST_F(RegistryFileTest, EditedByAPerson) {
    write("\xEF\xBB\xBF\r\n" + kHeader.substr(0, kHeader.size() - 1) +
          "\r\n; a comment\r\n[HKEY_CURRENT_USER\\a\\b]\r\n\"Lang\" = dword:19 \r\n@=\"x\"");
    EXPECT_EQ(registry_.problem(), "");
    EXPECT_EQ(registry_.value(u"HKEY_CURRENT_USER\\a\\b", u"lang"), RegistryValue(std::uint32_t{25}));
    EXPECT_EQ(registry_.value(u"HKEY_CURRENT_USER\\a\\b", u""), RegistryValue(u"x"));
    EXPECT_EQ(registry_.list(u"HKEY_CURRENT_USER")->keys, Names{u"a"});
    // A change by someone else counts at once; an empty file is an empty registry.
    write("\n");
    EXPECT_EQ(registry_.list(u"HKEY_CURRENT_USER")->keys, Names());
    EXPECT_EQ(setLanguage(registry_), S_OK);
}

TEST_F(RegistryFileTest, DamageIsNamedReadAsNothingAndNeverWrittenOver) {
    const std::string key = "[HKEY_CURRENT_USER\\Host]\n\"Lang\"=dword:00000019\n";
    const std::pair<std::string, std::string> cases[] = {
        {"REGEDIT4\n" + key, "line 1 "},
        {kHeader.substr(1) + key, "line 1 "},
        {kHeader + key + "junk\n", "line 4 "},
        {kHeader + "@=\"no key\"\n" + key, "line 2 "},
        {kHeader + key + "\"a\"=\"one\ntwo\"\n\"b\"=hex:00\n", "line 6 "},
        {kHeader + key + "\"a\"=\"not closed\n", "line 4 "},
        {kHeader + key + "\"a\"=\"ends in a backslash\\", "line 4 "},
        {kHeader + key + "\"a\"=dword:100000000\n", "line 4 "},
        {kHeader + key + "\"a\"=dword:1g\n", "line 4 "},
        {kHeader + key + "\"a\"=dword:-1\n", "line 4 "},
        {kHeader + key + "\"a\"=-\n", "line 4 "},
        {kHeader + key + "[-HKEY_CURRENT_USER\\Host]\n", "line 4 "},
        {kHeader + key + "[HKEY_LOCAL_MACHINE]\n", "line 4 "},
        {kHeader + key + "[HKEY_CURRENT_USER\\a\n", "line 4 "},
        {kHeader + key + "\"a\"=\"\xFF\"\n", "line 4 "},
        {kHeader + key + "\"a\"=\"" + std::string(1, '\0') + "\"\n", "line 4 "},
    };
    for (const auto& [damaged, expected] : cases) {
        write(damaged);
        EXPECT_NE(registry_.problem().find(file_.string() + " is damaged, " + expected), std::string::npos)
            << damaged << registry_.problem();
        EXPECT_FALSE(registry_.value(u"HKEY_CURRENT_USER\\Host", u"Lang")) << damaged;
        EXPECT_EQ(setLanguage(registry_), kRegistryDamaged);
        EXPECT_EQ(text(), damaged);
    }
}

TEST_F(RegistryFileTest, AnyCutIsDamageOrAWholeEntry) {
    setLanguage(registry_);
    const std::string whole = text();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto read = readRegistryText(std::string_view(whole).substr(0, size));
        if (const auto* tree = std::get_if<RegistryTree>(&read)) {
            EXPECT_LE(tree->keys().size(), 3u);
        } else {
            EXPECT_TRUE(std::get<std::string>(read).starts_with("line "));
        }
    }
}

TEST_F(RegistryFileTest, FilesThatCannotBeWritten) {
    FileRegistry underFile(file_ / "r.reg");
    write("");
    EXPECT_EQ(setLanguage(underFile), kRegistryNoPath);
    EXPECT_NE(underFile.problem(), "");
    fs::create_directory(folder_.path / "folder");
    FileRegistry isFolder(folder_.path / "folder");
    EXPECT_EQ(setLanguage(isFolder), kRegistryAccessDenied);
    EXPECT_NE(isFolder.problem().find("is not a file"), std::string::npos);
    FileRegistry nowhere{fs::path()};
    EXPECT_EQ(setLanguage(nowhere), kRegistryNoPath);
    EXPECT_NE(nowhere.problem().find("OVALINE_REGISTRY"), std::string::npos);
    // The place for the new file is taken by a folder: the old one stays.
    fs::create_directory(file_.string() + ".part");
    EXPECT_TRUE(FAILED(setLanguage(registry_)));
    EXPECT_EQ(text(), "");
}

TEST_F(RegistryFileTest, ALinkStaysALink) {
    const fs::path link = folder_.path / "link.reg";
    write("");
    fs::create_symlink(file_, link);
    FileRegistry linked(link);
    EXPECT_EQ(setLanguage(linked), S_OK);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_TRUE(registry_.value(u"HKEY_CURRENT_USER\\Host", u"Lang"));
}

TEST_F(RegistryFileTest, ChangesAtTheSameTimeAreAllKept) {
    constexpr int kWriters = 4;
    constexpr int kEach = 15;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < kWriters; ++writer)
        writers.emplace_back([&, writer] {
            for (int i = 0; i < kEach; ++i) {
                const auto name = utf16FromUtf8(std::to_string(writer) + "." + std::to_string(i)).value();
                const RegistryChange change{Kind::SetValue, u"HKEY_CURRENT_USER", name, u""};
                EXPECT_EQ(FileRegistry(file_).apply({&change, 1}), S_OK);
                EXPECT_EQ(registry_.problem(), "");
            }
        });
    for (std::thread& writer : writers) writer.join();
    EXPECT_EQ(registry_.list(kCurrentUserRoot)->names.size(), std::size_t{kWriters * kEach});
}

TEST(RegistryFile, PlaceFollowsTheEnvironment) {
    setenv("HOME", "/users/u", 1);
    unsetenv("XDG_DATA_HOME");
    unsetenv("OVALINE_REGISTRY");
    EXPECT_EQ(registryFile(), "/users/u/.local/share/ovaline/registry.reg");
    setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(registryFile(), "/data/ovaline/registry.reg");
    setenv("OVALINE_REGISTRY", "own.reg", 1);
    EXPECT_EQ(registryFile(), "own.reg");
    for (const char* name : {"HOME", "XDG_DATA_HOME", "OVALINE_REGISTRY"}) setenv(name, "", 1);
    EXPECT_EQ(registryFile(), "");
}

TEST(Utf8, OnlyWellFormedTextIsConverted) {
    for (const std::u16string text : {u"", u"\x7F\x80\x7FF\x800\xFFFF", u"\xD7FF\xE000", u"\xD800\xDC00\xDBFF\xDFFF"})
        EXPECT_EQ(utf16FromUtf8(utf8FromUtf16(text).value()), text);
    EXPECT_EQ(utf8FromUtf16(u"\u00E4\u20AC\U0001F600"), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    for (const char* bytes : {"\x80", "\xC3", "\xC3\x41", "\xC0\x80", "\xE0\x9F\xBF", "\xED\xA0\x80",
                              "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"})
        EXPECT_FALSE(utf16FromUtf8(bytes));
    for (const std::u16string text : {u"\xD800", u"\xDC00", u"\xD800x", u"\xDC00\xD800"})
        EXPECT_FALSE(utf8FromUtf16(text));
}

}  // namespace
}  // namespace ovaline::platform
