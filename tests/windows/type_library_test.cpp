// The type library that the module carries, as any client reads it, against the tables that the code is made of.
#include "control/interface/type_library.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

#include "control/interface/class_ids.h"
#include "platform/windows/text.h"

namespace ovaline {
namespace {

using platform::ComPtr;

/// Owns what a type information hands out.
class Text {
public:
    ~Text() { SysFreeString(text_); }
    BSTR* put() { return &text_; }
    std::string utf8() const { return platform::utf8({text_, SysStringLen(text_)}); }

private:
    BSTR text_ = nullptr;
};

template <typename Description>
class Described {
public:
    using Release = void (STDMETHODCALLTYPE ITypeInfo::*)(Description*);
    Described(ITypeInfo* info, Release release) : info_(info), release_(release) {}
    ~Described() {
        if (held_) (info_->*release_)(held_);
    }
    Described(const Described&) = delete;
    Described& operator=(const Described&) = delete;
    Description** put() { return &held_; }
    const Description* operator->() const { return held_; }

private:
    ITypeInfo* info_;
    Release release_;
    Description* held_ = nullptr;
};

class TypeLibraryTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(LoadTypeLibEx(platform::fromUtf8(OVALINE_MODULE).c_str(), REGKIND_NONE, library_.put()), S_OK);
    }
    ComPtr<ITypeInfo> info(REFGUID id) {
        ComPtr<ITypeInfo> found;
        EXPECT_EQ(library_->GetTypeInfoOfGuid(id, found.put()), S_OK);
        return found;
    }
    static std::string nameOf(ITypeInfo* info, MEMBERID id = MEMBERID_NIL) {
        Text name;
        EXPECT_EQ(info->GetDocumentation(id, name.put(), nullptr, nullptr, nullptr), S_OK);
        return name.utf8();
    }
    /// A type as the tables write it: the tag, "*" for what is written, or an enumeration's name.
    static std::string typeText(ITypeInfo* info, const TYPEDESC& type) {
        if (type.vt == VT_PTR) return typeText(info, *type.lptdesc) + "*";
        if (type.vt != VT_USERDEFINED) return std::to_string(type.vt == VT_INT ? int{VT_I4} : int{type.vt});
        ComPtr<ITypeInfo> named;
        EXPECT_EQ(info->GetRefTypeInfo(type.hreftype, named.put()), S_OK);
        return nameOf(named.get());
    }
    static std::string typeText(const ValueType& type) {
        const std::string text = type.enumeration ? std::string(type.enumeration->name) : std::to_string(type.vt);
        return type.out ? text + "*" : text;
    }

    ComPtr<ITypeLib> library_;
};

/// What a slot is, in one line.
struct Slot {
    DISPID id;
    std::string line;
};

