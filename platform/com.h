// COM value types and interfaces under their published names, layouts and slot orders.
//
// On Windows they are the SDK's own; elsewhere native/com_types.h declares the same ones. Text crosses the boundary as
// BSTR only; inside it is std::u16string.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "native/com_types.h"

namespace ovaline::platform {

/// Copy of a BSTR's text; a null BSTR is the empty string.
std::u16string textOf(BSTR text);

/// Text of a zero-terminated string; null is the empty string.
std::u16string_view viewOf(const OLECHAR* text);

/// New BSTR, owned by the caller. Null where memory is exhausted.
BSTR makeBstr(std::u16string_view text);

/// Owning pointer to a COM object: one reference while it holds it.
template <typename Interface>
class ComPtr {
public:
    ComPtr() = default;
    /// Takes over a reference that the caller holds.
    static ComPtr adopt(Interface* object) {
        ComPtr owner;
        owner.object_ = object;
        return owner;
    }
    /// Adds a reference.
    static ComPtr share(Interface* object) {
        if (object) object->AddRef();
        return adopt(object);
    }
    ComPtr(const ComPtr& other) : ComPtr(share(other.object_)) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() {
        if (object_) object_->Release();
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    /// Address to hand to an operation that returns a new reference; what was held is released first.
    Interface** put() {
        *this = ComPtr();
        return &object_;
    }

private:
    Interface* object_ = nullptr;
};

/// The interface `iid` of `object`, empty where it has none.
template <typename Interface>
ComPtr<Interface> query(IUnknown* object, REFIID iid) {
    void* found = nullptr;
    if (!object || FAILED(object->QueryInterface(iid, &found))) return {};
    return ComPtr<Interface>::adopt(static_cast<Interface*>(found));
}

}  // namespace ovaline::platform
