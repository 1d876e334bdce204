#include "module/registration.h"

#include <algorithm>
#include <map>
#include <ranges>
#include <span>
#include <string>
#include <vector>

#include "control/interface/class_ids.h"
#include "module/class_table.h"
#include "platform/guid_text.h"

namespace ovaline {

namespace {

using platform::RegistryChange;
using Kind = RegistryChange::Kind;

/// A value under HKEY_CLASSES_ROOT, or an empty key where `value` is null. %NAMES% stand for what differs.
struct Entry {
    const char16_t* key;
    const char16_t* name;
    const char16_t* value;
};
using Entries = std::span<const Entry>;
using Replacements = std::map<std::u16string_view, std::u16string>;

constexpr Entry kModule[] = {
    {u"AppID\\%APPID%", u"", u"Norvel_Ovaline"},
    {u"AppID\\Norvel_Ovaline.DLL", u"AppID", u"%APPID%"},
};

constexpr Entry kProgId[] = {
    {u"%PROGID%", u"", u"%CLASS%"},
    {u"%PROGID%\\CLSID", u"", u"%CLSID%"},
};

constexpr Entry kVersionIndependentProgId[] = {
    {u"%VIPROGID%", u"", u"%CLASS%"},
    {u"%VIPROGID%\\CLSID", u"", u"%CLSID%"},
    {u"%VIPROGID%\\CurVer", u"", u"%PROGID%"},
};

// There is no ThreadingModel: objects live in the host's main apartment.
constexpr Entry kClass[] = {
    {u"CLSID\\%CLSID%", u"", u"%CLASS%"},
    {u"CLSID\\%CLSID%", u"AppID", u"%APPID%"},
    {u"CLSID\\%CLSID%\\ProgID", u"", u"%PROGID%"},
    {u"CLSID\\%CLSID%\\VersionIndependentProgID", u"", u"%VIPROGID%"},
    {u"CLSID\\%CLSID%\\InprocServer32", u"", u"%MODULE%"},
    {u"CLSID\\%CLSID%\\TypeLib", u"", u"%LIBID%"},
};

/// What a control has besides.
constexpr Entry kControl[] = {
    {u"CLSID\\%CLSID%\\Programmable", u"", nullptr},
    {u"CLSID\\%CLSID%\\Control", u"", nullptr},
    {u"CLSID\\%CLSID%\\ToolboxBitmap32", u"", u"%MODULE%, 103"},
    {u"CLSID\\%CLSID%\\MiscStatus", u"", u"0"},
    {u"CLSID\\%CLSID%\\MiscStatus\\1", u"", u"%OLEMISC%"},
    {u"CLSID\\%CLSID%\\Version", u"", u"1.0"},
};

// The form in which the platform registers type libraries: 0 is the language-neutral one, and no flags are set.
constexpr Entry kTypeLibrary[] = {
    {u"TypeLib\\%LIBID%", u"", nullptr},
    {u"TypeLib\\%LIBID%\\1.0", u"", u"Norvel_OvalineLib"},
    {u"TypeLib\\%LIBID%\\1.0\\0\\win32", u"", u"%MODULE%"},
    {u"TypeLib\\%LIBID%\\1.0\\FLAGS", u"", u"0"},
    {u"TypeLib\\%LIBID%\\1.0\\HELPDIR", u"", u"%FOLDER%"},
};

/// The keys that are replaced and removed whole.
constexpr char16_t kClassKey[] = u"CLSID\\%CLSID%";
constexpr char16_t kTypeLibraryKey[] = u"TypeLib\\%LIBID%\\1.0";

/// The control's miscellaneous status as the decimal number that the registry holds.
constexpr std::u16string_view kMiscStatusText = u"131473";
static_assert(kControlMiscStatus == 131473);

Replacements moduleReplacements(std::u16string_view modulePath) {
    const std::size_t folderEnd = modulePath.find_last_of(u"/\\");
    return {{u"APPID", platform::guidText(APPID_Norvel_Ovaline)},
            {u"LIBID", platform::guidText(LIBID_Norvel_OvalineLib)},
            {u"MODULE", std::u16string(modulePath)},
            {u"FOLDER", std::u16string(modulePath.substr(0, std::min(folderEnd, modulePath.size())))},
            {u"OLEMISC", std::u16string(kMiscStatusText)}};
}

Replacements classReplacements(const ClassEntry& entry, Replacements replacements) {
    replacements[u"CLSID"] = platform::guidText(entry.id);
    replacements[u"CLASS"] = entry.description;
    replacements[u"PROGID"] = entry.progId;
    replacements[u"VIPROGID"] = entry.versionIndependentProgId;
    return replacements;
}

std::u16string expanded(std::u16string_view text, const Replacements& replacements) {
    std::u16string out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = std::min(text.find(u'%', at), text.size());
        out += text.substr(at, begin - at);
        if (begin == text.size()) break;
        const std::size_t end = text.find(u'%', begin + 1);
        out += replacements.at(text.substr(begin + 1, end - begin - 1));
        at = end + 1;
    }
    return out;
}

/// The changes of one script.
class Script {
public:
    explicit Script(Replacements replacements) : replacements_(std::move(replacements)) {}

