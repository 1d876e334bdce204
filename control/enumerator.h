// The published enumerators.
#pragma once

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "platform/com.h"
#include "platform/module_lock.h"

namespace ovaline {

/// Enumerates a copy of the items as they were when the first enumerator of a row of clones was made. `Item` is what
/// is held, `Given` what Next gives; `given(item)` makes the one of the other, with a reference for the receiver.
template <typename Interface, typename Item, typename Given>
class Enumerator final : public Interface {
public:
    using Give = Given (*)(const Item& item);

    /// Hands out an enumerator at its start. E_POINTER, E_OUTOFMEMORY or S_OK.
    static HRESULT make(REFIID iid, const std::vector<Item>& items, Give give, Interface** made) {
        if (!made) return E_POINTER;
        *made = nullptr;
        try {
            *made = new Enumerator(iid, std::make_shared<const std::vector<Item>>(items), 0, give);
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, iid_)) return E_NOINTERFACE;
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    /// The count may be left out where one item is asked for.
    HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* items, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (!items || (!fetched && count != 1)) return E_POINTER;
        const ULONG taken = std::min(count, left());
        for (ULONG i = 0; i < taken; ++i) items[i] = give_((*items_)[at_ + i]);
        at_ += taken;
        if (fetched) *fetched = taken;
        return taken == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const ULONG taken = std::min(count, left());
        at_ += taken;
        return taken == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        at_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** made) override {
        if (!made) return E_POINTER;
        *made = new (std::nothrow) Enumerator(iid_, items_, at_, give_);
        return *made ? S_OK : E_OUTOFMEMORY;
    }

private:
    using Items = std::shared_ptr<const std::vector<Item>>;

    Enumerator(REFIID iid, Items items, std::size_t at, Give give)
        : iid_(iid), items_(std::move(items)), at_(at), give_(give) {}
    ~Enumerator() = default;

    ULONG left() const { return static_cast<ULONG>(items_->size() - at_); }

    platform::ModuleLock moduleLock_;  // it may outlive the object that it was asked of
    IID iid_;
    Items items_;
    std::size_t at_;
    Give give_;
    ULONG references_ = 1;
};

}  // namespace ovaline
