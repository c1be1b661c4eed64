#include "support/tips.h"

#include <windows.h>

#include <commctrl.h>

namespace
{
struct Search
{
    HWND dialog;
    HWND found;
};

bool IsTipControl(HWND window)
{
    TCHAR name[32] = {};
    GetClassNameW(window, name, 32);
    return _tcscmp(name, TOOLTIPS_CLASSW) == 0;
}

// Which dialog a tooltip control serves shows in its tools: their windows' parent.
BOOL CALLBACK LookForDialog(HWND window, LPARAM parameter)
{
    auto* search = reinterpret_cast<Search*>(parameter);
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof(tool);
    if (!IsTipControl(window) || !SendMessageW(window, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool)) ||
        tool.hwnd != search->dialog)
    {
        return TRUE;
    }
    search->found = window;
    return FALSE;
}

BOOL CALLBACK CountIfTipControl(HWND window, LPARAM count)
{
    *reinterpret_cast<int*>(count) += IsTipControl(window) ? 1 : 0;
    return TRUE;
}
}  // namespace

HWND TipControlOf(HWND dialog)
{
    Search search = {dialog, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), LookForDialog, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

int CountTipControls()
{
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountIfTipControl, reinterpret_cast<LPARAM>(&count));
    return count;
}

std::map<int, Text> TipsOf(HWND dialog)
{
    std::map<int, Text> tips;
    const HWND control = TipControlOf(dialog);
    const LRESULT count = control == nullptr ? 0 : SendMessageW(control, TTM_GETTOOLCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index)
    {
        TTTOOLINFOW tool = {};
        tool.cbSize = sizeof(tool);
        SendMessageW(control, TTM_ENUMTOOLSW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&tool));
        TCHAR text[1024] = {};
        tool.lpszText = text;
        SendMessageW(control, TTM_GETTEXTW, 1024, reinterpret_cast<LPARAM>(&tool));
        // A tool that is not its window shows its tip nowhere: none here has a rectangle.
        if ((tool.uFlags & TTF_IDISHWND) != 0)
        {
            tips[GetDlgCtrlID(reinterpret_cast<HWND>(tool.uId))] = text;
        }
    }
    return tips;
}
