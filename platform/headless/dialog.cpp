// Dialogs: how a template becomes windows, and how a modal one runs.
#include "dialog_template.h"
#include "tchar.h"
#include "window.h"

namespace headless
{
namespace
{
constexpr int BaseWidth = 6;
constexpr int BaseHeight = 13;

struct ClassNumber
{
    WORD number;
    LPCWSTR name;
};

constexpr ClassNumber ClassNumbers[] = {{0x80, u"BUTTON"},  {0x81, u"EDIT"},      {0x82, u"STATIC"},
                                        {0x83, u"LISTBOX"}, {0x84, u"SCROLLBAR"}, {0x85, u"COMBOBOX"}};

LPCWSTR ClassName(const TemplateName& name)
{
    for (const ClassNumber& candidate : ClassNumbers)
    {
        if (name.number == candidate.number)
        {
            return candidate.name;
        }
    }
    return name.number != 0 ? MAKEINTATOM(name.number) : name.text.c_str();
}

void Centre(LONG* left, LONG* top, LONG width, LONG height)
{
    RECT screen = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    *left = (screen.left + screen.right - width) / 2;
    *top = (screen.top + screen.bottom - height) / 2;
}

RECT Place(const DialogTemplate& source, DWORD style, DWORD exStyle, HWND owner)
{
    RECT rect = {0, 0, FromDialogX(source.rect.right), FromDialogY(source.rect.bottom)};
    AdjustWindowRectEx(&rect, style, FALSE, exStyle);
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    POINT corner = {FromDialogX(source.rect.left), FromDialogY(source.rect.top)};
    if ((style & DS_CENTER) != 0)
    {
        Centre(&corner.x, &corner.y, width, height);
    }
    else if (!IsChildStyle(style) && (style & DS_ABSALIGN) == 0 && owner != nullptr)
    {
        ClientToScreen(owner, &corner);
    }
    return {corner.x, corner.y, corner.x + width, corner.y + height};
}

HFONT MakeFont(const DialogTemplate& source)
{
    if (!source.hasFont)
    {
        return nullptr;
    }
    LOGFONTW font = {};
    font.lfHeight = -MulDiv(source.pointSize, static_cast<int>(GetDpiForSystem()), 72);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    source.fontName.copy(font.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&font);
}

bool MakeControl(HWND dialog, HINSTANCE instance, TemplateControl& control)
{
    const HWND made = CreateWindowExW(
        control.exStyle | WS_EX_NOPARENTNOTIFY, ClassName(control.className),
        control.text.number != 0 ? MAKEINTRESOURCEW(control.text.number) : control.text.text.c_str(),
        control.style | WS_CHILD, FromDialogX(control.rect.left), FromDialogY(control.rect.top),
        FromDialogX(control.rect.right), FromDialogY(control.rect.bottom), dialog,
        reinterpret_cast<HMENU>(static_cast<LONG_PTR>(control.id)), instance,
        control.data.empty() ? nullptr : control.data.data());
    const Dialog* state = FindDialog(dialog);
    if (made == nullptr || state == nullptr)
    {
        return false;
    }
    if (state->font != nullptr)
    {
        Send(made, WM_SETFONT, reinterpret_cast<WPARAM>(state->font), FALSE);
    }
    if ((Send(made, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON) != 0)
    {
        Dialog* again = FindDialog(dialog);
        if (again != nullptr && again->defaultId == 0)
        {
            again->defaultId = control.id;
        }
    }
    return true;
}

bool MakeControls(HWND dialog, HINSTANCE instance, DialogTemplate& source)
{
    for (TemplateControl& control : source.controls)
    {
        if (!MakeControl(dialog, instance, control) && (source.style & DS_NOFAILCREATE) == 0)
        {
            return false;
        }
    }
    return true;
}

void SetFirstFocus(HWND dialog)
{
    HWND control = GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (control == nullptr)
    {
        control = GetNextDlgGroupItem(dialog, nullptr, FALSE);
    }
    if (control != nullptr)
    {
        SetDialogFocus(control);
    }
    else if (!IsChildStyle(static_cast<DWORD>(GetWindowLongW(dialog, GWL_STYLE))))
    {
        SetFocus(dialog);
    }
}

// The window with its controls, still hidden and not yet initialised.
HWND MakeWindow(HINSTANCE instance, DialogTemplate& source, HWND owner)
{
    DWORD style = source.style & ~WS_VISIBLE;
    DWORD exStyle = source.exStyle | WS_EX_CONTROLPARENT;
    if ((style & DS_MODALFRAME) != 0)
    {
        exStyle |= WS_EX_DLGMODALFRAME;
    }
    if ((style & DS_CONTROL) != 0)
    {
        style &= ~(WS_CAPTION | WS_SYSMENU);
    }
    const RECT place = Place(source, style, exStyle, owner);
    return CreateWindowExW(exStyle, source.className.IsEmpty() ? WC_DIALOG : ClassName(source.className),
                           source.title.c_str(), style, place.left, place.top, place.right - place.left,
                           place.bottom - place.top, owner, nullptr, instance, nullptr);
}

HWND CreateFromTemplate(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner, DLGPROC procedure,
                        LPARAM initParam, HWND disabledOwner)
{
    DialogTemplate source = ReadTemplate(dialogTemplate);
    const HWND dialog = MakeWindow(instance, source, owner);
    Window* made = Find(dialog);
    if (made == nullptr)
    {
        return nullptr;
    }
    made->dialog = std::make_unique<Dialog>();
    made->dialog->disabledOwner = disabledOwner;
    made->dialog->font = MakeFont(source);
    SetWindowLongPtrW(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    if (made->dialog->font != nullptr)
    {
        Send(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(made->dialog->font), FALSE);
    }
    if (!MakeControls(dialog, instance, source))
    {
        DestroyWindow(dialog);
        return nullptr;
    }
    if (procedure != nullptr)
    {
        const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
        const bool wantsFocus = Send(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), initParam) != 0;
        const bool mayTakeFocus = (source.style & DS_CONTROL) == 0 || (source.style & WS_VISIBLE) != 0;
        if (wantsFocus && mayTakeFocus && Find(dialog) != nullptr)
        {
            SetFirstFocus(dialog);
        }
    }
    if (Find(dialog) == nullptr)
    {
        return nullptr;
    }
    const Dialog* state = FindDialog(dialog);
    if ((source.style & WS_VISIBLE) != 0 && (state == nullptr || !state->ended))
    {
        ShowWindow(dialog, SW_SHOWNORMAL);
    }
    return Find(dialog) == nullptr ? nullptr : dialog;
}

LPCDLGTEMPLATEW LoadTemplate(HINSTANCE instance, LPCWSTR name)
{
    const HRSRC resource = FindResourceW(instance, name, RT_DIALOG);
    return resource == nullptr ? nullptr
                               : static_cast<LPCDLGTEMPLATEW>(LockResource(LoadResource(instance, resource)));
}

bool IsOver(HWND dialog)
{
    const Dialog* state = FindDialog(dialog);
    return state == nullptr || state->ended;
}

// Runs messages until the dialog has ended or is gone.
void RunModal(HWND dialog, HWND owner)
{
    MSG message = {};
    while (!IsOver(dialog))
    {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE))
        {
            if (!IsWindowVisible(dialog))
            {
                ShowWindow(dialog, SW_SHOWNORMAL);
            }
            if ((GetWindowLongW(dialog, GWL_STYLE) & DS_NOIDLEMSG) == 0)
            {
                Send(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, ToParam(dialog));
            }
            if (IsOver(dialog))
            {
                break;
            }
        }
        if (!GetMessageW(&message, nullptr, 0, 0))
        {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!IsDialogMessageW(dialog, &message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}
}  // namespace

Dialog* FindDialog(HWND window)
{
    Window* found = Find(window);
    return found == nullptr ? nullptr : found->dialog.get();
}

int FromDialogX(int units)
{
    return MulDiv(units, BaseWidth, 4);
}

int FromDialogY(int units)
{
    return MulDiv(units, BaseHeight, 8);
}
}  // namespace headless

using namespace headless;

HWND WINAPI CreateDialogIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM initParam)
{
    return CreateFromTemplate(instance, dialogTemplate, owner, procedure, initParam, nullptr);
}

HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                               LPARAM initParam)
{
    const LPCDLGTEMPLATEW dialogTemplate = LoadTemplate(instance, templateName);
    return dialogTemplate == nullptr
               ? nullptr
               : CreateDialogIndirectParamW(instance, dialogTemplate, owner, procedure, initParam);
}

INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM initParam)
{
    if (owner != nullptr && Resolve(owner) == nullptr)
    {
        return 0;
    }
    const HWND root = owner == nullptr ? nullptr : GetAncestor(owner, GA_ROOT);
    const HWND disabled = root != nullptr && IsWindowEnabled(root) ? root : nullptr;
    if (disabled != nullptr)
    {
        EnableWindow(disabled, FALSE);
    }
    const HWND dialog = CreateFromTemplate(instance, dialogTemplate, owner, procedure, initParam, disabled);
    INT_PTR result = dialog == nullptr ? -1 : 0;
    if (dialog != nullptr)
    {
        RunModal(dialog, root);
        if (const Dialog* state = FindDialog(dialog))
        {
            result = state->result;
        }
    }
    // EndDialog has done so already; a dialog that went another way has not.
    if (disabled != nullptr)
    {
        EnableWindow(disabled, TRUE);
    }
    if (Find(dialog) != nullptr)
    {
        DestroyWindow(dialog);
    }
    return result;
}

BOOL WINAPI EndDialog(HWND dialog, INT_PTR result)
{
    Dialog* state = FindDialog(dialog);
    if (state == nullptr)
    {
        SetLastError(Find(dialog) == nullptr ? ERROR_INVALID_WINDOW_HANDLE : ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    state->result = result;
    state->ended = true;
    if (state->disabledOwner != nullptr)
    {
        // Before the dialog hides, so that the activation goes to its owner.
        EnableWindow(state->disabledOwner, TRUE);
    }
    if (Find(dialog) != nullptr)
    {
        SetWindowPos(dialog, nullptr, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    }
    // The loop looks again only after a message.
    PostMessageW(dialog, WM_NULL, 0, 0);
    return TRUE;
}

BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect)
{
    if (FindDialog(dialog) == nullptr)
    {
        Resolve(dialog);
        return FALSE;
    }
    *rect = {FromDialogX(rect->left), FromDialogY(rect->top), FromDialogX(rect->right),
             FromDialogY(rect->bottom)};
    return TRUE;
}
