// The registry service: what every backend does.
#include "platform/registry.h"

#include <gtest/gtest.h>

#include "platform/memory/registry.h"
#include "registry_backend.h"

namespace ovaline::platform {
namespace {

using Kind = RegistryChange::Kind;
using Names = std::vector<std::u16string>;

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
struct MemoryBackend {
    MemoryRegistry registry;
};
using Backends = ::testing::Types<MemoryBackend, PlatformBackend>;
TYPED_TEST_SUITE(RegistryTest, Backends);

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
    EXPECT_TRUE(this->keysOf(kCurrentUserRoot).empty()) << "a root is there from the start";
    EXPECT_FALSE(this->registry_.list(u"HKEY_CLASSES_ROOT\\none"));
    EXPECT_FALSE(this->registry_.value(u"HKEY_CLASSES_ROOT\\none", u""));
    EXPECT_EQ(this->registry_.problem(), "");
    EXPECT_EQ(this->keysOf(u"HKEY_CLASSES_ROOT"), Names{u"a"});
    EXPECT_EQ(this->keysOf(u"HKEY_CLASSES_ROOT\\a"), Names{u"b [c]"});
}

TYPED_TEST(RegistryTest, CaseOfLatinLettersDoesNotCount) {
    this->set(u"HKEY_CURRENT_USER\\Software\\Host", u"Lang", std::uint32_t{25});
    EXPECT_EQ(this->registry_.value(u"hkey_current_user\\SOFTWARE\\host", u"LANG"), RegistryValue(std::uint32_t{25}));
    this->set(u"HKEY_CURRENT_USER\\software\\HOST", u"lang", u"text");
    EXPECT_EQ(this->registry_.list(u"HKEY_CURRENT_USER\\Software\\Host")->names, Names{u"Lang"});
    EXPECT_EQ(this->keysOf(u"HKEY_CURRENT_USER"), Names{u"Software"});
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
        {Kind::CreateKey, root + u"a\nb", {}, {}},
        {Kind::CreateKey, root + std::u16string(256, u'x'), {}, {}},
        {Kind::SetValue, root + u"a", u"\xDC00", u""},
        {Kind::SetValue, root + u"a", u"", std::u16string(1, u'\0')},
        {Kind::RemoveTree, u"HKEY_CLASSES_ROOT", {}, {}},
        {Kind::RemoveKeyIfEmpty, u"hkey_current_user", {}, {}},
    };
    for (const RegistryChange& change : wrong) {
        EXPECT_EQ(this->apply({{Kind::CreateKey, root + u"before", {}, {}}, change}), E_INVALIDARG) << &change - wrong;
        EXPECT_TRUE(this->keysOf(u"HKEY_CLASSES_ROOT").empty());
    }
    EXPECT_EQ(this->apply({{Kind::CreateKey, root + std::u16string(255, u'x'), {}, {}}}), S_OK);
}

}  // namespace
}  // namespace ovaline::platform
