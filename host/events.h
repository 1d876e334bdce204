// What a control and its pages report to their host, in one order.
#pragma once

#include <new>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/com.h"

namespace ovaline::host {

/// The control asked to be moved and resized to that rectangle, in pixels.
struct ResizeRequest {
    RECT rectangle;
};

/// The control's view changed: it asked to be repainted.
struct RepaintRequest {};

/// A page told its frame its state: PROPPAGESTATUS_DIRTY, PROPPAGESTATUS_CLEAN or another number.
struct StatusChange {
    DWORD status;
};

/// A message box was shown, and closed at once.
struct MessageBoxShown {
    std::u16string text;
};

using Event = std::variant<ResizeRequest, RepaintRequest, StatusChange, MessageBoxShown>;

class EventLog {
public:
    /// E_OUTOFMEMORY where the event could not be kept.
    template <typename Reported>
    HRESULT add(Reported event) noexcept {
        try {
            events_.emplace_back(std::move(event));
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

    /// What was reported since the last time.
    std::vector<Event> take() { return std::exchange(events_, {}); }

private:
    std::vector<Event> events_;
};

}  // namespace ovaline::host
