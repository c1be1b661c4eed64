#pragma once

#include <afxwin.h>

#include <utility>
#include <vector>

// What screen readers say for controls that have no text and no label directly before them; by their ids.
using ControlNames = std::vector<std::pair<int, LPCTSTR>>;

// Without effect where the system offers no way to it.
void NameControls(const CWnd& dialog, const ControlNames& names);
