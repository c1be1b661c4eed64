// The window classes that exist before a program registers any. Each function registers its own; both run
// once, before the first window is made.
#pragma once

namespace headless
{
// BUTTON, STATIC, EDIT, LISTBOX, COMBOBOX.
void RegisterStandardControls();
// What InitCommonControlsEx would.
void RegisterCommonControls();
}  // namespace headless
