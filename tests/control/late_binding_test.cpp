#include <cstring>

#include "control/interface/type_library.h"
#include "control_fixture.h"

namespace ovaline {
namespace {

class LateBindingTest : public ControlTest {
protected:
    DISPID id(std::u16string name) {
        LPOLESTR names[] = {oleText(name)};
        DISPID found = 0;
        hr = control->GetIDsOfNames(IID_NULL, names, 1, 0, &found);
        return found;
    }
    HRESULT invoke(DISPID member, WORD flags, std::vector<VARIANT> arguments, VARIANT* result = nullptr) {
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        argumentError = 99;
        return control->Invoke(member, IID_NULL, 0, flags, &parameters, result, nullptr, &argumentError);
    }
    static VARIANT integer(LONG value) {
        VARIANT variant{};
        variant.vt = VT_I4;
        variant.lVal = value;
        return variant;
    }
    static VARIANT string(BSTR text) {
        VARIANT variant{};
        variant.vt = VT_BSTR;
        variant.bstrVal = text;
        return variant;
    }
    /// The same text under the interface's type.
    static LPOLESTR oleText(std::u16string& text) { return reinterpret_cast<LPOLESTR>(text.data()); }
    HRESULT hr = S_OK;
    UINT argumentError = 99;
};

TEST_F(LateBindingTest, NamesGiveTheirIdentifiers) {
    EXPECT_EQ(id(u"getvectordata"), 0x2A) << "case is ignored";
    EXPECT_EQ(id(u"FontStrikeout"), DISPID_UNKNOWN) << "behind the type library";
    EXPECT_EQ(hr, DISP_E_UNKNOWNNAME);
    std::u16string method = u"SetScreenXY", parameter = u"top", wrong = u"bottom";
    LPOLESTR names[] = {oleText(method), oleText(parameter), oleText(wrong)};
    DISPID ids[3] = {};
    EXPECT_EQ(control->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], 0x49);
    EXPECT_EQ(ids[1], 1);
    EXPECT_EQ(ids[2], DISPID_UNKNOWN);
}

TEST_F(LateBindingTest, ArgumentsAreConverted) {
    const Text number(u" 12.5 "), flag(u"True"), word(u"wide");
    EXPECT_EQ(invoke(0x89, DISPATCH_PROPERTYPUT, {string(number)}), S_OK);
    VARIANT result{};
    EXPECT_EQ(invoke(0x89, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &result), S_OK);
    EXPECT_EQ(result.vt, VT_R4);
    EXPECT_EQ(result.fltVal, 12.5f);
    EXPECT_EQ(invoke(0x8C, DISPATCH_PROPERTYPUT, {string(flag)}), S_OK);
    EXPECT_EQ(settings().SerialNumEnable, -1);
    EXPECT_EQ(invoke(0x86, DISPATCH_PROPERTYPUT, {integer(42)}), S_OK);
    EXPECT_EQ(invoke(0x86, DISPATCH_PROPERTYGET, {}, &result), S_OK);
    EXPECT_EQ(platform::textOf(result.bstrVal), u"42");
    VariantClear(&result);

    EXPECT_EQ(invoke(0x89, DISPATCH_PROPERTYPUT, {string(word)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(argumentError, 0u);
    VARIANT large{};
    large.vt = VT_R8;
    large.dblVal = 1e10;
    EXPECT_EQ(invoke(0x64, DISPATCH_PROPERTYPUT, {large}), DISP_E_OVERFLOW);
    large.dblVal = 2.5;  // halves go to even
    EXPECT_EQ(invoke(0x64, DISPATCH_PROPERTYPUT, {large}), S_OK);
    EXPECT_EQ(settings().ArrayXDimension, 2);
    EXPECT_EQ(invoke(0x64, DISPATCH_PROPERTYPUT, {integer(0)}), S_OK) << "a refused value is no failure";
    EXPECT_EQ(settings().ArrayXDimension, 2);
    LONG referred = 9;
    VARIANT reference{};
    reference.vt = VT_I4 | VT_BYREF;
    reference.plVal = &referred;
    VARIANT indirect{};
    indirect.vt = VT_VARIANT | VT_BYREF;
    indirect.pvarVal = &reference;
    EXPECT_EQ(invoke(0x64, DISPATCH_PROPERTYPUT, {indirect}), S_OK);
    EXPECT_EQ(settings().ArrayXDimension, 9);
}

TEST_F(LateBindingTest, MethodsTakeAndReturnTheirArguments) {
    EXPECT_EQ(invoke(0x49, DISPATCH_METHOD, {integer(2), integer(1)}), S_OK) << "the last argument comes first";
    EXPECT_EQ(settings().ScreenLeft, 1);
    EXPECT_EQ(settings().ScreenTop, 2);
    VARIANT named[] = {integer(70), integer(60)};
    DISPID order[] = {1, 0};
    DISPPARAMS parameters{named, order, 2, 2};
    EXPECT_EQ(control->Invoke(0x49, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(settings().ScreenLeft, 60);
    EXPECT_EQ(settings().ScreenTop, 70);

    VARIANT result{};
    EXPECT_EQ(invoke(0x51, DISPATCH_METHOD, {}, &result), S_OK);
    EXPECT_EQ(result.vt, VT_I4);
    LONG precision = 0;
    VARIANT out{};
    out.vt = VT_I4 | VT_BYREF;
    out.plVal = &precision;
    EXPECT_EQ(invoke(0x30, DISPATCH_METHOD, {out}), S_OK);
    EXPECT_EQ(precision, 3);
    EXPECT_EQ(invoke(0x30, DISPATCH_METHOD, {integer(0)}), DISP_E_TYPEMISMATCH) << "no reference to write to";

    EXPECT_EQ(invoke(0x49, DISPATCH_METHOD, {integer(1)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(0x49, DISPATCH_PROPERTYGET, {integer(1), integer(1)}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(0x7777, DISPATCH_METHOD, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(0x89, DISPATCH_PROPERTYGET, {integer(1)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(control->Invoke(0x51, IID_IUnknown, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
}

// A VARIANT parameter arrives whole, whatever its tag.
TEST_F(LateBindingTest, BuffersArriveThroughTheirVariant) {
    std::byte buffer[64] = {};
    VARIANT inner{};
    inner.byref = buffer;
    for (const VARTYPE tag : {VT_EMPTY, VT_I4, VT_BYREF}) {
        VARIANT outer{};
        outer.vt = tag;
        outer.byref = &inner;
        buffer[0] = std::byte{0};
        EXPECT_EQ(invoke(0x5F, DISPATCH_METHOD, {integer(64), outer}), S_OK);
        EXPECT_EQ(buffer[0], std::byte{'E'});
    }
}

// The table of operations: IUnknown and IDispatch, each property's get and put, the methods, three further pairs.
TEST_F(LateBindingTest, SlotsAreInPublishedOrder) {
    EXPECT_EQ(members().size(), 43u + 36u + 3u);
    std::size_t slots = 7;
    for (const Member& member : members()) slots += member.kind == MemberKind::Method ? 1 : 2;
    EXPECT_EQ(slots, 7u + 2 * 43 + 36 + 2 * 3);
    void* object = nullptr;
    ASSERT_EQ(control->QueryInterface(IID_INorvel_OvalineCtrl, &object), S_OK);
    void** table = nullptr;
    std::memcpy(&table, object, sizeof table);
    const auto call = [&](std::size_t slot, auto... arguments) {
        using Slot = HRESULT(STDMETHODCALLTYPE*)(void*, decltype(arguments)...);
        return reinterpret_cast<Slot>(table[slot])(object, arguments...);
    };
    EXPECT_EQ(call(7 + 2 * 11 + 1, 7.5f), S_OK);  // put of the twelfth property
    EXPECT_EQ(settings().Width, 7500);
    EXPECT_EQ(call(7 + 2 * 42 + 1, VARIANT_BOOL{-1}), S_OK);
    EXPECT_EQ(settings().MirrorVertical, -1);
    EXPECT_EQ(call(7 + 86), S_OK);  // the first method turns
    EXPECT_EQ(settings().Angle, 90);
    LONG points = 5;
    EXPECT_EQ(call(7 + 86 + 34, &points), S_OK);  // the last but one
    EXPECT_EQ(points, 0);
    EXPECT_EQ(call(7 + 86 + 36 + 5, VARIANT_BOOL{-1}), S_OK);
    EXPECT_EQ(settings().SpareFlag, -1);
    static_cast<IUnknown*>(object)->Release();
}

}  // namespace
}  // namespace ovaline
