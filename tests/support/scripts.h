// Steps of a user in the editor, which runs inside the test program.
#pragma once

#include "driver/inprocess.h"
#include "support/settings.h"

// Opens the editor and calls the check for each page and then for both dialogs, with their titles.
void ForEachForm(const std::function<void(const Form&, const Text& title)>& check);

// Calls `open`, which must open a modal window of that title, runs the script on the window, and cancels it
// if it is still open. Fails the test if the window does not open within half a minute.
void WithDialog(const Text& title, const std::function<void()>& open,
                const std::function<void(const Form&)>& script);
void WithDialog(const Text& title, const Form& opener, int button,
                const std::function<void(const Form&)>& script);
// Expects these controls to be enabled, or disabled.
void ExpectEnabled(const Form& form, const std::vector<int>& ids, bool enabled);
// Confirms each prompt for an edit without a number during the steps. Returns the number of prompts.
int CountPrompts(const std::function<void()>& steps);

using Events = std::vector<std::string>;

// The notifications of a page's edits and buttons, and the changes of its mark, during the steps: "1099
// changed", "1177 clicked", "marked", "unmarked".
Events EventsOf(const Sheet& sheet, const std::function<void()>& steps);

// The title of the innermost group box around a control; empty if there is none.
Text BoxOf(HWND control);
// From now on records the names that the program gives its controls. Wine 8 has the service for that, but its
// methods do nothing.
void KeepNames();
// The name that a screen reader announces for a control: the name that the program gives it, its own text, or
// the text of the label before it.
Text NameOf(HWND control);

// The tooltip control that has tools in the dialog, or null.
HWND TipControlOf(HWND dialog);
// The ids of the controls with a tip and the tips, in the order of registration.
std::vector<std::pair<int, Text>> TipsOf(HWND dialog);
