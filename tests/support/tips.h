#pragma once

#include "support/registry.h"

// The tooltip control that has tools on a dialog's controls, or null.
HWND TipControlOf(HWND dialog);
// All tooltip controls of the program, those without a tool included.
int CountTipControls();
// The texts of its tools, by the ids of the controls they are on; empty if there is no tooltip control.
std::map<int, Text> TipsOf(HWND dialog);
