#include "host/control_reader.h"

#include "host/buffers.h"
#include "host/control_host.h"
#include "host/json_values.h"

namespace ovaline::host {

std::u16string readText(INorvel_OvalineCtrlTable& control, HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*get)(BSTR*),
                        const char* name) {
    Arguments held(1);
    held[0].vt = VT_BSTR;
    require((control.*get)(&held[0].bstrVal), std::string("getting ") + name);
    return platform::textOf(held[0].bstrVal);
}

bool isStaticText(INorvel_OvalineCtrlTable& control) {
    INT type = 0;
    require(control.GetArrayType(&type), "GetArrayType");
    return type == 1;
}

ResultSize readResultSize(INorvel_OvalineCtrlTable& control) {
    LONG sides[4] = {};
    const NestedReference left(&sides[0], VT_I4), top(&sides[1], VT_I4), right(&sides[2], VT_I4),
        bottom(&sides[3], VT_I4);
    require(control.GetResultSize(left.outer(), top.outer(), right.outer(), bottom.outer()), "GetResultSize");
    return {sides[2], sides[3]};
}

}  // namespace ovaline::host
