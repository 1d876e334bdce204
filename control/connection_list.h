// Sinks that a container connected, each under a cookie of its own.
#pragma once

#include <algorithm>
#include <new>
#include <vector>

#include "control/enumerator.h"

namespace ovaline {

/// A sink and its cookie, which is never 0.
template <typename Sink>
struct Connection {
    platform::ComPtr<Sink> sink;
    DWORD cookie = 0;
};

template <typename Sink>
class ConnectionList {
public:
    /// E_OUTOFMEMORY, or S_OK and the new cookie.
    HRESULT add(platform::ComPtr<Sink> sink, DWORD& cookie) {
        try {
            connections_.push_back({std::move(sink), lastCookie_ + 1});
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
        cookie = ++lastCookie_;
        return S_OK;
    }

    /// False where there is no such cookie.
    bool remove(DWORD cookie) {
        const auto found = std::ranges::find(connections_, cookie, &Connection<Sink>::cookie);
        if (found == connections_.end()) return false;
        // The sink may come back here while it is released, so it leaves the list first.
        const Connection<Sink> gone = std::move(*found);
        connections_.erase(found);
        return true;
    }

    const std::vector<Connection<Sink>>& all() const { return connections_; }

private:
    std::vector<Connection<Sink>> connections_;
    DWORD lastCookie_ = 0;
};

}  // namespace ovaline
