// The editor's windows as a user has them: what stands in a control, and clicks and keys. In this program or
// in another process, except where it says otherwise: only messages that Windows carries from one to the
// other are used.
#pragma once

#include <tchar.h>
#include <windows.h>

#include <string>
#include <vector>

using Text = std::basic_string<TCHAR>;

inline constexpr TCHAR SheetTitle[] = _T("Quorvex Bench Settings");
inline constexpr TCHAR ErrorTitle[] = _T("QB Settings Error");

// With "?" for each character beyond ASCII.
std::string Printable(const Text& text);
// Prints the message, and ends this program with 1.
[[noreturn]] void EndProgram(const std::string& message);

bool IsOf(HWND window, LPCTSTR className);
// On the screen.
RECT PlaceOf(HWND window);
bool Contains(const RECT& outer, const RECT& inner);
// BS_ type, or -1 for any window but a button.
LONG ButtonTypeOf(HWND window);
// The children in their order.
std::vector<HWND> ControlsOf(HWND dialog);
// The visible top-level windows of a thread, from the one in front.
std::vector<HWND> WindowsOf(DWORD thread);

// A dialog. Controls are named by their ids; to ask for one that is not there ends this program with 1.
class Form
{
public:
    explicit Form(HWND window) : m_window(window) {}
    virtual ~Form() = default;

    HWND Window() const { return m_window; }
    // The window whose children the controls are.
    virtual HWND Page() const { return m_window; }
    HWND Control(int id) const;

    Text Title() const;
    Text TextOf(int id) const { return Form(Control(id)).Title(); }
    bool IsEnabled(int id) const { return IsWindowEnabled(Control(id)) != FALSE; }
    // Visible where its dialog is: a page that is not in front has visible controls too.
    bool IsShown(int id) const { return (GetWindowLongW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0; }
    // BST_ value.
    LRESULT CheckOf(int id) const;
    // The selected item of a list box or combo box, -1 for none.
    LRESULT SelectionOf(int id) const;
    std::vector<Text> ItemsOf(int id) const;

    // Returns when the program has dealt with it. Does nothing to a disabled control, as a user's click.
    void Click(int id) const;
    // For a button of another program that opens or closes a dialog: returns at once.
    void ClickToOpen(int id) const { PostMessageW(Control(id), BM_CLICK, 0, 0); }
    // Puts the focus on the control, in this program, and types at its caret; '\b' is Backspace.
    void Type(int id, const Text& keys) const;
    // Types before all that stands in the edit.
    void TypeInFront(int id, const Text& keys) const;
    // Types over all that stands in the edit; no keys are Backspace, one change to nothing.
    void Retype(int id, const Text& keys) const;
    // As pasting does: any text, told like typing.
    void SetText(int id, const Text& text) const;
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

    HWND Page() const override;
    // False once OK, Cancel or the title bar has closed it: the window itself goes a little later.
    bool IsOpen() const { return IsWindow(Window()) && Page() != nullptr; }
    int PageCount() const;
    // What the tabs say; in this program only.
    std::vector<Text> Tabs() const;

    // Opens the page with this number from 0; false if the sheet did not go there.
    bool SelectIndex(int index) const;
    // Goes to the tab of that title, in this program only; false if the sheet did not, or has none.
    bool Select(const Text& title) const;
    // Opens every page and gives their titles, in the tabs' order.
    std::vector<Text> OpenAll() const;

    HWND ApplyButton() const { return GetDlgItem(Window(), IdApply); }
    bool CanApply() const { return IsWindowEnabled(ApplyButton()) != FALSE; }
    void Apply() const { Press(ApplyButton()); }
    void Ok() const { Press(GetDlgItem(Window(), IDOK)); }
    void Cancel() const { Press(GetDlgItem(Window(), IDCANCEL)); }

private:
    static constexpr int IdApply = 0x3021;  // what the common control numbers its Apply button

    static void Press(HWND button);
};
