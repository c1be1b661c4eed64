// A dialog's controls by their ids.
#include <string>

#include "tchar.h"
#include "window.h"

using namespace headless;

HWND WINAPI GetDlgItem(HWND dialog, int id)
{
    const Window* found = Resolve(dialog);
    if (found == nullptr)
    {
        return nullptr;
    }
    for (HWND child : found->children)
    {
        if (static_cast<int>(Find(child)->id) == id)
        {
            return child;
        }
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int WINAPI GetDlgCtrlID(HWND window)
{
    const Window* found = Resolve(window);
    return found == nullptr ? 0 : static_cast<int>(found->id);
}

LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND control = GetDlgItem(dialog, id);
    return control == nullptr ? 0 : Send(control, message, wParam, lParam);
}

BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text)
{
    return SetWindowTextW(GetDlgItem(dialog, id), text);
}

UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int size)
{
    return static_cast<UINT>(GetWindowTextW(GetDlgItem(dialog, id), text, size));
}
