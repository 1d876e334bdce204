// What a control saves of itself: its extent. The host keeps all other settings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/com.h"

namespace ovaline {

/// The extent of a new control in HIMETRIC: two inches square.
inline constexpr SIZEL kStartUpExtent{5080, 5080};

/// Bytes that a saved control takes: the framework's version, then `_cx` and `_cy` as they are, 32 bits each,
/// little-endian. The map's two property pages carry no data.
constexpr std::size_t kSavedSize = 12;

/// Writes the property map's stream at the stream's position.
HRESULT saveExtent(IStream& stream, const SIZEL& extent);
/// Reads it from the stream's position. Where the stream is short or of a newer framework, a failure is answered and
/// `extent` stays as it is.
HRESULT loadExtent(IStream& stream, SIZEL& extent);

/// The same in the stream "Contents" of a storage, which is created, or replaced.
HRESULT saveExtent(IStorage& storage, const SIZEL& extent);
HRESULT loadExtent(IStorage& storage, SIZEL& extent);

/// Where an object stands with the storage that its container gave it: which calls are due, and what the storage holds.
class StorageState {
public:
    /// InitNew or Load, which come once.
    bool initialised() const { return state_ != State::Uninitialised; }
    void initialise() { state_ = State::Normal; }

    /// After a save nothing may be written before the container has completed it, and nothing after it took the storage
    /// away.
    bool mayWrite() const { return state_ == State::Normal; }
    /// `ownStorage`: the storage that the object was initialised with, and not a copy.
    void saved(const SIZEL& extent, bool ownStorage);

    void handOff();

    /// Whether `complete` is due.
    bool mayComplete() const { return state_ == State::NoScribble || state_ == State::HandsOff; }
    /// Once the storage was taken away the object needs a new one.
    bool needsStorage() const { return state_ == State::HandsOff; }
    /// Returns what the object's storage holds now, nothing where that did not change. `newStorage`: the container
    /// gave a storage, to which the object was saved if it was saved.
    std::optional<SIZEL> complete(bool newStorage);

private:
    enum class State { Uninitialised, Normal, NoScribble, HandsOff };
    State state_ = State::Uninitialised;
    std::optional<SIZEL> written_;  ///< by a save that is not completed
    bool ownStorage_ = false;
};

}  // namespace ovaline
