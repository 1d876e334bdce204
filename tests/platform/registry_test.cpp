// The registry service: what every backend does, and the file of the platforms without a registry.
#include "platform/registry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include "platform/memory/registry.h"
#include "platform/posix/registry_file.h"
#include "platform/posix/registry_text.h"
#include "platform/posix/utf8.h"

namespace ovaline::platform {
namespace {

namespace fs = std::filesystem;
using Kind = RegistryChange::Kind;
using Names = std::vector<std::u16string>;

/// A folder of the test's own, which goes with it.
struct TemporaryFolder {
    TemporaryFolder() {
        std::string name = (fs::temp_directory_path() / "ovaline-registry-XXXXXX").string();
        path = mkdtemp(name.data()) ? name : "";
    }
    ~TemporaryFolder() { fs::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    fs::path path;
};

struct MemoryBackend {
    MemoryRegistry registry;
};
struct FileBackend {
    TemporaryFolder folder;
    FileRegistry registry{folder.path / "made" / "by" / "it.reg"};
};

template <typename Backend>
class RegistryTest : public ::testing::Test {
protected:
    HRESULT apply(std::vector<RegistryChange> changes) { return registry_.apply(changes); }
    HRESULT set(std::u16string key, std::u16string name, RegistryValue value) {
        return apply({{Kind::SetValue, std::move(key), std::move(name), std::move(value)}});
    }
    Names keysOf(std::u16string_view key) { return registry_.list(key).value().keys; }

