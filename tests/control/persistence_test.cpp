#include "control/persistence.h"

#include <algorithm>
#include <map>

#include "control_fixture.h"

namespace ovaline {
namespace {

using Bytes = std::vector<std::uint8_t>;

// The published parameters of what neither double does.
#define NOT_DONE(name, ...)                                \
    HRESULT STDMETHODCALLTYPE name(__VA_ARGS__) override { \
        return E_NOTIMPL;                                  \
    }

/// A stream on bytes that somebody else keeps. It gives a few bytes at a time, as streams may.
class MemoryStream final : public IStream {
public:
    explicit MemoryStream(Bytes& bytes, std::size_t most = 1000) : bytes_(bytes), most_(most) {}

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Read(void* to, ULONG count, ULONG* read) override {
        constexpr std::size_t kAtATime = 5;
        const std::size_t taken = std::min({std::size_t{count}, bytes_.size() - position_, kAtATime});
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position_), taken, static_cast<std::uint8_t*>(to));
        position_ += taken;
        *read = static_cast<ULONG>(taken);
        return taken < count ? S_FALSE : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Write(const void* from, ULONG count, ULONG* written) override {
        const std::size_t taken = std::min(std::size_t{count}, most_ - bytes_.size());
        const auto* first = static_cast<const std::uint8_t*>(from);
        bytes_.insert(bytes_.end(), first, first + taken);
        *written = static_cast<ULONG>(taken);
        return S_OK;
    }
    NOT_DONE(QueryInterface, REFIID, void**)
    NOT_DONE(Seek, LARGE_INTEGER, DWORD, ULARGE_INTEGER*)
    NOT_DONE(SetSize, ULARGE_INTEGER)
    NOT_DONE(CopyTo, IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*)
    NOT_DONE(Commit, DWORD)
    NOT_DONE(Revert)
    NOT_DONE(LockRegion, ULARGE_INTEGER, ULARGE_INTEGER, DWORD)
    NOT_DONE(UnlockRegion, ULARGE_INTEGER, ULARGE_INTEGER, DWORD)
    NOT_DONE(Stat, STATSTG*, DWORD)
    NOT_DONE(Clone, IStream**)

private:
    ~MemoryStream() = default;

    Bytes& bytes_;
    std::size_t most_;
    std::size_t position_ = 0;
    ULONG references_ = 1;
};

/// Streams by name.
class MemoryStorage final : public IStorage {
public:
    std::map<std::u16string, Bytes> streams;
    ULONG references = 1;

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE CreateStream(const OLECHAR* name, DWORD mode, DWORD, DWORD, IStream** stream) override {
        EXPECT_EQ(mode, STGM_WRITE | STGM_SHARE_EXCLUSIVE | STGM_CREATE);
        Bytes& bytes = streams[std::u16string(platform::viewOf(name))];
        bytes.clear();
        *stream = new MemoryStream(bytes);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OpenStream(const OLECHAR* name, void*, DWORD mode, DWORD, IStream** stream) override {
        EXPECT_EQ(mode, STGM_READ | STGM_SHARE_EXCLUSIVE);
        const auto found = streams.find(std::u16string(platform::viewOf(name)));
        *stream = found == streams.end() ? nullptr : new MemoryStream(found->second);
        return *stream ? S_OK : STG_E_FILENOTFOUND;
    }
    NOT_DONE(QueryInterface, REFIID, void**)
    NOT_DONE(CreateStorage, const OLECHAR*, DWORD, DWORD, DWORD, IStorage**)
    NOT_DONE(OpenStorage, const OLECHAR*, IStorage*, DWORD, SNB, DWORD, IStorage**)
    NOT_DONE(CopyTo, DWORD, const IID*, SNB, IStorage*)
    NOT_DONE(MoveElementTo, const OLECHAR*, IStorage*, const OLECHAR*, DWORD)
    NOT_DONE(Commit, DWORD)
    NOT_DONE(Revert)
    NOT_DONE(EnumElements, DWORD, void*, DWORD, IEnumSTATSTG**)
    NOT_DONE(DestroyElement, const OLECHAR*)
    NOT_DONE(RenameElement, const OLECHAR*, const OLECHAR*)
    NOT_DONE(SetElementTimes, const OLECHAR*, const FILETIME*, const FILETIME*, const FILETIME*)
    NOT_DONE(SetClass, REFCLSID)
    NOT_DONE(SetStateBits, DWORD, DWORD)
    NOT_DONE(Stat, STATSTG*, DWORD)
};
#undef NOT_DONE

const Bytes kSaved = {0x00, 0x0E, 0x00, 0x00, 0x28, 0xEC, 0xFF, 0xFF, 0x21, 0x43, 0x65, 0x07};
constexpr LONG kSavedWidth = -5080, kSavedHeight = 0x07654321;

class PersistenceTest : public ControlTest {
protected:
    using StreamPointer = platform::ComPtr<IStream>;

