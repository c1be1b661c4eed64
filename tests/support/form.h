// The editor's windows as a user has them: what stands in a control, and clicks and keys.
#pragma once

#include "support/registry.h"

#include <functional>

// A dialog on the screen. Controls are named by their ids; one that is not there fails the test.
class Form {
public:
    explicit Form(HWND window) : m_window(window) {}
    virtual ~Form() = default;

    HWND Window() const { return m_window; }
    // The window whose children the controls are.
    virtual HWND Page() const { return m_window; }
    HWND Control(int id) const;

    Text Title() const;
    Text TextOf(int id) const;
    bool IsEnabled(int id) const { return IsWindowEnabled(Control(id)) != FALSE; }
    // Visible where its dialog is: a page that is not in front has visible controls too.
    bool IsShown(int id) const { return (GetWindowLongW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0; }
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
    // Types over all that stands in the edit; no keys are Backspace, one change to nothing.
    void Retype(int id, const Text& keys) const;
    // As pasting does: any text, told like typing.
    void SetText(int id, const Text& text) const { SetWindowTextW(Control(id), text.c_str()); }
    // Picks an item of a list box or combo box, which a user does by key or mouse.
    void Pick(int id, int item) const;

private:
    HWND m_window;
};

// The sheet. Controls are those of the page in front.
class Sheet : public Form {
public:
    using Form::Form;

    HWND Page() const override;
    // False once OK, Cancel or the title bar has closed it: the window itself goes a little later.
    bool IsOpen() const { return IsWindow(Window()) && Page() != nullptr; }
    std::vector<Text> Tabs() const;
    // Goes to the tab of that title; false if the sheet did not, or has none.
    bool Select(const Text& title) const;

    bool CanApply() const { return IsWindowEnabled(GetDlgItem(Window(), IdApply)) != FALSE; }
    void Apply() const { Press(IdApply); }
    void Ok() const { Press(IDOK); }
    void Cancel() const { Press(IDCANCEL); }

private:
    void Press(int button) const;
};

// Runs the program's InitInstance and, once the sheet is up and waits for the user, the script; afterwards a
// sheet that still stands is cancelled. Fails the test if no sheet appears.
void RunEditor(const std::function<void(Sheet&)>& script);
// The same with the page of that tab in front.
void RunOnTab(const Text& tab, const std::function<void(Sheet&)>& script);
// As RunEditor, where there may be no sheet but the program's error box, which is confirmed; tells whether it
// was the sheet.
bool TryRunEditor(const std::function<void(Sheet&)>& script);

// Does what opens a window of that title and waits in a modal loop of its own; the script is run once the window is
// there, and a dialog that it leaves open is cancelled. Fails the test if none comes within some seconds.
void WithDialog(const Text& title, const std::function<void(const Form&)>& script, const std::function<void()>& open);
// The class library's prompts on edits that hold no number, while the steps run: each is looked at and
// confirmed. Gives their count.
int CountPrompts(const std::function<void()>& steps);