TEST_F(TypeLibraryTest, OperationsInTheirOrder) {
    std::vector<Slot> expected;
    for (const Member& member : members()) {
        const std::string name(member.name);
        if (member.kind == MemberKind::Property) {
            expected.push_back({member.id, "get " + name + " [out retval] " + typeText(member.type) + "*"});
            expected.push_back({member.id, "put " + name + " [in] " + typeText(member.type)});
        } else if (member.kind == MemberKind::Method) {
            std::string line = (member.result == MethodResult::Restricted ? "restricted " : "call ") + name;
            for (std::size_t i = 0; i < member.parameters.size(); ++i) {
                const bool returns = member.result == MethodResult::Retval && i + 1 == member.parameters.size();
                const std::string flags = returns ? "[out retval]" : member.parameters[i].out ? "[out]" : "[in]";
                line +=
                    " " + flags + " " + typeText(member.parameters[i]) + " " + std::string(member.parameterNames[i]);
            }
            expected.push_back({member.id, line});
        }
    }

    // The dual interface's own functions are behind those of its dispatch form.
    const ComPtr<ITypeInfo> dispatch = info(IID_INorvel_OvalineCtrl);
    HREFTYPE reference = 0;
    ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ComPtr<ITypeInfo> table;
    ASSERT_EQ(dispatch->GetRefTypeInfo(reference, table.put()), S_OK);
    Described<TYPEATTR> attributes(table.get(), &ITypeInfo::ReleaseTypeAttr);
    ASSERT_EQ(table->GetTypeAttr(attributes.put()), S_OK);
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FDUAL, TYPEFLAG_FDUAL);
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FNONEXTENSIBLE, TYPEFLAG_FNONEXTENSIBLE);
    ASSERT_EQ(attributes->cFuncs, expected.size());
    constexpr int kSlotsOfDispatch = 7;
    for (UINT i = 0; i < expected.size(); ++i) {
        Described<FUNCDESC> function(table.get(), &ITypeInfo::ReleaseFuncDesc);
        ASSERT_EQ(table->GetFuncDesc(i, function.put()), S_OK);
        const std::map<INVOKEKIND, std::string> kinds = {
            {INVOKE_FUNC, "call "}, {INVOKE_PROPERTYGET, "get "}, {INVOKE_PROPERTYPUT, "put "}};
        const bool isRestricted = function->wFuncFlags & FUNCFLAG_FRESTRICTED;
        std::string line = isRestricted ? "restricted " : kinds.at(function->invkind);
        BSTR names[8] = {};
        UINT named = 0;
        ASSERT_EQ(table->GetNames(function->memid, names, 8, &named), S_OK);
        line += platform::utf8(names[0]);
        for (SHORT p = 0; p < function->cParams; ++p) {
            const ELEMDESC& parameter = function->lprgelemdescParam[p];
            const USHORT flags = parameter.paramdesc.wParamFlags;
            line += flags & PARAMFLAG_FRETVAL ? " [out retval] " : flags & PARAMFLAG_FOUT ? " [out] " : " [in] ";
            line += typeText(table.get(), parameter.tdesc);
            if (function->invkind == INVOKE_FUNC) line += " " + platform::utf8(names[1 + p]);
        }
        for (UINT n = 0; n < named; ++n) SysFreeString(names[n]);
        EXPECT_EQ(line, expected[i].line);
        EXPECT_EQ(function->memid, expected[i].id) << line;
        EXPECT_EQ(function->elemdescFunc.tdesc.vt, VT_HRESULT) << line;
        EXPECT_EQ(function->oVft, static_cast<SHORT>((kSlotsOfDispatch + i) * sizeof(void*))) << line;
    }
}

TEST_F(TypeLibraryTest, Enumerations) {
    std::size_t found = 0;
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
        TYPEKIND kind{};
        ASSERT_EQ(library_->GetTypeInfoType(i, &kind), S_OK);
        found += kind == TKIND_ENUM;
    }
    EXPECT_EQ(found, enumerations().size());
    for (const Enumeration& enumeration : enumerations()) {
        std::wstring name = platform::fromUtf8(enumeration.name);
        ComPtr<ITypeInfo> info;
        MEMBERID id = 0;
        USHORT count = 1;
        ASSERT_EQ(library_->FindName(name.data(), 0, info.put(), &id, &count), S_OK);
        ASSERT_EQ(count, 1) << enumeration.name;
        Described<TYPEATTR> attributes(info.get(), &ITypeInfo::ReleaseTypeAttr);
        ASSERT_EQ(info->GetTypeAttr(attributes.put()), S_OK);
        ASSERT_EQ(attributes->cVars, enumeration.values.size()) << enumeration.name;
        for (UINT i = 0; i < enumeration.values.size(); ++i) {
            Described<VARDESC> value(info.get(), &ITypeInfo::ReleaseVarDesc);
            ASSERT_EQ(info->GetVarDesc(i, value.put()), S_OK);
            EXPECT_EQ(nameOf(info.get(), value->memid), enumeration.values[i].name);
            EXPECT_EQ(value->lpvarValue->lVal, enumeration.values[i].value) << enumeration.values[i].name;
        }
    }
}