    static StreamPointer on(Bytes& bytes, std::size_t most = 1000) {
        return StreamPointer::adopt(new MemoryStream(bytes, most));
    }
    void setExtent(LONG width, LONG height) {
        SIZEL size{width, height};
        EXPECT_EQ(control->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    }
    std::pair<LONG, LONG> extent() {
        SIZEL size{};
        EXPECT_EQ(control->GetExtent(DVASPECT_CONTENT, &size), S_OK);
        return {size.cx, size.cy};
    }
    static constexpr std::pair<LONG, LONG> kTwoInches{5080, 5080};
};

TEST_F(PersistenceTest, TheStreamIsTheVersionAndTheExtent) {
    Bytes bytes;
    ULARGE_INTEGER size{};
    EXPECT_EQ(control->GetSizeMax(&size), S_OK);
    EXPECT_EQ(size.QuadPart, kSaved.size());
    EXPECT_EQ(control->GetSizeMax(nullptr), E_POINTER);
    setExtent(kSavedWidth, kSavedHeight);
    EXPECT_EQ(control->Save(on(bytes).get(), 0), S_OK);
    EXPECT_EQ(bytes, kSaved);
    setExtent(1, 2);
    EXPECT_EQ(control->Load(on(bytes).get()), S_OK);
    EXPECT_EQ(extent(), std::pair(kSavedWidth, kSavedHeight));
    EXPECT_EQ(control->InitNew(), S_OK);
    EXPECT_EQ(extent(), kTwoInches);
    bytes[1] = 3;
    EXPECT_EQ(control->Load(on(bytes).get()), S_OK) << "of an older version";
    EXPECT_EQ(extent(), std::pair(kSavedWidth, kSavedHeight));
    CLSID id{};
    EXPECT_EQ(control->GetClassID(&id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, CLSID_Norvel_OvalineCtrl));
    EXPECT_EQ(control->GetClassID(nullptr), E_POINTER);
}

TEST_F(PersistenceTest, DamagedStreamsLeaveTheExtent) {
    setExtent(70, 80);
    for (std::size_t length = 0; length < kSaved.size(); ++length) {
        Bytes bytes(kSaved.begin(), kSaved.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(control->Load(on(bytes).get()), STG_E_READFAULT) << length << " bytes";
    }
    for (const std::size_t place : {std::size_t{0}, std::size_t{2}, std::size_t{3}}) {
        Bytes bytes = kSaved;
        bytes[place] = 1;
        EXPECT_EQ(control->Load(on(bytes).get()), STG_E_OLDDLL) << "a newer version";
    }
    EXPECT_EQ(control->Load(static_cast<IStream*>(nullptr)), E_POINTER);
    EXPECT_EQ(control->Save(static_cast<IStream*>(nullptr), 1), E_POINTER);
    EXPECT_EQ(extent(), std::pair(LONG{70}, LONG{80}));
}

TEST_F(PersistenceTest, DirtyIsWhatIsNotStored) {
    Bytes bytes;
    EXPECT_EQ(control->IsDirty(), S_OK) << "never saved";
    EXPECT_EQ(control->Save(on(bytes).get(), 0), S_OK);
    EXPECT_EQ(control->IsDirty(), S_OK) << "a copy does not count";
    Bytes full;
    EXPECT_EQ(control->Save(on(full, 11).get(), 1), STG_E_MEDIUMFULL);
    EXPECT_EQ(control->IsDirty(), S_OK);
    bytes.clear();
    EXPECT_EQ(control->Save(on(bytes).get(), 1), S_OK);
    EXPECT_EQ(control->IsDirty(), S_FALSE);
    setExtent(9, 9);
    EXPECT_EQ(control->IsDirty(), S_OK);
    EXPECT_EQ(control->Load(on(bytes).get()), S_OK);
    EXPECT_EQ(control->IsDirty(), S_FALSE);
    EXPECT_EQ(control->InitNew(), S_OK);
    EXPECT_EQ(control->IsDirty(), S_OK);
}

TEST_F(PersistenceTest, AStorageHoldsTheStreamContents) {
    MemoryStorage storage;
    EXPECT_EQ(control->InitNew(&storage), S_OK);
    setExtent(kSavedWidth, kSavedHeight);
    storage.streams[u"Contents"] = Bytes(40, 7);
    EXPECT_EQ(control->Save(&storage, 1), S_OK);
    EXPECT_EQ(control->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(storage.streams, (std::map<std::u16string, Bytes>{{u"Contents", kSaved}}));

    control = platform::ComPtr<Control>::adopt(Control::create(fonts, clock, 96));
    storage.streams.clear();
    EXPECT_EQ(control->Load(&storage), STG_E_FILENOTFOUND);
    storage.streams[u"Contents"] = {1, 2, 3};
    EXPECT_EQ(control->Load(&storage), STG_E_READFAULT);
    EXPECT_EQ(extent(), kTwoInches);
    storage.streams[u"Contents"] = kSaved;
    EXPECT_EQ(control->Load(&storage), S_OK) << "a storage that does not load can be tried again";
    EXPECT_EQ(extent().second, kSavedHeight);
    EXPECT_EQ(control->IsDirty(), S_FALSE);
    EXPECT_EQ(control->Load(&storage), CO_E_ALREADYINITIALIZED);
    EXPECT_EQ(control->InitNew(&storage), CO_E_ALREADYINITIALIZED);
    EXPECT_EQ(storage.references, 1u);
}

TEST_F(PersistenceTest, AStorageIsWrittenOnlyWhenItsContainerExpectsIt) {
    MemoryStorage own, other;
    EXPECT_EQ(control->Save(&own, 1), E_UNEXPECTED) << "no storage was given yet";
    EXPECT_EQ(control->SaveCompleted(&own), E_UNEXPECTED);
    EXPECT_EQ(control->HandsOffStorage(), S_OK);
    EXPECT_EQ(control->InitNew(&own), S_OK);
    EXPECT_EQ(control->SaveCompleted(nullptr), E_UNEXPECTED) << "nothing was saved";

    EXPECT_EQ(control->Save(&other, 0), S_OK);
    EXPECT_EQ(control->Save(&other, 0), E_UNEXPECTED);
    EXPECT_EQ(control->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(control->IsDirty(), S_OK) << "a copy was saved";

    EXPECT_EQ(control->Save(&own, 1), S_OK);
    setExtent(1, 1);
    EXPECT_EQ(control->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(control->IsDirty(), S_OK) << "changed after the save";
    EXPECT_EQ(control->Save(&own, 1), S_OK);
    EXPECT_EQ(control->HandsOffStorage(), S_OK);
    EXPECT_EQ(control->Save(&own, 1), E_UNEXPECTED);
    EXPECT_EQ(control->SaveCompleted(nullptr), E_INVALIDARG);
    EXPECT_EQ(control->SaveCompleted(&own), S_OK);
    EXPECT_EQ(control->IsDirty(), S_FALSE);
    setExtent(2, 2);
    EXPECT_EQ(control->HandsOffStorage(), S_OK);
    EXPECT_EQ(control->SaveCompleted(&other), S_OK);
    EXPECT_EQ(control->IsDirty(), S_OK) << "the new storage was not saved to";
    EXPECT_EQ(own.references + other.references, 2u);
    EXPECT_EQ(control->InitNew(nullptr), E_POINTER);
    EXPECT_EQ(control->Load(static_cast<IStorage*>(nullptr)), E_POINTER);
    EXPECT_EQ(control->Save(static_cast<IStorage*>(nullptr), 1), E_POINTER);
}

}  // namespace
}  // namespace ovaline
