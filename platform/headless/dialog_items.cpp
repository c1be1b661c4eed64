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

BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned)
{
    TCHAR text[16] = {};
    _stprintf(text, 16, isSigned ? _T("%d") : _T("%u"), value);
    return SetDlgItemTextW(dialog, id, text);
}

UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned)
{
    constexpr int size = 32;
    TCHAR text[size] = {};
    GetDlgItemTextW(dialog, id, text, size);
    LPCTSTR digits = text + _tcsspn(text, _T(" \t"));
    const bool negative = isSigned && *digits == _T('-');
    digits += negative ? 1 : 0;
    const std::size_t count = _tcsspn(digits, _T("0123456789"));
    const ULONG limit = !isSigned ? 0xFFFFFFFF : negative ? 0x80000000 : 0x7FFFFFFF;
    const ULONG value = _tcstoul(digits, nullptr, 10);
    const bool overflow = value > limit || count > 10 || (count == 10 && value < 1000000000);
    const bool good = count > 0 && !overflow && digits[count] == 0;
    if (translated != nullptr)
    {
        *translated = good;
    }
    return !good ? 0 : negative ? 0 - value : value;
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check)
{
    const HWND control = GetDlgItem(dialog, id);
    Send(control, BM_SETCHECK, check);
    return control != nullptr;
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check)
{
    const Window* found = Resolve(dialog);
    if (found == nullptr)
    {
        return FALSE;
    }
    const std::vector<HWND> children = found->children;
    for (HWND child : children)
    {
        const int id = GetDlgCtrlID(child);
        if (id >= first && id <= last)
        {
            Send(child, BM_SETCHECK, id == check ? BST_CHECKED : BST_UNCHECKED);
        }
    }
    return TRUE;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id)
{
    return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI GetComboBoxInfo(HWND combo, PCOMBOBOXINFO info)
{
    return Send(combo, CB_GETCOMBOBOXINFO, 0, ToParam(info)) != 0;
}
