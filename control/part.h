// How one object is made of several classes.
#pragma once

#include "platform/com.h"

namespace ovaline {

/// Interfaces that a class implements for a bigger object, which owns it: what they are asked as IUnknown goes to the
/// whole.
template <typename... Interfaces>
class Part : public Interfaces... {
public:
    explicit Part(IUnknown& whole) : whole_(whole) {}
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        return whole_.QueryInterface(riid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return whole_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return whole_.Release(); }

protected:
    ~Part() = default;

    /// A reference for as long as an operation calls out: a container may let go of the object inside any call.
    platform::ComPtr<IUnknown> keepAlive() const { return platform::ComPtr<IUnknown>::share(&whole_); }

private:
    IUnknown& whole_;
};

/// The unknown of an object that may be part of another one. It counts the object's own references and deletes it with
/// the last; `Object::ownInterface` gives the address of an interface, null where it has none. Every other interface of
/// the object asks `outer()`, which is the other object's unknown or, without one, this.
template <typename Object>
class InnerUnknown final : public IUnknown {
public:
    /// Holds one reference for the caller. The outer object owns this one and is not held.
    InnerUnknown(Object& object, IUnknown* outer) : object_(object), outer_(outer ? *outer : *this) {}
    InnerUnknown(const InnerUnknown&) = delete;
    InnerUnknown& operator=(const InnerUnknown&) = delete;

    IUnknown& outer() const { return outer_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        const bool own = IsEqualIID(riid, IID_IUnknown);
        *object = own ? static_cast<IUnknown*>(this) : object_.ownInterface(riid);
        if (!*object) return E_NOINTERFACE;
        (own ? static_cast<IUnknown&>(*this) : outer_).AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left > 0) return left;
        // What the object calls while it goes may take references and give them back: none of them is the last again.
        references_ = 1;
        delete &object_;
        return 0;
    }

private:
    Object& object_;
    IUnknown& outer_;
    ULONG references_ = 1;
};

}  // namespace ovaline