    Backend backend_;
    Registry& registry_ = backend_.registry;
};
using Backends = ::testing::Types<MemoryBackend, FileBackend>;
TYPED_TEST_SUITE(RegistryTest, Backends);

TYPED_TEST(RegistryTest, RootsAreThereFromTheStart) {
    for (const auto root : {kClassesRoot, kCurrentUserRoot}) {
        EXPECT_TRUE(this->keysOf(root).empty());
        EXPECT_TRUE(this->registry_.list(root)->names.empty());
    }
    EXPECT_FALSE(this->registry_.list(u"HKEY_CLASSES_ROOT\\none"));
    EXPECT_FALSE(this->registry_.value(u"HKEY_CLASSES_ROOT\\none", u""));
    EXPECT_EQ(this->registry_.problem(), "");
}

TYPED_TEST(RegistryTest, ValuesComeBack) {
    const std::u16string key = u"HKEY_CLASSES_ROOT\\a\\b [c]";
    const std::pair<std::u16string, RegistryValue> values[] = {
        {u"", u""},
        {u"text", u"with \"quotes\", a back\\slash, \\\" and a ; semicolon"},
        {u"lines", u"one\ntwo\r\nthree\n"},
        {u"\u65E5\u672C \U0001F600", u"\u65E5\u672C \U0001F600"},
        {u"@", u"@"},
        {u"a\\\"=\"b", u"]"},
        {u"least", std::uint32_t{0}},
        {u"most", std::uint32_t{0xFFFFFFFF}},
    };
    for (const auto& [name, value] : values) ASSERT_EQ(this->set(key, name, value), S_OK);
    for (const auto& [name, value] : values) EXPECT_EQ(this->registry_.value(key, name), value) << value.index();
    EXPECT_EQ(this->registry_.list(key)->names.size(), std::size(values));
    EXPECT_EQ(this->keysOf(u"HKEY_CLASSES_ROOT"), Names{u"a"});
    EXPECT_EQ(this->keysOf(u"HKEY_CLASSES_ROOT\\a"), Names{u"b [c]"});
}

TYPED_TEST(RegistryTest, CaseOfLatinLettersDoesNotCount) {
    this->set(u"HKEY_CURRENT_USER\\Software\\Host", u"Lang", std::uint32_t{25});
    EXPECT_EQ(this->registry_.value(u"hkey_current_user\\SOFTWARE\\host", u"LANG"), RegistryValue(std::uint32_t{25}));
    this->set(u"HKEY_CURRENT_USER\\software\\HOST", u"lang", u"text");
    EXPECT_EQ(this->registry_.list(u"HKEY_CURRENT_USER\\Software\\Host")->names, Names{u"Lang"});
    EXPECT_EQ(this->keysOf(u"HKEY_CURRENT_USER"), Names{u"Software"});
    this->set(u"HKEY_CURRENT_USER\\\u00C4", u"", u"capital");
    EXPECT_FALSE(this->registry_.list(u"HKEY_CURRENT_USER\\\u00E4"));
}

TYPED_TEST(RegistryTest, Removing) {
    this->set(u"HKEY_CLASSES_ROOT\\a", u"name", u"1");
    this->set(u"HKEY_CLASSES_ROOT\\a\\b\\c", u"", u"2");
    this->set(u"HKEY_CLASSES_ROOT\\a b", u"", u"3");  // between a and a\b in the order of code units
    this->set(u"HKEY_CLASSES_ROOT\\ab", u"", u"4");
    EXPECT_EQ(this->apply({{Kind::RemoveKeyIfEmpty, u"HKEY_CLASSES_ROOT\\a\\b", {}, {}}}), S_OK);
    EXPECT_EQ(this->keysOf(u"HKEY_CLASSES_ROOT\\a"), Names{u"b"});
    EXPECT_EQ(this->apply({{Kind::RemoveTree, u"HKEY_CLASSES_ROOT\\A\\b", {}, {}},
                           {Kind::RemoveKeyIfEmpty, u"HKEY_CLASSES_ROOT\\a", {}, {}}}),
              S_OK);
    EXPECT_EQ(this->keysOf(u"HKEY_CLASSES_ROOT"), (Names{u"a", u"a b", u"ab"}));
    EXPECT_EQ(this->apply({{Kind::RemoveValue, u"HKEY_CLASSES_ROOT\\a", u"NAME", {}},
                           {Kind::RemoveKeyIfEmpty, u"HKEY_CLASSES_ROOT\\a", {}, {}}}),
              S_OK);
    EXPECT_EQ(this->keysOf(u"HKEY_CLASSES_ROOT"), (Names{u"a b", u"ab"}));
    for (const Kind kind : {Kind::RemoveTree, Kind::RemoveKeyIfEmpty, Kind::RemoveValue})
        EXPECT_EQ(this->apply({{kind, u"HKEY_CLASSES_ROOT\\none", u"", {}}}), S_OK);
}

TYPED_TEST(RegistryTest, WhatIsNoNameChangesNothing) {
    const std::u16string root = u"HKEY_CLASSES_ROOT\\";
    const RegistryChange wrong[] = {
        {Kind::CreateKey, u"", {}, {}},
        {Kind::CreateKey, u"HKEY_LOCAL_MACHINE\\a", {}, {}},
        {Kind::CreateKey, root, {}, {}},
        {Kind::CreateKey, root + u"a\\", {}, {}},
        {Kind::CreateKey, root + u"a\\\\b", {}, {}},
        {Kind::CreateKey, root + u"a\nb", {}, {}},
        {Kind::CreateKey, root + std::u16string(256, u'x'), {}, {}},
        {Kind::CreateKey, root + u'\xD800', {}, {}},
        {Kind::SetValue, root + u"a", u"\xDC00", u""},
        {Kind::SetValue, root + u"a", u"", std::u16string(1, u'\0')},
        {Kind::SetValue, root + u"a", u"", u"\xD800x"},
        {Kind::RemoveTree, u"HKEY_CLASSES_ROOT", {}, {}},
        {Kind::RemoveKeyIfEmpty, u"hkey_current_user", {}, {}},
    };
    for (const RegistryChange& change : wrong) {
        EXPECT_EQ(this->apply({{Kind::CreateKey, root + u"before", {}, {}}, change}), E_INVALIDARG) << &change - wrong;
        EXPECT_TRUE(this->keysOf(u"HKEY_CLASSES_ROOT").empty());
    }
    EXPECT_EQ(this->apply({{Kind::CreateKey, root + std::u16string(255, u'x'), {}, {}}}), S_OK);
}

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
