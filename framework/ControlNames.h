#pragma once

#include <afxwin.h>

#include <oleacc.h>

#include <utility>
#include <vector>

// CLSID_AccPropServices and IID_IAccPropServices, which not every library of ids has.
inline constexpr CLSID AccPropServicesClass = {
    0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
inline constexpr IID AccPropServicesInterface = {
    0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};

// What screen readers say for controls that have no text and no label directly before them; by their ids.
using ControlNames = std::vector<std::pair<int, LPCTSTR>>;

// They go with the dialog's window. Without effect where the system offers no way to it.
void NameControls(const CWnd& dialog, const ControlNames& names);
