// The entries that registration writes and removes.
#include "module/registration.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "control/interface/class_ids.h"
#include "module/class_table.h"
#include "platform/guid_text.h"
#include "platform/memory/registry.h"

namespace ovaline {
namespace {

using platform::MemoryRegistry;
using platform::RegistryChange;
using platform::RegistryValue;
using Kind = RegistryChange::Kind;
/// Key, name and value; a key without values has one row with the name "-".
using Rows = std::vector<std::vector<std::u16string>>;

constexpr std::u16string_view kModulePath = u"/opt/Norvel/100%/Norvel_Ovaline.so";

Rows rowsOf(const MemoryRegistry& registry) {
    Rows rows;
    for (const auto& [key, values] : registry.keys()) {
        if (key.find(u'\\') == std::u16string::npos) continue;
        const std::u16string path = key.substr(key.find(u'\\') + 1);
        if (values.empty()) rows.push_back({path, u"-", u""});
        for (const auto& [name, value] : values) rows.push_back({path, name, std::get<std::u16string>(value)});
    }
    std::ranges::sort(rows);
    return rows;
}

/// The rows that the rules for a class ask for.
Rows rowsOfClass(std::u16string id, std::u16string progId, std::u16string independent, std::u16string description) {
    const std::u16string key = u"CLSID\\" + id;
    return {
        {progId, u"", description},
        {progId + u"\\CLSID", u"", id},
        {independent, u"", description},
        {independent + u"\\CLSID", u"", id},
        {independent + u"\\CurVer", u"", progId},
        {key, u"", description},
        {key, u"AppID", u"{6F0E2C43-9B7D-4E53-A164-3C58D2907E11}"},
        {key + u"\\ProgID", u"", progId},
        {key + u"\\VersionIndependentProgID", u"", independent},
        {key + u"\\InprocServer32", u"", std::u16string(kModulePath)},
        {key + u"\\TypeLib", u"", u"{6F0E2C40-9B7D-4E53-A164-3C58D2907E11}"},
    };
}

Rows expectedRows() {
    const std::u16string module(kModulePath);
    const std::u16string control = u"CLSID\\{6F0E2C44-9B7D-4E53-A164-3C58D2907E11}";
    const std::u16string library = u"TypeLib\\{6F0E2C40-9B7D-4E53-A164-3C58D2907E11}";
    Rows rows = {
        {u"AppID", u"-", u""},
        {u"AppID\\{6F0E2C43-9B7D-4E53-A164-3C58D2907E11}", u"", u"Norvel_Ovaline"},
        {u"AppID\\Norvel_Ovaline.DLL", u"AppID", u"{6F0E2C43-9B7D-4E53-A164-3C58D2907E11}"},
        {u"CLSID", u"-", u""},
        {control + u"\\Programmable", u"-", u""},
        {control + u"\\Control", u"-", u""},
        {control + u"\\ToolboxBitmap32", u"", module + u", 103"},
        {control + u"\\MiscStatus", u"", u"0"},
        {control + u"\\MiscStatus\\1", u"", u"131473"},
        {control + u"\\Version", u"", u"1.0"},
        {u"TypeLib", u"-", u""},
        {library, u"-", u""},
        {library + u"\\1.0", u"", u"Norvel_OvalineLib"},
        {library + u"\\1.0\\0", u"-", u""},
        {library + u"\\1.0\\0\\win32", u"", module},
        {library + u"\\1.0\\FLAGS", u"", u"0"},
        {library + u"\\1.0\\HELPDIR", u"", u"/opt/Norvel/100%"},
    };
    for (const Rows& ofClass :
         {rowsOfClass(u"{6F0E2C44-9B7D-4E53-A164-3C58D2907E11}", u"Norvel_Ovaline.Norvel_OvalineCtrl.1",
                      u"Norvel_Ovaline.Norvel_OvalineCtrl", u"Norvel_OvalineCtrl Class"),
          rowsOfClass(u"{6F0E2C45-9B7D-4E53-A164-3C58D2907E11}", u"Norvel_OvalineLib.Norvel_OvalineP.1",
                      u"Norvel_OvalineLib.Norvel_OvalinePro", u"Norvel_OvalinePropPage Class"),
          rowsOfClass(u"{6F0E2C46-9B7D-4E53-A164-3C58D2907E11}", u"Norvel_OvalineLib.OvalineSerialPropPa.1",
                      u"Norvel_OvalineLib.OvalineSerialPropPage", u"OvalineSerialPropPage Class")})
        rows.insert(rows.end(), ofClass.begin(), ofClass.end());
    std::ranges::sort(rows);
    return rows;
}

void set(MemoryRegistry& registry, const char16_t* key, const char16_t* name, const char16_t* value) {
    const RegistryChange change{Kind::SetValue, std::u16string(u"HKEY_CLASSES_ROOT\\") + key, name, value};
    ASSERT_EQ(registry.apply({&change, 1}), S_OK);
}

TEST(Registration, WritesExactlyTheListedEntriesAndReplacesTheClassKeysWhole) {
    MemoryRegistry registry;
    for (int i = 0; i < 2; ++i) {
        set(registry, u"CLSID\\{6F0E2C44-9B7D-4E53-A164-3C58D2907E11}\\InprocServer32", u"ThreadingModel", u"Both");
        set(registry, u"CLSID\\{6F0E2C46-9B7D-4E53-A164-3C58D2907E11}\\Insertable", u"", u"");
        ASSERT_EQ(registerServer(registry, kModulePath), S_OK);
        EXPECT_EQ(rowsOf(registry), expectedRows());
    }
}

TEST(Registration, RemovalLeavesTheSharedKeys) {
    MemoryRegistry registry;
    ASSERT_EQ(registerServer(registry, kModulePath), S_OK);
    ASSERT_EQ(unregisterServer(registry), S_OK);
    const Rows shared = {{u"AppID", u"-", u""}, {u"CLSID", u"-", u""}, {u"TypeLib", u"-", u""}};
    EXPECT_EQ(rowsOf(registry), shared);
    ASSERT_EQ(unregisterServer(registry), S_OK);
    EXPECT_EQ(rowsOf(registry), shared);
    MemoryRegistry empty;
    EXPECT_EQ(unregisterServer(empty), S_OK);
    EXPECT_TRUE(rowsOf(empty).empty());
}

TEST(Registration, RemovalLeavesWhatOtherProgramsKeep) {
    const Rows foreign = {
        {u"AppID\\Norvel_Ovaline.DLL", u"Note", u"another program's"},
        {u"AppID\\Other.DLL", u"AppID", u"x"},
        {u"CLSID\\{00000000-0000-0000-0000-000000000001}", u"", u"Other"},
        {u"Norvel_Ovaline.Norvel_OvalineCtrl\\shell\\open", u"", u"edit"},
        {u"Norvel_OvalineLib.Norvel_OvalineP.1", u"Owner", u"another program"},
        {u"TypeLib\\{6F0E2C40-9B7D-4E53-A164-3C58D2907E11}\\2.0", u"", u"the next version"},
    };
    MemoryRegistry registry;
    for (const auto& row : foreign) set(registry, row[0].c_str(), row[1].c_str(), row[2].c_str());
    const Rows before = rowsOf(registry);
    ASSERT_EQ(registerServer(registry, kModulePath), S_OK);
    ASSERT_EQ(unregisterServer(registry), S_OK);
    EXPECT_EQ(rowsOf(registry), before);
}

TEST(Registration, RemovalLeavesANameThatLeadsToAnotherClass) {
    MemoryRegistry registry;
    ASSERT_EQ(registerServer(registry, kModulePath), S_OK);
    set(registry, u"Norvel_Ovaline.Norvel_OvalineCtrl\\CLSID", u"", u"{00000000-0000-0000-0000-000000000002}");
    ASSERT_EQ(unregisterServer(registry), S_OK);
    EXPECT_TRUE(registry.list(u"HKEY_CLASSES_ROOT\\Norvel_Ovaline.Norvel_OvalineCtrl\\CurVer"));
    EXPECT_FALSE(registry.list(u"HKEY_CLASSES_ROOT\\Norvel_Ovaline.Norvel_OvalineCtrl.1"));
}

// The module's script, three classes and the type library: five calls, and nothing after the one that fails.
TEST(Registration, TheFirstFailureStopsAndIsReturned) {
    for (int calls = 0; calls < 5; ++calls) {
        MemoryRegistry registry;
        registry.failAfter(calls, platform::kRegistryDiskFull);
        EXPECT_EQ(registerServer(registry, kModulePath), platform::kRegistryDiskFull) << calls;
        EXPECT_EQ(registry.list(u"HKEY_CLASSES_ROOT\\AppID").has_value(), calls > 0);
        for (std::size_t i = 0; i < classTable().size(); ++i) {
            const std::u16string key = u"HKEY_CLASSES_ROOT\\CLSID\\" + platform::guidText(classTable()[i].id);
            EXPECT_EQ(registry.list(key).has_value(), static_cast<std::size_t>(calls) > i + 1) << calls;
        }
        EXPECT_FALSE(registry.list(u"HKEY_CLASSES_ROOT\\TypeLib"));

        ASSERT_EQ(registerServer(registry, kModulePath), S_OK);
        registry.failAfter(calls, platform::kRegistryAccessDenied);
        EXPECT_EQ(unregisterServer(registry), platform::kRegistryAccessDenied) << calls;
        EXPECT_TRUE(registry.list(u"HKEY_CLASSES_ROOT\\AppID\\Norvel_Ovaline.DLL")) << calls;
    }
}

TEST(GuidText, IsTheRegistrysForm) {
    EXPECT_EQ(platform::guidText({0x00020400, 0xA, 0xBCDE, {0xC0, 0, 1, 2, 3, 4, 5, 0x46}}),
              u"{00020400-000A-BCDE-C000-010203040546}");
}

}  // namespace
}  // namespace ovaline
