#include "module/class_table.h"

#include "control/interface/class_ids.h"
#include "control/norvel_ovaline_ctrl.h"
#include "platform/display.h"
#include "platform/fonts.h"

namespace ovaline {

namespace {

HRESULT createControl(REFIID iid, void** object) {
    const auto control = platform::ComPtr<CNorvel_OvalineCtrl>::adopt(
        CNorvel_OvalineCtrl::create(platform::systemFonts(), platform::systemClock(), platform::displayDpi()));
    return control->QueryInterface(iid, object);
}

// The ProgIDs of the pages are shortened forms of the names of their classes.
constexpr ClassEntry kClasses[] = {
    {CLSID_Norvel_OvalineCtrl, u"Norvel_Ovaline.Norvel_OvalineCtrl.1", kControlProgId.data(),
     u"Norvel_OvalineCtrl Class", true, createControl},
    {CLSID_Norvel_OvalinePropPage, u"Norvel_OvalineLib.Norvel_OvalineP.1", u"Norvel_OvalineLib.Norvel_OvalinePro",
     u"Norvel_OvalinePropPage Class", false, nullptr},
    {CLSID_OvalineSerialPropPage, u"Norvel_OvalineLib.OvalineSerialPropPa.1",
     u"Norvel_OvalineLib.OvalineSerialPropPage", u"OvalineSerialPropPage Class", false, nullptr},
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
