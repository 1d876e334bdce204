// The published COM types, interfaces and status codes that the control and its hosts use, for platforms without them.
// Sizes, field orders, slot orders and values are those of the published headers; only what is used is declared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#define STDMETHODCALLTYPE
#define STDAPICALLTYPE

using HRESULT = std::int32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using BYTE = std::uint8_t;
using BOOL = std::int32_t;
using FLOAT = float;
using DOUBLE = double;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using ULONG_PTR = std::uintptr_t;
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
using BSTR = OLECHAR*;
using VARIANT_BOOL = std::int16_t;
using VARTYPE = std::uint16_t;
using DISPID = LONG;
using MEMBERID = DISPID;
using LCID = std::uint32_t;
using SCODE = LONG;
using DATE = double;
using HWND = struct HWND__*;
using HDC = struct HDC__*;

constexpr VARIANT_BOOL VARIANT_TRUE = -1;
constexpr VARIANT_BOOL VARIANT_FALSE = 0;

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
static_assert(sizeof(GUID) == 16);
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline bool operator==(const GUID& a, const GUID& b) {
    return std::memcmp(&a, &b, sizeof(GUID)) == 0;
}
inline bool IsEqualGUID(const GUID& a, const GUID& b) {
    return a == b;
}
inline bool IsEqualIID(const IID& a, const IID& b) {
    return a == b;
}

inline constexpr GUID GUID_NULL{};
inline constexpr IID IID_NULL{};

constexpr HRESULT statusCode(std::uint32_t bits) {
    return static_cast<HRESULT>(bits);
}
constexpr bool SUCCEEDED(HRESULT hr) {
    return hr >= 0;
}
constexpr bool FAILED(HRESULT hr) {
    return hr < 0;
}

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_NOTIMPL = statusCode(0x80004001);
constexpr HRESULT E_NOINTERFACE = statusCode(0x80004002);
constexpr HRESULT E_POINTER = statusCode(0x80004003);
constexpr HRESULT E_FAIL = statusCode(0x80004005);
constexpr HRESULT E_UNEXPECTED = statusCode(0x8000FFFF);
constexpr HRESULT E_OUTOFMEMORY = statusCode(0x8007000E);
constexpr HRESULT E_INVALIDARG = statusCode(0x80070057);
constexpr HRESULT DISP_E_MEMBERNOTFOUND = statusCode(0x80020003);
constexpr HRESULT DISP_E_PARAMNOTFOUND = statusCode(0x80020004);
constexpr HRESULT DISP_E_TYPEMISMATCH = statusCode(0x80020005);
constexpr HRESULT DISP_E_UNKNOWNNAME = statusCode(0x80020006);
constexpr HRESULT DISP_E_NONAMEDARGS = statusCode(0x80020007);
constexpr HRESULT DISP_E_BADVARTYPE = statusCode(0x80020008);
constexpr HRESULT DISP_E_OVERFLOW = statusCode(0x8002000A);
constexpr HRESULT DISP_E_BADINDEX = statusCode(0x8002000B);
constexpr HRESULT DISP_E_UNKNOWNINTERFACE = statusCode(0x80020001);
constexpr HRESULT DISP_E_BADPARAMCOUNT = statusCode(0x8002000E);
constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = statusCode(0x8002000F);
constexpr HRESULT DISP_E_BUFFERTOOSMALL = statusCode(0x80020013);
constexpr HRESULT CLASS_E_NOAGGREGATION = statusCode(0x80040110);
constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = statusCode(0x80040111);
constexpr HRESULT DV_E_DVASPECT = statusCode(0x8004006B);
constexpr HRESULT OLE_S_USEREG = 0x00040000;
constexpr HRESULT OLE_E_ADVISENOTSUPPORTED = statusCode(0x80040003);

constexpr DISPID DISPID_UNKNOWN = -1;
constexpr DISPID DISPID_PROPERTYPUT = -3;
constexpr WORD DISPATCH_METHOD = 1;
constexpr WORD DISPATCH_PROPERTYGET = 2;
constexpr WORD DISPATCH_PROPERTYPUT = 4;
constexpr WORD DISPATCH_PROPERTYPUTREF = 8;

enum VARENUM : VARTYPE {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_BYREF = 0x4000,
    VT_TYPEMASK = 0xFFF
};

struct IUnknown;
struct IDispatch;

/// The published VARIANT: the tag at offset 0, the data field at offset 8, as wide as two pointers.
struct VARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        LONGLONG llVal;
        LONG lVal;
        BYTE bVal;
        SHORT iVal;
        FLOAT fltVal;
        DOUBLE dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        DATE date;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        VARIANT* pvarVal;
        void* byref;
        BYTE* pbVal;
        SHORT* piVal;
        LONG* plVal;
        FLOAT* pfltVal;
        DOUBLE* pdblVal;
        VARIANT_BOOL* pboolVal;
        BSTR* pbstrVal;
        std::int8_t cVal;
        USHORT uiVal;
        ULONG ulVal;
        ULONGLONG ullVal;
        INT intVal;
        UINT uintVal;
        USHORT* puiVal;
        ULONG* pulVal;
        INT* pintVal;
        struct {
            void* pvRecord;
            void* pRecInfo;
        } brecVal;
    };
};
static_assert(sizeof(VARIANT) == 8 + 2 * sizeof(void*));
using VARIANTARG = VARIANT;

struct DISPPARAMS {
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

struct EXCEPINFO;
struct ITypeInfo;

struct RECT {
    LONG left, top, right, bottom;
};
using LPCRECT = const RECT*;
struct RECTL {
    LONG left, top, right, bottom;
};
using LPCRECTL = const RECTL*;
struct SIZEL {
    LONG cx, cy;
};
struct SIZE {
    LONG cx, cy;
};

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;

protected:
    ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObject) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL fLock) = 0;
};

struct IDispatch : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pctinfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* rgszNames, UINT cNames, LCID lcid,
                                                    DISPID* rgDispId) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID dispIdMember, REFIID riid, LCID lcid, WORD wFlags,
                                             DISPPARAMS* pDispParams, VARIANT* pVarResult, EXCEPINFO* pExcepInfo,
                                             UINT* puArgErr) = 0;
};

inline constexpr IID IID_IUnknown{0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IClassFactory{0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

#include "native/property_interfaces.h"

#include "native/ole_interfaces.h"
#include "native/persist_interfaces.h"

/// Memory that one object allocates and another frees. Null where it is exhausted.
void* CoTaskMemAlloc(std::size_t size);
void CoTaskMemFree(void* memory);

/// New BSTR of `count` code units copied from `text` (zeros where `text` is null). Null where memory is exhausted.
BSTR SysAllocStringLen(const OLECHAR* text, UINT count);
void SysFreeString(BSTR text);
/// Length in code units; 0 for null.
UINT SysStringLen(BSTR text);

void VariantInit(VARIANT* variant);
/// Releases what the variant owns and makes it VT_EMPTY.
HRESULT VariantClear(VARIANT* variant);

/// Converts `source` to type `type` as scripts expect it (numbers to the nearest, halves to even; text to numbers; a
/// flag to -1 or 0; references are followed) and stores it in `target`, which may be `source` and is cleared first.
/// DISP_E_OVERFLOW for a value outside the type, DISP_E_TYPEMISMATCH where there is no conversion; `target` is then
/// unchanged.
HRESULT VariantChangeType(VARIANT* target, const VARIANT* source, USHORT flags, VARTYPE type);
