// What the property pages share: the object that a property frame holds, and its dialog.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "control/interface/norvel_ovaline_ctrl.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/fonts.h"
#include "platform/module_lock.h"

namespace ovaline {

/// What a page needs of the module and of the platform.
struct PageServices {
    /// The language of the resources that the host is set to, asked anew each time.
    std::uint16_t (*resourceLanguage)();
    /// A modeless dialog of the module's template in that language; null where it can't be made.
    std::unique_ptr<platform::Dialog> (*createDialogInLanguage)(std::uint32_t templateId,
                                                                platform::DialogEvents& events, HWND parent);
    platform::FontService* fonts;
    const platform::Clock* clock;
};

/// The resources of a page: a dialog template and strings.
struct PageResources {
    std::uint32_t dialog;
    std::uint32_t title;
    std::uint32_t helpFile;
    std::uint32_t docString;
};

/// IPropertyPage as frames expect it. A page has its dialog from Activate to Deactivate; what a person changes in it
/// reaches the object at Apply alone.
class PropertyPage : public IPropertyPage {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override;
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT rectangle, BOOL modal) override;
    HRESULT STDMETHODCALLTYPE Deactivate() override;
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override;
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
    HRESULT STDMETHODCALLTYPE Show(UINT command) override;
    HRESULT STDMETHODCALLTYPE Move(LPCRECT rectangle) override;
    HRESULT STDMETHODCALLTYPE IsPageDirty() override;
    HRESULT STDMETHODCALLTYPE Apply() override;
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR folder) override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;

protected:
    PropertyPage(const PageServices& services, const PageResources& resources)
        : services_(services), resources_(resources) {}
    virtual ~PropertyPage() = default;

    /// Fills the dialog, which has just been made.
    virtual void load() = 0;
    /// Writes to the object what the dialog holds.
    virtual void store() = 0;

    // The dialog's reports, by default of no interest. See platform::DialogEvents.
    virtual void textChanged(int) {}
    virtual void selectionChanged(int) {}
    virtual void clicked(int) {}
    virtual void doubleClicked(int) {}
    virtual void spun(int, int) {}
    virtual void paint(int, HDC, const RECT&) {}

    const PageServices& services() const { return services_; }
    /// There is one while load(), store() and the reports run.
    platform::Dialog& dialog() { return *dialog_; }
    const platform::Dialog& dialog() const { return *dialog_; }
    /// The first object's interface; empty where it has none.
    platform::ComPtr<INorvel_OvalineCtrl> control() const;
    /// The module's string in the page's language; empty where there is none.
    std::u16string string(std::uint32_t id) const;

    bool isDirty() const { return dirty_; }
    /// Tells the site where the state changes.
    void setDirty(bool dirty);
    /// Takes the state without a report.
    void resetDirty() { dirty_ = false; }
    /// PROPPAGESTATUS_DIRTY or PROPPAGESTATUS_CLEAN, whatever the state was before.
    void reportStatus(PROPPAGESTATUS status);

private:
    /// Hands the dialog's reports on. A site that is told something meanwhile may let go of the page or deactivate it:
    /// the page and its dialog then stay until the report has ended.
    class Reports final : public platform::DialogEvents {
    public:
        explicit Reports(PropertyPage& page) : page_(page) {}
        void textChanged(int id) override;
        void selectionChanged(int id) override;
        void clicked(int id) override;
        void doubleClicked(int id) override;
        void spun(int id, int delta) override;
        void paint(int id, HDC dc, const RECT& area) override;

    private:
        PropertyPage& page_;
    };

    /// Runs `action`, which uses the dialog; no exception leaves it. What a page can't do for lack of memory is left
    /// out.
    template <typename Action>
    HRESULT withDialog(Action&& action);
    void closeDialog();

    PageServices services_;
    PageResources resources_;
    platform::ModuleLock moduleLock_;
    std::atomic<ULONG> references_{1};
    platform::ComPtr<IPropertyPageSite> site_;
    std::vector<platform::ComPtr<IUnknown>> objects_;
    Reports reports_{*this};
    std::unique_ptr<platform::Dialog> dialog_;
    int actions_ = 0;       // under way, one within the other
    bool closing_ = false;  // deactivated while an action was under way
    bool dirty_ = false;
};

}  // namespace ovaline