TEST_F(TypeLibraryTest, LibraryClassesAndEvents) {
    TLIBATTR* library = nullptr;
    ASSERT_EQ(library_->GetLibAttr(&library), S_OK);
    EXPECT_EQ(library->guid, LIBID_Norvel_OvalineLib);
    EXPECT_EQ(std::pair(library->wMajorVerNum, library->wMinorVerNum), std::pair(WORD{1}, WORD{0}));
    library_->ReleaseTLibAttr(library);
    Text name;
    ASSERT_EQ(library_->GetDocumentation(-1, name.put(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(name.utf8(), "Norvel_OvalineLib");

    const ComPtr<ITypeInfo> events = info(DIID__INorvel_OvalineCtrlEvents);
    Described<TYPEATTR> eventAttributes(events.get(), &ITypeInfo::ReleaseTypeAttr);
    ASSERT_EQ(events->GetTypeAttr(eventAttributes.put()), S_OK);
    EXPECT_EQ(eventAttributes->typekind, TKIND_DISPATCH);
    EXPECT_EQ(eventAttributes->cFuncs + eventAttributes->cVars, 0);

    const std::tuple<CLSID, const char*, std::vector<std::pair<std::string, int>>> classes[] = {
        {CLSID_Norvel_OvalineCtrl,
         "Norvel_OvalineCtrl",
         {{"INorvel_OvalineCtrl", IMPLTYPEFLAG_FDEFAULT},
          {"_INorvel_OvalineCtrlEvents", IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE}}},
        {CLSID_Norvel_OvalinePropPage, "Norvel_OvalinePropPage", {{"IUnknown", IMPLTYPEFLAG_FDEFAULT}}},
        {CLSID_OvalineSerialPropPage, "OvalineSerialPropPage", {{"IUnknown", IMPLTYPEFLAG_FDEFAULT}}},
    };
    for (const auto& [id, className, interfaces] : classes) {
        const ComPtr<ITypeInfo> type = info(id);
        EXPECT_EQ(nameOf(type.get()), className);
        for (UINT i = 0; i < interfaces.size(); ++i) {
            HREFTYPE reference = 0;
            INT flags = 0;
            ComPtr<ITypeInfo> implemented;
            ASSERT_EQ(type->GetRefTypeOfImplType(i, &reference), S_OK);
            ASSERT_EQ(type->GetImplTypeFlags(i, &flags), S_OK);
            ASSERT_EQ(type->GetRefTypeInfo(reference, implemented.put()), S_OK);
            EXPECT_EQ(nameOf(implemented.get()), interfaces[i].first);
            EXPECT_EQ(flags, interfaces[i].second);
        }
    }
}

TEST(ModuleResources, BitmapVersionAndDialogs) {
    const HMODULE module =
        LoadLibraryExW(platform::fromUtf8(OVALINE_MODULE).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(module);
    BITMAP bitmap{};
    const HANDLE image = LoadImageW(module, MAKEINTRESOURCEW(103), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    ASSERT_NE(GetObjectW(image, sizeof bitmap, &bitmap), 0);
    EXPECT_EQ(std::pair(bitmap.bmWidth, bitmap.bmHeight), std::pair(LONG{16}, LONG{15}));
    DeleteObject(image);

    const HRSRC version = FindResourceW(module, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
    ASSERT_TRUE(version);
    const auto* data = static_cast<const BYTE*>(LockResource(LoadResource(module, version)));
    VS_FIXEDFILEINFO fixed{};
    std::memcpy(&fixed, data + 40, sizeof fixed);  // behind three words and the key "VS_VERSION_INFO"
    ASSERT_EQ(fixed.dwSignature, 0xFEEF04BDu);
    EXPECT_EQ(std::pair(fixed.dwFileVersionMS, fixed.dwFileVersionLS), std::pair(DWORD{0x10000}, DWORD{1}));

    for (const int dialog : {105, 110})
        for (const int language : {1031, 1033, 1041, 1045, 1049, 2052}) {
            const HRSRC found =
                FindResourceExW(module, RT_DIALOG, MAKEINTRESOURCEW(dialog), static_cast<WORD>(language));
            ASSERT_TRUE(found) << dialog << ' ' << language;
            const auto* dialogTemplate = static_cast<const DLGTEMPLATE*>(LockResource(LoadResource(module, found)));
            EXPECT_EQ(dialogTemplate->style & (WS_CHILD | WS_CAPTION), DWORD{WS_CHILD});
        }
    FreeLibrary(module);
}

}  // namespace
}  // namespace ovaline
