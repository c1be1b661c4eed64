#pragma once

#include "support/names.h"

#include <vector>

// The tooltip control that has tools on a dialog's controls, or null.
HWND TipControlOf(HWND dialog);
// All tooltip controls of the program, those without a tool included.
int CountTipControls();
// The ids of the controls that have a tip, in the order in which they got it.
std::vector<int> TipsOf(HWND dialog);
// What a tip says.
Text TipText(HWND dialog, int id);
