// A user's steps in the editor, which runs within the test program.
#pragma once

#include "driver/inprocess.h"
#include "support/settings.h"

// Opens the editor and checks each page and then both dialogs, under their titles.
void ForEachForm(const std::function<void(const Form&, const Text& title)>& check);

// Opens a window of that title that runs a modal loop, runs the script on it and cancels it if the script
// leaves it open. Fails the test if the window does not open within half a minute.
void WithDialog(const Text& title, const std::function<void()>& open,
                const std::function<void(const Form&)>& script);
void WithDialog(const Text& title, const Form& opener, int button,
                const std::function<void(const Form&)>& script);
// Confirms each prompt for an edit without a number during the steps, and gives their count.
int CountPrompts(const std::function<void()>& steps);

using Events = std::vector<std::string>;

// The notifications of a page's edits and buttons and the changes of its mark during the steps: "1099
// changed", "1177 clicked", "marked", "unmarked".
Events EventsOf(const Sheet& sheet, const std::function<void()>& steps);

// The title of the innermost group box around a control; empty if there is none.
Text BoxOf(HWND control);
// From now on keeps the names that the program gives its controls. Wine 8 has the service for that, but no
// names in it.
void KeepNames();
// What a screen reader says for a control: the name that the program gives, its own text, or the label before
// it.
Text NameOf(HWND control);

// The tooltip control with tools in a dialog, or null.
HWND TipControlOf(HWND dialog);
// All tooltip controls of the program, those without a tool included.
int CountTipControls();
// The ids of the controls with a tip, in the order of registration.
std::vector<int> TipsOf(HWND dialog);
Text TipText(HWND dialog, int id);