    void write(Entries entries) {
        for (const Entry& entry : entries) {
            if (entry.value) {
                add(Kind::SetValue, entry.key, entry.name, entry.value);
            } else {
                add(Kind::CreateKey, entry.key);
            }
        }
    }
    void remove(Entries entries) {
        for (const Entry& entry : entries | std::views::reverse) {
            if (entry.value) add(Kind::RemoveValue, entry.key, entry.name);
            add(Kind::RemoveKeyIfEmpty, entry.key);
        }
    }
    void removeTree(const char16_t* key) { add(Kind::RemoveTree, key); }

    HRESULT run(platform::Registry& registry) const { return registry.apply(changes_); }

private:
    void add(Kind kind, const char16_t* key, const char16_t* name = u"", const char16_t* value = u"") {
        changes_.push_back({kind, std::u16string(platform::kClassesRoot) + u'\\' + expanded(key, replacements_), name,
                            expanded(value, replacements_)});
    }

    Replacements replacements_;
    std::vector<RegistryChange> changes_;
};

HRESULT registerClass(platform::Registry& registry, const ClassEntry& entry, const Replacements& module) {
    Script script(classReplacements(entry, module));
    script.removeTree(kClassKey);
    script.write(kProgId);
    script.write(kVersionIndependentProgId);
    script.write(kClass);
    if (entry.isControl) script.write(kControl);
    return script.run(registry);
}

HRESULT unregisterClass(platform::Registry& registry, const ClassEntry& entry, const Replacements& module) {
    Script script(classReplacements(entry, module));
    const auto leadsElsewhere = [&](const char16_t* progId) {
        const std::u16string key = std::u16string(platform::kClassesRoot) + u'\\' + progId + u"\\CLSID";
        const auto held = registry.value(key, u"");
        return held && *held != platform::RegistryValue(platform::guidText(entry.id));
    };
    script.removeTree(kClassKey);
    if (!leadsElsewhere(entry.versionIndependentProgId)) script.remove(kVersionIndependentProgId);
    if (!leadsElsewhere(entry.progId)) script.remove(kProgId);
    return script.run(registry);
}

}  // namespace

HRESULT registerServer(platform::Registry& registry, std::u16string_view modulePath) {
    const Replacements replacements = moduleReplacements(modulePath);
    Script module(replacements);
    module.write(kModule);
    if (const HRESULT hr = module.run(registry); FAILED(hr)) return hr;
    for (const ClassEntry& entry : classTable())
        if (const HRESULT hr = registerClass(registry, entry, replacements); FAILED(hr)) return hr;
    Script typeLibrary(replacements);
    typeLibrary.removeTree(kTypeLibraryKey);
    typeLibrary.write(kTypeLibrary);
    return typeLibrary.run(registry);
}

HRESULT unregisterServer(platform::Registry& registry) {
    const Replacements replacements = moduleReplacements({});
    for (const ClassEntry& entry : classTable())
        if (const HRESULT hr = unregisterClass(registry, entry, replacements); FAILED(hr)) return hr;
    Script typeLibrary(replacements);
    typeLibrary.removeTree(kTypeLibraryKey);
    typeLibrary.remove(kTypeLibrary);
    if (const HRESULT hr = typeLibrary.run(registry); FAILED(hr)) return hr;
    Script module(replacements);
    module.remove(kModule);
    return module.run(registry);
}

}  // namespace ovaline
