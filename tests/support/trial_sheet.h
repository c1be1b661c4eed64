// A property sheet of three small pages that do what a test tells them and note what they are told.
#pragma once

#include "support/names.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

using Events = std::vector<std::string>;

class TrialSheet
{
public:
    static constexpr int IdFirstEdit = 100;
    static constexpr int IdSecondEdit = 101;
    static constexpr int IdTabControl = 0x3020;

    struct Page
    {
        HWND window = nullptr;                 // null before it is created and once it is destroyed
        std::map<UINT, LONG_PTR> answers;      // DWLP_MSGRESULT by notification code
        std::function<void(UINT)> onReceived;  // gets the notification's code, or WM_INITDIALOG
        PROPSHEETPAGEW record = {};
        std::vector<WORD> dialogTemplate;
        TrialSheet* sheet = nullptr;
    };

    TrialSheet();
    ~TrialSheet();
    TrialSheet(const TrialSheet&) = delete;
    TrialSheet& operator=(const TrialSheet&) = delete;

    void Open(UINT startPage = 0, DWORD flags = PSH_MODELESS);
    // Gives what PropertySheetW does. The step runs once the sheet waits for the user.
    INT_PTR RunModal(HWND owner, const std::function<void()>& step);
    void Close();

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // False if the sheet did not go there.
    bool Select(int index) const { return Send(PSM_SETCURSEL, static_cast<WPARAM>(index)) != 0; }
    void Mark(int index, bool marked = true) const;
    // A key goes down, in the control that has the focus, on its way through the sheet's dialog keys.
    bool Press(WPARAM key, bool control = false, bool shift = false) const;

    // The page in front, -1 for none.
    int Current() const;
    bool CanApply() const { return IsWindowEnabled(GetDlgItem(window, IdApply)) != FALSE; }
    HWND Tabs() const { return reinterpret_cast<HWND>(Send(PSM_GETTABCONTROL)); }
    // What the pages were told since the last call: "0 setactive".
    Events Take();

    HWND window = nullptr;
    std::array<Page, 3> pages;
    bool noteShowing = false;  // whether "0 show" and "0 hide" are noted too

private:
    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    static UINT CALLBACK PageCallback(HWND, UINT message, PROPSHEETPAGEW* record);
    void Note(const Page& page, const std::string& what);
    INT_PTR Run(PROPSHEETHEADERW& header);

    Events m_events;
};
