// The place of one page in a property frame.
#pragma once

#include <atomic>
#include <memory>

#include "host/events.h"
#include "platform/com.h"

namespace ovaline::host {

/// Remembers what the page reports.
class PageSite final : public IPropertyPageSite {
public:
    /// The caller owns the reference.
    static PageSite* create(std::shared_ptr<EventLog> events) { return new PageSite(std::move(events)); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD status) override { return events_->add(StatusChange{status}); }
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) override;
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** container) override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return S_FALSE; }

private:
    explicit PageSite(std::shared_ptr<EventLog> events) : events_(std::move(events)) {}
    ~PageSite() = default;

    std::atomic<ULONG> references_ = 1;
    std::shared_ptr<EventLog> events_;
};

}  // namespace ovaline::host
