// The fixed identities of the module, beside those of the control and its interface: they are in hosts' files and
// registries and never change.
#pragma once

#include <string_view>

#include "control/interface/norvel_ovaline_ctrl.h"

namespace ovaline {

inline constexpr GUID LIBID_Norvel_OvalineLib{
    0x6F0E2C40, 0x9B7D, 0x4E53, {0xA1, 0x64, 0x3C, 0x58, 0xD2, 0x90, 0x7E, 0x11}};
/// The event interface. It declares no events.
inline constexpr IID DIID__INorvel_OvalineCtrlEvents{
    0x6F0E2C42, 0x9B7D, 0x4E53, {0xA1, 0x64, 0x3C, 0x58, 0xD2, 0x90, 0x7E, 0x11}};
inline constexpr GUID APPID_Norvel_Ovaline{
    0x6F0E2C43, 0x9B7D, 0x4E53, {0xA1, 0x64, 0x3C, 0x58, 0xD2, 0x90, 0x7E, 0x11}};
/// The text settings page.
inline constexpr CLSID CLSID_Norvel_OvalinePropPage{
    0x6F0E2C45, 0x9B7D, 0x4E53, {0xA1, 0x64, 0x3C, 0x58, 0xD2, 0x90, 0x7E, 0x11}};
/// The serial number and AutoDate page.
inline constexpr CLSID CLSID_OvalineSerialPropPage{
    0x6F0E2C46, 0x9B7D, 0x4E53, {0xA1, 0x64, 0x3C, 0x58, 0xD2, 0x90, 0x7E, 0x11}};
/// The control's property pages in the order in which a frame shows them.
inline constexpr CLSID kPropertyPages[] = {CLSID_Norvel_OvalinePropPage, CLSID_OvalineSerialPropPage};

/// The name by which hosts find the control in the registry, whatever its version.
inline constexpr std::u16string_view kControlProgId = u"Norvel_Ovaline.Norvel_OvalineCtrl";
/// Its name for people.
inline constexpr std::u16string_view kControlDescription = u"Norvel_OvalineCtrl Class";

/// The control's miscellaneous status, which the registry and the control itself tell containers.
inline constexpr DWORD kControlMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                            OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

}  // namespace ovaline
