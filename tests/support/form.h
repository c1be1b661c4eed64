// The editor's windows as a user has them: what stands in a control, and clicks and keys.
#pragma once

#include "support/registry.h"

#include <windows.h>

#include <functional>
#include <vector>

// A dialog on the screen.
class Form
{
public:
    explicit Form(HWND window) : m_window(window) {}
    virtual ~Form() = default;

    HWND Window() const { return m_window; }
    // The control of this id; fails the test if there is none.
    virtual HWND Control(int id) const;

    Text Title() const;
    Text TextOf(int id) const;
    bool IsEnabled(int id) const;
    // Visible where its dialog is: a page that is not in front has visible controls too.
    bool IsShown(int id) const;
    // BST_ value.
    LRESULT CheckOf(int id) const;
    // The selected item of a list box or combo box, -1 for none.
    LRESULT SelectionOf(int id) const;
    std::vector<Text> ItemsOf(int id) const;

    // Does nothing to a disabled control, as a user's click.
    void Click(int id) const;
    // Puts the focus on the control and types at its caret; '\b' is Backspace.
    void Type(int id, const Text& keys) const;
    // Types before all that stands in the edit.
    void TypeInFront(int id, const Text& keys) const;
    // Types over all that stands in the edit.
    void Retype(int id, const Text& keys) const;
    // Pastes over all that stands in the edit, from the clipboard by Ctrl+V.
    void Paste(int id, const Text& text) const;
    // Presses Delete with all text selected: one change, to nothing.
    void Empty(int id) const;
    // Picks an item of a list box or combo box, which a user does by key or mouse.
    void Pick(int id, int item) const;

private:
    HWND m_window;
};

// The sheet. Controls are those of the page in front.
class Sheet : public Form
{
public:
    using Form::Form;

    HWND Control(int id) const override;
    HWND Page() const;
    // False once OK, Cancel or the title bar has closed it: the window itself goes a little later.
    bool IsOpen() const { return IsWindow(Window()) && Page() != nullptr; }
    std::vector<Text> Tabs() const;
    // Goes to the tab of that title; false if the sheet did not.
    bool Select(const Text& title) const;

    bool CanApply() const;
    void Apply() const;
    void Ok() const;
    void Cancel() const;
};

// Presses Tab in the control that has the focus, and gives the id of the one that has it then.
int PressTab(const Form& form);
// Puts the focus on the first of the controls and checks that Tab goes on to the others in turn.
void ExpectTabOrder(const Form& form, const std::vector<int>& ids);

// Runs the program's InitInstance and, once the sheet is up and waits for the user, the script; afterwards a
// sheet that still stands is cancelled. Fails the test if no sheet appears.
void RunEditor(const std::function<void(Sheet&)>& script);
// The same with the page of that tab in front.
void RunOnTab(const Text& tab, const std::function<void(Sheet&)>& script);
// As RunEditor, where there may be no sheet but the program's error box, which is confirmed; tells whether it
// was the sheet.
bool TryRunEditor(const std::function<void(Sheet&)>& script);

// Runs the script once a visible window of this title stands beside those of the moment, in whatever modal
// loop waits then. To be called before the step that opens it. Fails the test if none comes within some
// seconds; a dialog that the script leaves open is cancelled.
void WhenOpened(const Text& title, const std::function<void(Form&)>& script);
// The same for the class library's prompt on an edit that holds no number: it is confirmed. The counter, if
// any, counts it.
void ExpectPrompt(int* count = nullptr);
// Ends a test's waits that did not come to anything; each fails the test.
void EndWaits();
