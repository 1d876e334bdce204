// A client that was compiled against the interface: it finds the registered control by its name, calls it through its
// table of operations, and lets it go.
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "control/interface/class_ids.h"
#include "platform/windows/text.h"

namespace ovaline {
namespace {

using platform::ComPtr;
using Export = HRESULT(STDAPICALLTYPE*)();

class EarlyBindingTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        module_ = LoadLibraryW(platform::fromUtf8(OVALINE_MODULE).c_str());
        ASSERT_TRUE(module_) << "run in the folder of the module";
        ASSERT_EQ(callExport("DllRegisterServer"), S_OK);
        CLSID id{};
        ASSERT_EQ(CLSIDFromProgID(L"Norvel_Ovaline.Norvel_OvalineCtrl", &id), S_OK);
        EXPECT_EQ(id, CLSID_Norvel_OvalineCtrl);
        ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_INorvel_OvalineCtrl,
                                   reinterpret_cast<void**>(control_.put())),
                  S_OK);
        EXPECT_EQ(callExport("DllCanUnloadNow"), S_FALSE);
    }
    void TearDown() override {
        control_ = {};
        EXPECT_EQ(callExport("DllCanUnloadNow"), S_OK) << "an object is left";
        EXPECT_EQ(callExport("DllUnregisterServer"), S_OK);
        CLSID id{};
        EXPECT_TRUE(FAILED(CLSIDFromProgID(L"Norvel_Ovaline.Norvel_OvalineCtrl", &id)));
        CoUninitialize();
    }
    HRESULT callExport(const char* name) {
        const FARPROC address = GetProcAddress(module_, name);
        return address ? std::bit_cast<Export>(address)() : E_FAIL;
    }
    INorvel_OvalineCtrl& control() { return *control_.get(); }
    /// The accessors behind what the type library describes.
    INorvel_OvalineCtrlTable& table() { return static_cast<INorvel_OvalineCtrlTable&>(*control_.get()); }

    HMODULE module_ = nullptr;
    ComPtr<INorvel_OvalineCtrl> control_;
};

TEST_F(EarlyBindingTest, PropertiesKeepTheirValues) {
    FLOAT width = 0;
    EXPECT_EQ(control().put_Width(30.5f), S_OK);
    EXPECT_EQ(control().get_Width(&width), S_OK);
    EXPECT_EQ(width, 30.5f);
    EXPECT_EQ(control().put_ArrayXDimension(256), S_FALSE);
    LONG dimension = 0;
    EXPECT_EQ(control().get_ArrayXDimension(&dimension), S_OK);
    EXPECT_EQ(dimension, 1);
    BSTR text = nullptr;
    EXPECT_EQ(control().get_SerialNumPrefix(&text), S_OK);
    EXPECT_EQ(platform::utf8({text, SysStringLen(text)}), "Префикс");
    SysFreeString(text);
    using Pair = std::pair<HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrlTable::*)(VARIANT_BOOL),
                           HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrlTable::*)(VARIANT_BOOL*)>;
    for (const auto& [put, get] :
         {Pair{&INorvel_OvalineCtrlTable::put_FontStrikeout, &INorvel_OvalineCtrlTable::get_FontStrikeout},
          Pair{&INorvel_OvalineCtrlTable::put_FontUnderline, &INorvel_OvalineCtrlTable::get_FontUnderline},
          Pair{&INorvel_OvalineCtrlTable::put_SpareFlag, &INorvel_OvalineCtrlTable::get_SpareFlag}}) {
        VARIANT_BOOL value = VARIANT_TRUE;
        EXPECT_EQ((table().*get)(&value), S_OK);
        EXPECT_EQ(value, VARIANT_FALSE);
        EXPECT_EQ((table().*put)(VARIANT_TRUE), S_OK);
        EXPECT_EQ((table().*get)(&value), S_OK);
        EXPECT_EQ(value, VARIANT_TRUE);
    }
}

/// A VARIANT that refers to a VARIANT whose data field is an address, with whatever tags.
struct Nested {
    Nested(void* address, VARTYPE innerTag, VARTYPE outerTag) {
        inner.vt = innerTag;
        inner.byref = address;
        outer.vt = outerTag;
        outer.pvarVal = &inner;
    }
    VARIANT inner{};
    VARIANT outer{};
};

TEST_F(EarlyBindingTest, AddressesTravelInVariantsWhateverTheirTags) {
    ASSERT_EQ(control().put_FontName(nullptr), S_OK);
    ASSERT_EQ(control().SetScreenSize(3, 5, 70, 90), S_OK);
    for (const auto& [inner, outer] : {std::pair<VARTYPE, VARTYPE>{VT_BYREF | VT_I4, VT_BYREF | VT_VARIANT},
                                       {VT_EMPTY, VT_EMPTY},
                                       {VT_I4, VT_UI1 | VT_BYREF}}) {
        std::array<LONG, 4> place{-1, -1, -1, -1};
        const Nested left(&place[0], inner, outer), top(&place[1], inner, outer), width(&place[2], inner, outer),
            height(&place[3], inner, outer);
        EXPECT_EQ(control().GetScreenSize(left.outer, top.outer, width.outer, height.outer), S_OK);
        EXPECT_EQ(place[0], 3);
        EXPECT_EQ(place[1], 5);
    }
    std::array<BYTE, 272> record{};
    VARIANT address{};
    address.vt = VT_BYREF | VT_UI1;
    address.byref = record.data();
    EXPECT_EQ(control().GetProperty(address), S_OK);
    FLOAT step = 0;
    std::memcpy(&step, &record[0x30], sizeof step);
    EXPECT_EQ(step, 40.0f);
}

TEST_F(EarlyBindingTest, VectorDataEndsWithItsRecord) {
    for (const float size : {20.0f, 15.0f}) {
        ASSERT_EQ(control().put_Width(size), S_OK);
        ASSERT_EQ(control().put_Height(size), S_OK);
    }
    ULONG size = 0;
    ASSERT_EQ(control().GetVectorDataSize(&size), S_OK);
    ASSERT_GT(size, 20u) << "there is text to mark";
    std::vector<BYTE> stream(size);
    const Nested buffer(stream.data(), VT_BYREF | VT_UI1, VT_BYREF | VT_VARIANT);
    ASSERT_EQ(control().GetVectorData(buffer.outer, size), S_OK);
    constexpr std::size_t kRecord = 9;
    std::size_t end = 0;
    while (end + kRecord <= stream.size() && stream[end] != 'E') end += kRecord;
    EXPECT_GT(end, kRecord);
    EXPECT_LT(end, stream.size());
}

}  // namespace
}  // namespace ovaline
