// Creates a control, gives it a text and prints how many records its vector stream holds.
#include <cstdio>
#include <variant>
#include <vector>

#include "control/interface/class_ids.h"
#include "output/vector_record.h"
#include "platform/module_loader.h"

using namespace ovaline;
using platform::ComPtr;

int main() {
    const auto loaded = platform::loadModule(OVALINE_MODULE);
    if (const auto* reason = std::get_if<std::string>(&loaded)) return std::puts(reason->c_str()), 1;
    void* factoryObject = nullptr;
    const auto getClassObject = std::get<platform::ModuleExports>(loaded).getClassObject;
    if (FAILED(getClassObject(CLSID_Norvel_OvalineCtrl, IID_IClassFactory, &factoryObject))) return 1;
    const auto factory = ComPtr<IClassFactory>::adopt(static_cast<IClassFactory*>(factoryObject));
    void* object = nullptr;
    if (FAILED(factory->CreateInstance(nullptr, IID_INorvel_OvalineCtrl, &object))) return 1;
    const auto control = ComPtr<INorvel_OvalineCtrl>::adopt(static_cast<INorvel_OvalineCtrl*>(object));

    const BSTR text = platform::makeBstr(u"PACKAGE");
    control->put_TextData(text);
    SysFreeString(text);
    control->put_FillStyle(NoFilling);
    control->SetDefaultSize(0);

    ULONG size = 0;
    control->GetVectorDataSize(&size);
    std::vector<BYTE> buffer(size);
    VARIANT inner{};
    inner.vt = VT_BYREF | VT_UI1;
    inner.byref = buffer.data();
    VARIANT outer{};
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = &inner;
    if (FAILED(control->GetVectorData(outer, size))) return 1;
    std::size_t records = 0;
    while (records * kVectorRecordSize < buffer.size() && buffer[records * kVectorRecordSize] != 'E') ++records;
    std::printf("%zu records\n", records);
    return records > 100 ? 0 : 1;
}
