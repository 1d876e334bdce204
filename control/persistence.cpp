#include "control/persistence.h"

#include <array>
#include <span>
#include <utility>

#include "platform/little_endian.h"

namespace ovaline {

namespace {

/// The version of the control framework that stands at the head of a property map's stream: the framework's latest, so
/// that what any release of it wrote is not newer.
constexpr std::uint32_t kFrameworkVersion = 0x0E00;

constexpr std::size_t kVersionSize = 4;

/// "Contents", in the platform's own characters.
constexpr OLECHAR kStreamName[] = {'C', 'o', 'n', 't', 'e', 'n', 't', 's', 0};

/// Fills `bytes`. A stream may give less than it is asked for; only at its end it gives nothing.
HRESULT readAll(IStream& stream, std::span<std::byte> bytes) {
    while (!bytes.empty()) {
        ULONG read = 0;
        const HRESULT hr = stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read);
        if (FAILED(hr)) return hr;
        if (read == 0 || read > bytes.size()) return STG_E_READFAULT;
        bytes = bytes.subspan(read);
    }
    return S_OK;
}

}  // namespace

HRESULT saveExtent(IStream& stream, const SIZEL& extent) {
    std::array<std::byte, kSavedSize> bytes;
    storeLittleEndian(&bytes[0], kFrameworkVersion);
    storeLittleEndian(&bytes[4], static_cast<std::uint32_t>(extent.cx));
    storeLittleEndian(&bytes[8], static_cast<std::uint32_t>(extent.cy));
    ULONG written = 0;
    const HRESULT hr = stream.Write(bytes.data(), kSavedSize, &written);
    if (FAILED(hr)) return hr;
    return written == kSavedSize ? S_OK : STG_E_MEDIUMFULL;
}

HRESULT loadExtent(IStream& stream, SIZEL& extent) {
    std::array<std::byte, kSavedSize> bytes;
    const std::span<std::byte> all(bytes);
    // What follows a newer version is not known, so it is not read.
    if (const HRESULT hr = readAll(stream, all.first(kVersionSize)); FAILED(hr)) return hr;
    std::uint32_t version = 0;
    loadLittleEndian(&bytes[0], version);
    if (version > kFrameworkVersion) return STG_E_OLDDLL;
    if (const HRESULT hr = readAll(stream, all.subspan(kVersionSize)); FAILED(hr)) return hr;
    std::uint32_t cx = 0, cy = 0;
    loadLittleEndian(&bytes[4], cx);
    loadLittleEndian(&bytes[8], cy);
    extent = {static_cast<LONG>(cx), static_cast<LONG>(cy)};
    return S_OK;
}

HRESULT saveExtent(IStorage& storage, const SIZEL& extent) {
    platform::ComPtr<IStream> stream;
    const HRESULT hr =
        storage.CreateStream(kStreamName, STGM_WRITE | STGM_SHARE_EXCLUSIVE | STGM_CREATE, 0, 0, stream.put());
    return FAILED(hr) ? hr : saveExtent(*stream.get(), extent);
}

HRESULT loadExtent(IStorage& storage, SIZEL& extent) {
    platform::ComPtr<IStream> stream;
    const HRESULT hr = storage.OpenStream(kStreamName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.put());
    return FAILED(hr) ? hr : loadExtent(*stream.get(), extent);
}

void StorageState::saved(const SIZEL& extent, bool ownStorage) {
    state_ = State::NoScribble;
    written_ = extent;
    ownStorage_ = ownStorage;
}

void StorageState::handOff() {
    if (initialised()) state_ = State::HandsOff;
}

std::optional<SIZEL> StorageState::complete(bool newStorage) {
    state_ = State::Normal;
    const std::optional<SIZEL> written = std::exchange(written_, std::nullopt);
    return newStorage || ownStorage_ ? written : std::nullopt;
}

}  // namespace ovaline
