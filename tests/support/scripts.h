// Scripts of a user's steps in the editor, run within the test program while the editor waits for them.
#pragma once

#include "support/settings.h"

#include <functional>

// Runs the program's InitInstance and, once the sheet is up and waits for the user, the script; afterwards a
// sheet that still stands is cancelled. Fails the test if no sheet appears within half a minute.
void RunEditor(const std::function<void(Sheet&)>& script);
// The same with the page of that tab in front.
void RunOnTab(const Text& tab, const std::function<void(Sheet&)>& script);
// As RunEditor, where there may be no sheet but the program's error box, which is confirmed; tells whether it
// was the sheet.
bool TryRunEditor(const std::function<void(Sheet&)>& script);

// Opens the editor and runs the check on each page and then on both dialogs, under their tabs and
// titles.
void ForEachForm(const std::function<void(const Form&, const Text& name)>& check);

// Does what opens a window of that title and waits in a modal loop of its own; the script is run once the
// window is there, and a dialog that it leaves open is cancelled. Fails the test if none comes within half a
// minute.
void WithDialog(const Text& title, const std::function<void()>& open,
                const std::function<void(const Form&)>& script);
// The same, opened by a button.
void WithDialog(const Text& title, const Form& opener, int button,
                const std::function<void(const Form&)>& script);
// The class library's prompts on edits that hold no number, while the steps run: each is looked at and
// confirmed. Gives their count.
int CountPrompts(const std::function<void()>& steps);

using Events = std::vector<std::string>;

// What a page is told by its edits and buttons and tells its sheet of its mark while the steps run, in order:
// "1099 changed", "1177 clicked", "marked", "unmarked".
Events EventsOf(const Sheet& sheet, const std::function<void()>& steps);

// The tooltip control that has tools on a dialog's controls, or null.
HWND TipControlOf(HWND dialog);
// All tooltip controls of the program, those without a tool included.
int CountTipControls();
// The ids of the controls that have a tip, in the order in which they got it.
std::vector<int> TipsOf(HWND dialog);
// What a tip says.
Text TipText(HWND dialog, int id);
