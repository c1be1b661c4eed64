// A user's steps in the editor, which runs within the test program.
#pragma once

#include "support/settings.h"

#include <functional>

// Runs the program's InitInstance until its sheet, or its error box, waits for the user; the test then goes
// on. The end of the scope cancels what is still open and returns from InitInstance. Fails the test if
// nothing opens within half a minute. There is one at a time.
class Editor : public Sheet
{
public:
    // With the page of that tab in front.
    explicit Editor(const Text& tab = {});
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;
    ~Editor() override;

    // False if the error box is open.
    bool HasSheet() const { return Title() == SheetTitle; }
};

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
