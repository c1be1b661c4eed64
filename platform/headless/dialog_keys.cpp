// The keys that move through a dialog and press its buttons.
#include <algorithm>

#include "tchar.h"
#include "window.h"

namespace headless
{
namespace
{
bool CanTakeInput(HWND control)
{
    const Window* found = Find(control);
    return found != nullptr && (found->style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

bool IsOpenContainer(HWND control)
{
    return (Find(control)->exStyle & WS_EX_CONTROLPARENT) != 0 && CanTakeInput(control);
}

// The controls in tab order, those of nested dialogs in place of these.
void AppendControls(HWND parent, std::vector<HWND>* controls)
{
    const Window* found = Find(parent);
    const std::vector<HWND> children = found == nullptr ? std::vector<HWND>() : found->children;
    for (HWND child : children)
    {
        if (IsOpenContainer(child))
        {
            AppendControls(child, controls);
        }
        else
        {
            controls->push_back(child);
        }
    }
}

// The control of the list that the window is or lies in, or null.
HWND ListedControl(const std::vector<HWND>& controls, HWND window)
{
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](HWND control) { return Contains(control, window); });
    return found == controls.end() ? nullptr : *found;
}

// The next one after `start`, around the end, that fits; with no start the first; `start` again if no other
// fits.
template <class Fits>
HWND NextInCircle(std::vector<HWND> controls, HWND start, bool previous, Fits fits)
{
    if (previous)
    {
        std::reverse(controls.begin(), controls.end());
    }
    const auto place = std::find(controls.begin(), controls.end(), start);
    if (place != controls.end())
    {
        std::rotate(controls.begin(), place + 1, controls.end());
    }
    const auto found = std::find_if(controls.begin(), controls.end(), fits);
    return found == controls.end() ? nullptr : *found;
}

// The siblings of a control that form its group.
std::vector<HWND> Group(HWND control)
{
    const Window* container = Find(GetAncestor(control, GA_PARENT));
    if (container == nullptr)
    {
        return {};
    }
    const std::vector<HWND>& siblings = container->children;
    const auto startsGroup = [](HWND sibling) { return (Find(sibling)->style & WS_GROUP) != 0; };
    auto first = std::find(siblings.begin(), siblings.end(), control);
    const auto last = std::find_if(first + 1, siblings.end(), startsGroup);
    while (first != siblings.begin() && !startsGroup(*first))
    {
        --first;
    }
    return {first, last};
}

void PressButton(HWND dialog, int id, HWND button)
{
    if (button != nullptr && !IsWindowEnabled(button))
    {
        MessageBeep(0);
        return;
    }
    Send(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), ToParam(button));
}

HWND FindControl(HWND dialog, int id)
{
    const HWND direct = GetDlgItem(dialog, id);
    if (direct != nullptr)
    {
        return direct;
    }
    std::vector<HWND> controls;
    AppendControls(dialog, &controls);
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](HWND control) { return GetDlgCtrlID(control) == id; });
    return found == controls.end() ? nullptr : *found;
}

