// What a dialog does with messages: asks its dialog procedure, then keeps focus and default button in order.
#include "window.h"

namespace headless
{
namespace
{
LRESULT DialogCode(HWND control)
{
    return Send(control, WM_GETDLGCODE);
}

void SetButtonLook(HWND button, int from, int to)
{
    const Window* found = Find(button);
    if (found != nullptr && static_cast<int>(found->style & BS_TYPEMASK) == from)
    {
        Send(button, BM_SETSTYLE, static_cast<WPARAM>(to), TRUE);
    }
}

bool IsPushButton(HWND control)
{
    return (DialogCode(control) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

// Every descendant, containers of controls opened.
std::vector<HWND> AllControls(HWND dialog)
{
    std::vector<HWND> controls;
    if (const Window* found = Find(dialog))
    {
        for (HWND child : found->children)
        {
            controls.push_back(child);
            if ((Find(child)->exStyle & WS_EX_CONTROLPARENT) != 0)
            {
                const std::vector<HWND> inner = AllControls(child);
                controls.insert(controls.end(), inner.begin(), inner.end());
            }
        }
    }
    return controls;
}

void SaveFocus(HWND window)
{
    const HWND focus = GetFocus();
    Dialog* state = FindDialog(window);
    if (state != nullptr && focus != nullptr && IsChild(window, focus))
    {
        state->savedFocus = focus;
    }
}

void RestoreFocus(HWND window)
{
    Dialog* state = FindDialog(window);
    if (state == nullptr || state->ended || IsIconic(window))
    {
        return;
    }
    HWND control = state->savedFocus;
    state->savedFocus = nullptr;
    if (Find(control) == nullptr || !IsChild(window, control))
    {
        control = GetNextDlgTabItem(window, nullptr, FALSE);
    }
    SetFocus(control != nullptr ? control : window);
}

LRESULT GetDefault(HWND window)
{
    const Dialog* state = FindDialog(window);
    if (state == nullptr || state->ended)
    {
        return 0;
    }
    if (state->defaultId != 0)
    {
        return MAKELRESULT(state->defaultId, DC_HASDEFID);
    }
    for (HWND control : AllControls(window))
    {
        if ((DialogCode(control) & DLGC_DEFPUSHBUTTON) != 0)
        {
            return MAKELRESULT(GetDlgCtrlID(control), DC_HASDEFID);
        }
    }
    return 0;
}

LRESULT SetDefault(HWND window, int id)
{
    Dialog* state = FindDialog(window);
    if (state == nullptr || state->ended)
    {
        return TRUE;
    }
    const int previous = state->defaultId;
    state->defaultId = id;
    if (previous != id)
    {
        SetButtonLook(GetDlgItem(window, previous), BS_DEFPUSHBUTTON, BS_PUSHBUTTON);
    }
    SetButtonLook(GetDlgItem(window, id), BS_PUSHBUTTON, BS_DEFPUSHBUTTON);
    return TRUE;
}

void NextControl(HWND window, WPARAM wParam, bool isHandle)
{
    const Dialog* state = FindDialog(window);
    if (state != nullptr && state->ended)
    {
        return;
    }
    HWND next = nullptr;
    if (isHandle)
    {
        next = ToWindow(wParam);
    }
    else
    {
        const HWND focus = GetFocus();
        next = GetNextDlgTabItem(window, focus != nullptr && IsChild(window, focus) ? focus : nullptr,
                                 wParam != 0);
    }
    if (next != nullptr)
    {
        SetDialogFocus(next);
        MoveDefaultLook(window, GetFocus());
    }
}

void Close(HWND window)
{
    const HWND cancel = GetDlgItem(window, IDCANCEL);
    if (cancel != nullptr && !IsWindowEnabled(cancel))
    {
        MessageBeep(0);
        return;
    }
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), ToParam(cancel));
}

void Forget(HWND window)
{
    Window* found = Find(window);
    if (found != nullptr && found->dialog != nullptr)
    {
        DeleteObject(found->dialog->font);
        found->dialog.reset();
    }
}

LRESULT DefaultDialog(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_SHOWWINDOW:
        if (wParam == 0)
        {
            SaveFocus(window);
        }
        break;
    case WM_ACTIVATE:
        LOWORD(wParam) == WA_INACTIVE ? SaveFocus(window) : RestoreFocus(window);
        return 0;
    case WM_SETFOCUS:
        RestoreFocus(window);
        return 0;
    case DM_GETDEFID:
        return GetDefault(window);
    case DM_SETDEFID:
        return SetDefault(window, static_cast<int>(wParam));
    case WM_NEXTDLGCTL:
        NextControl(window, wParam, LOWORD(lParam) != 0);
        return 0;
    case WM_GETFONT:
    {
        const Dialog* state = FindDialog(window);
        return state == nullptr ? 0 : ToParam(state->font);
    }
    case WM_CLOSE:
        Close(window);
        return 0;
    case WM_INITDIALOG:
        return 0;
    case WM_NCDESTROY:
        Forget(window);
        break;
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Messages whose answer is what the dialog procedure returns, not what it stored.
bool AnswersDirectly(UINT message)
{
    switch (message)
    {
    case WM_INITDIALOG:
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
        return true;
    default:
        return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
    }
}
}  // namespace

void SetDialogFocus(HWND control)
{
    if ((DialogCode(control) & DLGC_HASSETSEL) != 0)
    {
        Send(control, EM_SETSEL, 0, -1);
    }
    SetFocus(control);
}

void MoveDefaultLook(HWND dialog, HWND newFocus)
{
    const bool onButton = Find(newFocus) != nullptr && IsPushButton(newFocus);
    const HWND wanted = onButton ? newFocus : GetDlgItem(dialog, LOWORD(Send(dialog, DM_GETDEFID)));
    if (wanted == nullptr)
    {
        return;
    }
    for (HWND control : AllControls(dialog))
    {
        if (control != wanted && (DialogCode(control) & DLGC_DEFPUSHBUTTON) != 0)
        {
            SetButtonLook(control, BS_DEFPUSHBUTTON, BS_PUSHBUTTON);
        }
    }
    SetButtonLook(wanted, BS_PUSHBUTTON, BS_DEFPUSHBUTTON);
}
}  // namespace headless

using namespace headless;

LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (Find(dialog) == nullptr)
    {
        return 0;
    }
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 0);
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrW(dialog, DWLP_DLGPROC));
    const INT_PTR handled = procedure == nullptr ? 0 : procedure(dialog, message, wParam, lParam);
    if (handled == 0)
    {
        return DefaultDialog(dialog, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY)
    {
        Forget(dialog);
    }
    if (AnswersDirectly(message))
    {
        return handled;
    }
    return Find(dialog) == nullptr ? 0 : GetWindowLongPtrW(dialog, DWLP_MSGRESULT);
}
