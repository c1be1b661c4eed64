#pragma once

#include <afxwin.h>

#include <oleacc.h>

#include <utility>
#include <vector>

// CLSID_AccPropServices and IID_IAccPropServices, which some import libraries lack.
inline constexpr CLSID AccPropServicesClass = {
    0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
inline constexpr IID AccPropServicesInterface = {
    0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};

// Control ids with accessible names, which screen readers announce. For controls that have neither a text nor
// a label directly before them.
using ControlNames = std::vector<std::pair<int, LPCTSTR>>;

// Sets the names, and clears them when the dialog's window is destroyed. Does nothing if the system offers no
// accessibility service. The texts are copied.
void NameControls(const CWnd& dialog, const ControlNames& names);