void PressDefault(HWND dialog)
{
    const HWND focus = GetFocus();
    if (Contains(dialog, focus) && (Send(focus, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON) != 0)
    {
        PressButton(dialog, GetDlgCtrlID(focus), focus);
        return;
    }
    const LRESULT answer = Send(dialog, DM_GETDEFID);
    const int id = HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : IDOK;
    PressButton(dialog, id, FindControl(dialog, id));
}

void MoveInGroup(HWND dialog, bool previous)
{
    const HWND next = GetNextDlgGroupItem(dialog, GetFocus(), previous);
    if (next == nullptr)
    {
        return;
    }
    if ((Send(next, WM_GETDLGCODE) & DLGC_RADIOBUTTON) == 0)
    {
        Send(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return;
    }
    SetFocus(next);
    const Window* button = Find(next);
    if (button != nullptr && (button->style & BS_TYPEMASK) == BS_AUTORADIOBUTTON &&
        Send(next, BM_GETCHECK) != BST_CHECKED)
    {
        Send(next, BM_CLICK);
    }
}

// The character after a text's last single ampersand... of which the first counts; 0 if there is none.
WCHAR Mnemonic(HWND control)
{
    const auto length = static_cast<std::size_t>(GetWindowTextLengthW(control));
    std::u16string text(length + 1, u'\0');
    GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    for (std::size_t at = text.find(u'&'); at + 1 < text.size(); at = text.find(u'&', at + 2))
    {
        if (text[at + 1] != u'&')
        {
            return text[at + 1];
        }
    }
    return 0;
}

bool HasMnemonics(LRESULT dialogCode, const Window& control)
{
    return (dialogCode & DLGC_BUTTON) != 0 ||
           ((dialogCode & DLGC_STATIC) != 0 && (control.style & SS_NOPREFIX) == 0);
}

// Presses the button, or goes to the control behind the label, that the character names.
bool FollowMnemonic(HWND dialog, WCHAR character)
{
    std::vector<HWND> controls;
    AppendControls(dialog, &controls);
    const HWND start = ListedControl(controls, GetFocus());
    const HWND found = NextInCircle(controls, start, false,
                                    [&](HWND control)
                                    {
                                        if (!CanTakeInput(control))
                                        {
                                            return false;
                                        }
                                        const LRESULT code = Send(control, WM_GETDLGCODE);
                                        const Window* window = Find(control);
                                        return window != nullptr && HasMnemonics(code, *window) &&
                                               _totlower(Mnemonic(control)) == _totlower(character);
                                    });
    if (found == nullptr)
    {
        return false;
    }
    const LRESULT code = Send(found, WM_GETDLGCODE);
    if ((code & DLGC_STATIC) != 0)
    {
        const HWND next = NextInCircle(
            controls, found, false,
            [](HWND control)
            { return CanTakeInput(control) && (Send(control, WM_GETDLGCODE) & DLGC_STATIC) == 0; });
        Send(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return true;
    }
    Send(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(found), TRUE);
    Send(found, BM_CLICK);
    return true;
}

// Whether the key was one of the dialog's own.
bool HandleKey(HWND dialog, WPARAM key, LRESULT dialogCode)
{
    if ((dialogCode & DLGC_WANTALLKEYS) != 0)
    {
        return false;
    }
    switch (key)
    {
    case VK_TAB:
        if ((dialogCode & DLGC_WANTTAB) != 0)
        {
            return false;
        }
        Send(dialog, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0, 0);
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if ((dialogCode & DLGC_WANTARROWS) != 0)
        {
            return false;
        }
        MoveInGroup(dialog, key == VK_LEFT || key == VK_UP);
        return true;
    case VK_ESCAPE:
    case VK_CANCEL:
        PressButton(dialog, IDCANCEL, FindControl(dialog, IDCANCEL));
        return true;
    case VK_RETURN:
    case VK_EXECUTE:
        PressDefault(dialog);
        return true;
    default:
        return false;
    }
}

bool HandleMessage(HWND dialog, const MSG& message)
{
    MSG copy = message;
    switch (message.message)
    {
    case WM_KEYDOWN:
        return HandleKey(dialog, message.wParam,
                         Send(message.hwnd, WM_GETDLGCODE, message.wParam, ToParam(&copy)));
    case WM_CHAR:
        if ((Send(message.hwnd, WM_GETDLGCODE, message.wParam, ToParam(&copy)) &
             (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) != 0)
        {
            return false;
        }
        return FollowMnemonic(dialog, static_cast<WCHAR>(message.wParam));
    case WM_SYSCHAR:
        return FollowMnemonic(dialog, static_cast<WCHAR>(message.wParam));
    default:
        return false;
    }
}
}  // namespace
}  // namespace headless

using namespace headless;

HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    if (Resolve(dialog) == nullptr)
    {
        return nullptr;
    }
    std::vector<HWND> controls;
    AppendControls(dialog, &controls);
    const auto fits = [](HWND candidate)
    { return CanTakeInput(candidate) && (Find(candidate)->style & WS_TABSTOP) != 0; };
    return NextInCircle(controls, ListedControl(controls, control), previous != FALSE, fits);
}

HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous)
{
    const Window* found = Resolve(dialog);
    if (found == nullptr)
    {
        return nullptr;
    }
    std::vector<HWND> controls;
    AppendControls(dialog, &controls);
    const HWND start = ListedControl(controls, control);
    return NextInCircle(start == nullptr ? controls : Group(start), start, previous != FALSE, CanTakeInput);
}

BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message)
{
    if (Find(dialog) == nullptr || !Contains(dialog, message->hwnd) ||
        CallMsgFilterW(message, MSGF_DIALOGBOX))
    {
        return Find(dialog) != nullptr && Contains(dialog, message->hwnd);
    }
    if (HandleMessage(dialog, *message))
    {
        return TRUE;
    }
    const HWND focus = GetFocus();
    TranslateMessage(message);
    DispatchMessageW(message);
    if (GetFocus() != focus && Find(dialog) != nullptr && Contains(dialog, GetFocus()))
    {
        MoveDefaultLook(dialog, GetFocus());
    }
    return TRUE;
}
