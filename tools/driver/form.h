// Reads the editor's windows, and clicks and types in them as a user does. The windows can belong to another
// process unless a comment says otherwise, because only messages that Windows passes between processes are
// used.
#pragma once

#include <tchar.h>
#include <windows.h>

#include <string>
#include <vector>

using Text = std::basic_string<TCHAR>;

inline constexpr TCHAR SheetTitle[] = _T("Quorvex Bench Settings");
inline constexpr TCHAR ErrorTitle[] = _T("QB Settings Error");

// Replaces each character other than ASCII by "?".
std::string Printable(const Text& text);
// Prints the message and ends this program with code 1.
[[noreturn]] void EndProgram(const std::string& message);

bool IsOf(HWND window, LPCTSTR className);
// In screen coordinates.
RECT PlaceOf(HWND window);
bool Contains(const RECT& outer, const RECT& inner);
// The BS_ type, or -1 if the window is not a button.
LONG ButtonTypeOf(HWND window);
// The children in their z-order.
std::vector<HWND> ControlsOf(HWND dialog);
// The visible top-level windows of a thread, from front to back.
std::vector<HWND> WindowsOf(DWORD thread);

// A dialog. Its controls are named by their ids. A missing control ends this program with code 1.
class Form
{
public:
    explicit Form(HWND window) : m_window(window) {}
    virtual ~Form() = default;

    HWND Window() const { return m_window; }
    // The parent of the controls.
    virtual HWND Page() const { return m_window; }
    HWND Control(int id) const;

    Text Title() const;
    Text TextOf(int id) const { return Form(Control(id)).Title(); }
    bool IsEnabled(int id) const { return IsWindowEnabled(Control(id)) != FALSE; }
    // The control's own style, which does not depend on whether its page is in front.
    bool IsShown(int id) const { return (GetWindowLongW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0; }
    // The BST_ value.
    LRESULT CheckOf(int id) const;
    // The selected item of a list box or combo box, or -1 if none is selected.
    LRESULT SelectionOf(int id) const;
    std::vector<Text> ItemsOf(int id) const;

    // Returns when the program has handled the click. Does nothing to a disabled control.
    void Click(int id) const;
    // Returns at once. For a button of another program that opens or closes a dialog.
    void ClickToOpen(int id) const { PostMessageW(Control(id), BM_CLICK, 0, 0); }
    // Sets the focus, in this program only, and types at the caret. '\b' is Backspace.
    void Type(int id, const Text& keys) const;
    // Types in front of the text.
    void TypeInFront(int id, const Text& keys) const;
    // Types over the whole text. Without keys, deletes it by Backspace, which is a single change.
    void Retype(int id, const Text& keys) const;
    // Sets any text, as pasting does. The parent gets the same notifications as for typing.
    void SetText(int id, const Text& text) const;
    // Selects an item of a list box or combo box, with the notification of a user's selection.
    void Pick(int id, int item) const;

private:
    HWND m_window;
};

// The sheet. The controls are those of the page in front.
class Sheet : public Form
{
public:
    using Form::Form;

    HWND Page() const override;
    // False after OK, Cancel or the title bar has closed the sheet. The window is destroyed a little later.
    bool IsOpen() const { return IsWindow(Window()) && Page() != nullptr; }
    int PageCount() const;
    // The titles on the tabs, in this program only.
    std::vector<Text> Tabs() const;

    // Opens the page with this index. Returns false if the sheet did not open it.
    bool SelectIndex(int index) const;
    // Opens the page with this title, in this program only. Returns false if the sheet did not, or has no
    // such page.
    bool Select(const Text& title) const;
    // Opens each page in the order of the tabs, and returns the titles.
    std::vector<Text> OpenAll() const;

    HWND ApplyButton() const { return GetDlgItem(Window(), IdApply); }
    bool CanApply() const { return IsWindowEnabled(ApplyButton()) != FALSE; }
    void Apply() const { Press(ApplyButton()); }
    void Ok() const { Press(GetDlgItem(Window(), IDOK)); }
    void Cancel() const { Press(GetDlgItem(Window(), IDCANCEL)); }

private:
    static constexpr int IdApply = 0x3021;  // the common control's id for Apply

    static void Press(HWND button);
};
