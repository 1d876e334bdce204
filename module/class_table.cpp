#include "module/class_table.h"

#include "control/interface/class_ids.h"
#include "control/norvel_ovaline_ctrl.h"
#include "module/page_services.h"
#include "pages/norvel_ovaline_prop_page.h"
#include "pages/ovaline_serial_prop_page.h"
#include "platform/display.h"
#include "platform/fonts.h"

namespace ovaline {

namespace {

HRESULT createControl(IUnknown* outer, REFIID iid, void** object) {
    auto* control = CNorvel_OvalineCtrl::create(platform::systemFonts(), platform::systemClock(),
                                                platform::displayDpi(), platform::systemWindows(), outer);
    return platform::ComPtr<IUnknown>::adopt(&control->inner())->QueryInterface(iid, object);
}

template <typename Page>
HRESULT createPage(IUnknown* outer, REFIID iid, void** object) {
    if (outer) return CLASS_E_NOAGGREGATION;
    return platform::ComPtr<Page>::adopt(Page::create(pageServices()))->QueryInterface(iid, object);
}

// The ProgIDs of the pages are shortened forms of the names of their classes.
constexpr ClassEntry kClasses[] = {
    {CLSID_Norvel_OvalineCtrl, u"Norvel_Ovaline.Norvel_OvalineCtrl.1", kControlProgId.data(),
     kControlDescription.data(), true, createControl},
    {CLSID_Norvel_OvalinePropPage, u"Norvel_OvalineLib.Norvel_OvalineP.1", u"Norvel_OvalineLib.Norvel_OvalinePro",
     u"Norvel_OvalinePropPage Class", false, createPage<CNorvel_OvalinePropPage>},
    {CLSID_OvalineSerialPropPage, u"Norvel_OvalineLib.OvalineSerialPropPa.1",
     u"Norvel_OvalineLib.OvalineSerialPropPage", u"OvalineSerialPropPage Class", false,
     createPage<COvalineSerialPropPage>},
};

}  // namespace

std::span<const ClassEntry> classTable() {
    return kClasses;
}

const ClassEntry* findClass(REFCLSID id) {
    for (const ClassEntry& entry : kClasses)
        if (IsEqualGUID(entry.id, id)) return &entry;
    return nullptr;
}

}  // namespace ovaline
