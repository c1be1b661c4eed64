// The real program as a user has it: started as a process of its own, looked at and acted on by messages.
// Only messages that Windows carries from one process to another are used.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

inline constexpr wchar_t SheetTitle[] = L"Quorvex Bench Settings";

// A dialog of the program. Operations on a control that is not there do nothing and give nothing.
class EditorDialog
{
public:
    EditorDialog() = default;
    explicit EditorDialog(HWND window) : m_window(window) {}
    virtual ~EditorDialog() = default;

    HWND Window() const { return m_window; }
    std::wstring Title() const;
    virtual HWND Control(int id) const;
    std::wstring TextOf(int id) const;
    bool IsEnabled(int id) const;
    bool IsChecked(int id) const;
    // The selected item of a list box, -1 for none.
    int SelectionOf(int id) const;

    // Returns when the program has dealt with it.
    void Click(int id) const;
    // For a button that opens a dialog: returns at once.
    void ClickToOpen(int id) const;
    // Types over all that stands in the edit.
    void Retype(int id, const std::wstring& keys) const;
    // Moves a list box's selection by that many arrow keys, down or (below 0) up.
    void MoveSelection(int id, int steps) const;
    // Whether the window is gone, waiting for that some seconds.
    bool WaitUntilGone() const;

private:
    HWND m_window = nullptr;
};

// The sheet. Controls are those of the page in front.
class EditorSheet : public EditorDialog
{
public:
    using EditorDialog::EditorDialog;

    HWND Page() const;
    HWND Control(int id) const override;
    int PageCount() const;
    // Opens the page with this number from 0; false if the sheet did not go there.
    bool SelectIndex(int index) const;
    // Opens the page of that dialog template; false if there is none, or the sheet did not go there.
    bool Select(int dialogId) const;
    // Whether the page of that dialog template is in front.
    bool Shows(int dialogId) const;
    // Opens every page and gives their titles, in the tabs' order.
    std::vector<std::wstring> OpenAll() const;

    HWND ApplyButton() const;
    bool CanApply() const { return IsWindowEnabled(ApplyButton()); }
    void Apply() const;
    // Whether the sheet has closed.
    bool Ok() const;
    bool Cancel() const;
};

class EditorProcess
{
public:
    // Starts the program of that name beside this one.
    explicit EditorProcess(const std::wstring& arguments = {},
                           const std::wstring& program = L"QBSettings.exe");
    EditorProcess(const EditorProcess&) = delete;
    EditorProcess& operator=(const EditorProcess&) = delete;
    // Ends the program the hard way, if it still runs.
    ~EditorProcess();

    static std::wstring Path(const std::wstring& program = L"QBSettings.exe");

    DWORD Id() const { return m_process.dwProcessId; }
    bool Runs() const;
    // Whether the program has ended with 0, waiting for that some seconds.
    bool WaitForEnd() const;
    // The titles of its visible top-level windows.
    std::vector<std::wstring> Windows() const;
    // Its visible top-level window of that title, waiting for that some seconds.
    HWND WaitForWindow(const std::wstring& title) const;
    // The visible top-level window that stands beside a given one: a dialog of the sheet, say. Waits
    // likewise.
    HWND WaitForWindowBeside(HWND other) const;
    // The sheet, with its first page up.
    EditorSheet WaitForSheet() const;

private:
    HWND WaitForWindowThat(const std::function<bool(HWND)>& isWanted) const;

    PROCESS_INFORMATION m_process = {};
};
