// The published interfaces through which an object is saved and loaded. Included by native/com_types.h alone.
#pragma once

union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
union ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    ULONGLONG QuadPart;
};
static_assert(sizeof(LARGE_INTEGER) == 8 && sizeof(ULARGE_INTEGER) == 8);

struct FILETIME;
struct STATSTG;
struct IEnumSTATSTG;
using SNB = LPOLESTR*;

constexpr DWORD STGM_READ = 0x00000000;
constexpr DWORD STGM_WRITE = 0x00000001;
constexpr DWORD STGM_SHARE_EXCLUSIVE = 0x00000010;
constexpr DWORD STGM_CREATE = 0x00001000;

constexpr HRESULT STG_E_FILENOTFOUND = statusCode(0x80030002);
constexpr HRESULT STG_E_READFAULT = statusCode(0x8003001E);
constexpr HRESULT STG_E_MEDIUMFULL = statusCode(0x80030070);
constexpr HRESULT STG_E_OLDDLL = statusCode(0x80030105);
constexpr HRESULT CO_E_ALREADYINITIALIZED = statusCode(0x800401F1);

struct ISequentialStream : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Read(void* pv, ULONG cb, ULONG* pcbRead) = 0;
    virtual HRESULT STDMETHODCALLTYPE Write(const void* pv, ULONG cb, ULONG* pcbWritten) = 0;
};

struct IStream : ISequentialStream {
    virtual HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER dlibMove, DWORD dwOrigin, ULARGE_INTEGER* plibNewPosition) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER libNewSize) = 0;
    virtual HRESULT STDMETHODCALLTYPE CopyTo(IStream* pstm, ULARGE_INTEGER cb, ULARGE_INTEGER* pcbRead,
                                             ULARGE_INTEGER* pcbWritten) = 0;
    virtual HRESULT STDMETHODCALLTYPE Commit(DWORD grfCommitFlags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Revert() = 0;
    virtual HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER libOffset, ULARGE_INTEGER cb, DWORD dwLockType) = 0;
    virtual HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER libOffset, ULARGE_INTEGER cb, DWORD dwLockType) = 0;
    virtual HRESULT STDMETHODCALLTYPE Stat(STATSTG* pstatstg, DWORD grfStatFlag) = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IStream** ppstm) = 0;
};

struct IStorage : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateStream(const OLECHAR* pwcsName, DWORD grfMode, DWORD reserved1,
                                                   DWORD reserved2, IStream** ppstm) = 0;
    virtual HRESULT STDMETHODCALLTYPE OpenStream(const OLECHAR* pwcsName, void* reserved1, DWORD grfMode,
                                                 DWORD reserved2, IStream** ppstm) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateStorage(const OLECHAR* pwcsName, DWORD grfMode, DWORD reserved1,
                                                    DWORD reserved2, IStorage** ppstg) = 0;
    virtual HRESULT STDMETHODCALLTYPE OpenStorage(const OLECHAR* pwcsName, IStorage* pstgPriority, DWORD grfMode,
                                                  SNB snbExclude, DWORD reserved, IStorage** ppstg) = 0;
    virtual HRESULT STDMETHODCALLTYPE CopyTo(DWORD ciidExclude, const IID* rgiidExclude, SNB snbExclude,
                                             IStorage* pstgDest) = 0;
    virtual HRESULT STDMETHODCALLTYPE MoveElementTo(const OLECHAR* pwcsName, IStorage* pstgDest,
                                                    const OLECHAR* pwcsNewName, DWORD grfFlags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Commit(DWORD grfCommitFlags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Revert() = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumElements(DWORD reserved1, void* reserved2, DWORD reserved3,
                                                   IEnumSTATSTG** ppenum) = 0;
    virtual HRESULT STDMETHODCALLTYPE DestroyElement(const OLECHAR* pwcsName) = 0;
    virtual HRESULT STDMETHODCALLTYPE RenameElement(const OLECHAR* pwcsOldName, const OLECHAR* pwcsNewName) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetElementTimes(const OLECHAR* pwcsName, const FILETIME* pctime,
                                                      const FILETIME* patime, const FILETIME* pmtime) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetClass(REFCLSID clsid) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetStateBits(DWORD grfStateBits, DWORD grfMask) = 0;
    virtual HRESULT STDMETHODCALLTYPE Stat(STATSTG* pstatstg, DWORD grfStatFlag) = 0;
};

struct IPersist : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetClassID(CLSID* pClassID) = 0;
};

struct IPersistStreamInit : IPersist {
    virtual HRESULT STDMETHODCALLTYPE IsDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE Load(IStream* pStm) = 0;
    virtual HRESULT STDMETHODCALLTYPE Save(IStream* pStm, BOOL fClearDirty) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* pCbSize) = 0;
    virtual HRESULT STDMETHODCALLTYPE InitNew() = 0;
};

struct IPersistStorage : IPersist {
    virtual HRESULT STDMETHODCALLTYPE IsDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE InitNew(IStorage* pStg) = 0;
    virtual HRESULT STDMETHODCALLTYPE Load(IStorage* pStg) = 0;
    virtual HRESULT STDMETHODCALLTYPE Save(IStorage* pStgSave, BOOL fSameAsLoad) = 0;
    virtual HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* pStgNew) = 0;
    virtual HRESULT STDMETHODCALLTYPE HandsOffStorage() = 0;
};

inline constexpr IID IID_IStorage{0x0000000B, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IStream{0x0000000C, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IPersistStorage{0x0000010A, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IPersist{0x0000010C, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ISequentialStream{
    0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IPersistStreamInit{
    0x7FD52380, 0x4E07, 0x101B, {0xAE, 0x2D, 0x08, 0x00, 0x2B, 0x2E, 0xC7, 0x13}};
