// INorvel_OvalineCtrl: the control's boundary to its host.
#pragma once

#include "geometry/enumerations.h"
#include "output/enumerations.h"
#include "platform/com.h"
#include "text/enumerations.h"

namespace ovaline {

/// The dual dispatch interface, slots in published order. Lengths are in the host's unit (millimetres, or inches while
/// `Measurement` is nonzero), angles in degrees counter-clockwise on the screen from three o'clock.
struct INorvel_OvalineCtrl : IDispatch {
#define PROPERTY(id, name, type)                                   \
    virtual HRESULT STDMETHODCALLTYPE get_##name(type* value) = 0; \
    virtual HRESULT STDMETHODCALLTYPE put_##name(type value) = 0;
#define METHOD(id, name, parameters, names, out) virtual HRESULT STDMETHODCALLTYPE name parameters = 0;
#define TABLE_PROPERTY(name, type)
#include "control/interface/members.inc"
#undef PROPERTY
#undef METHOD
#undef TABLE_PROPERTY
};

/// The same table of operations with the three accessor pairs that follow it and that no type library describes. Every
/// control has them; a host that wants them declares this table.
struct INorvel_OvalineCtrlTable : INorvel_OvalineCtrl {
#define PROPERTY(id, name, type)
#define METHOD(id, name, parameters, names, out)
#define TABLE_PROPERTY(name, type)                                 \
    virtual HRESULT STDMETHODCALLTYPE get_##name(type* value) = 0; \
    virtual HRESULT STDMETHODCALLTYPE put_##name(type value) = 0;
#include "control/interface/members.inc"
#undef PROPERTY
#undef METHOD
#undef TABLE_PROPERTY
};

inline constexpr IID IID_INorvel_OvalineCtrl{
    0x6F0E2C41, 0x9B7D, 0x4E53, {0xA1, 0x64, 0x3C, 0x58, 0xD2, 0x90, 0x7E, 0x11}};
inline constexpr CLSID CLSID_Norvel_OvalineCtrl{
    0x6F0E2C44, 0x9B7D, 0x4E53, {0xA1, 0x64, 0x3C, 0x58, 0xD2, 0x90, 0x7E, 0x11}};

}  // namespace ovaline
