#include "driver/form.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

constexpr UINT GiveUpMilliseconds = 20000;

// The timeout makes the test fail instead of wait for ever if the other program hangs.
static LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, GiveUpMilliseconds, &result);
    return static_cast<LRESULT>(result);
}

// Selects the message for a list box or a combo box.
static UINT For(HWND control, UINT listMessage, UINT comboMessage)
{
    return IsOf(control, _T("ComboBox")) ? comboMessage : listMessage;
}

static BOOL CALLBACK AddIfVisible(HWND window, LPARAM list)
{
    if (IsWindowVisible(window))
    {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

std::string Printable(const Text& text)
{
    std::string printable;
    for (const TCHAR character : text)
    {
        printable += character >= 32 && character < 127 ? static_cast<char>(character) : '?';
    }
    return printable;
}

void EndProgram(const std::string& message)
{
    std::fprintf(stderr, "%s\n", message.c_str());
    std::_Exit(1);
}

bool IsOf(HWND window, LPCTSTR className)
{
    TCHAR name[32] = {};
    GetClassNameW(window, name, 32);
    return lstrcmpiW(name, className) == 0;
}

RECT PlaceOf(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

bool Contains(const RECT& outer, const RECT& inner)
{
    RECT both = {};
    return UnionRect(&both, &outer, &inner) && EqualRect(&both, &outer);
}

LONG ButtonTypeOf(HWND window)
{
    return IsOf(window, _T("Button")) ? GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK : -1;
}

std::vector<HWND> ControlsOf(HWND dialog)
{
    std::vector<HWND> controls;
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT))
    {
        controls.push_back(control);
    }
    return controls;
}

std::vector<HWND> WindowsOf(DWORD thread)
{
    std::vector<HWND> windows;
    EnumThreadWindows(thread, AddIfVisible, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HWND Form::Control(int id) const
{
    const HWND control = GetDlgItem(Page(), id);
    if (control == nullptr)
    {
        EndProgram("There is no control " + std::to_string(id) + ".");
    }
    return control;
}

Text Form::Title() const
{
    Text text(static_cast<size_t>(Send(m_window, WM_GETTEXTLENGTH)), _T('\0'));
    text.resize(static_cast<size_t>(
        Send(m_window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

LRESULT Form::CheckOf(int id) const
{
    return Send(Control(id), BM_GETCHECK);
}

LRESULT Form::SelectionOf(int id) const
{
    return Send(Control(id), For(Control(id), LB_GETCURSEL, CB_GETCURSEL));
}

std::vector<Text> Form::ItemsOf(int id) const
{
    const HWND control = Control(id);
    std::vector<Text> items(static_cast<size_t>(Send(control, For(control, LB_GETCOUNT, CB_GETCOUNT))));
    for (size_t item = 0; item < items.size(); ++item)
    {
        TCHAR text[64] = {};
        Send(control, For(control, LB_GETTEXT, CB_GETLBTEXT), item, reinterpret_cast<LPARAM>(text));
        items[item] = text;
    }
    return items;
}

void Form::Click(int id) const
{
    if (IsEnabled(id))
    {
        Send(Control(id), BM_CLICK);
    }
}

void Form::Type(int id, const Text& keys) const
{
    SetFocus(Control(id));
    for (const TCHAR key : keys)
    {
        Send(Control(id), WM_CHAR, static_cast<WPARAM>(key), 1);
    }
}

void Form::TypeInFront(int id, const Text& keys) const
{
    Send(Control(id), EM_SETSEL, 0, 0);
    Type(id, keys);
}

void Form::Retype(int id, const Text& keys) const
{
    SetFocus(Control(id));
    Send(Control(id), EM_SETSEL, 0, -1);
    Type(id, keys.empty() ? _T("\b") : keys);
}

void Form::SetText(int id, const Text& text) const
{
    Send(Control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Form::Pick(int id, int item) const
{
    const HWND control = Control(id);
    SetFocus(control);
    Send(control, For(control, LB_SETCURSEL, CB_SETCURSEL), static_cast<WPARAM>(item));
    Send(GetParent(control), WM_COMMAND,
         static_cast<WPARAM>(MAKELONG(id, For(control, LBN_SELCHANGE, CBN_SELCHANGE))),
         reinterpret_cast<LPARAM>(control));
}

HWND Sheet::Page() const
{
    return reinterpret_cast<HWND>(Send(Window(), PSM_GETCURRENTPAGEHWND));
}

int Sheet::PageCount() const
{
    return static_cast<int>(
        Send(reinterpret_cast<HWND>(Send(Window(), PSM_GETTABCONTROL)), TCM_GETITEMCOUNT));
}

std::vector<Text> Sheet::Tabs() const
{
    const auto tabs = reinterpret_cast<HWND>(Send(Window(), PSM_GETTABCONTROL));
    std::vector<Text> titles(static_cast<size_t>(PageCount()));
    for (size_t index = 0; index < titles.size(); ++index)
    {
        TCHAR title[80] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = title;
        item.cchTextMax = 80;
        Send(tabs, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
        titles[index] = title;
    }
    return titles;
}

bool Sheet::SelectIndex(int index) const
{
    Send(Window(), PSM_SETCURSEL, static_cast<WPARAM>(index));
    return Send(Window(), PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(Page())) == index;
}

bool Sheet::Select(const Text& title) const
{
    const std::vector<Text> titles = Tabs();
    const auto found = std::find(titles.begin(), titles.end(), title);
    return found != titles.end() && SelectIndex(static_cast<int>(found - titles.begin()));
}

std::vector<Text> Sheet::OpenAll() const
{
    std::vector<Text> titles;
    for (int index = 0; index < PageCount() && SelectIndex(index); ++index)
    {
        titles.push_back(Form(Page()).Title());
    }
    return titles;
}

void Sheet::Press(HWND button)
{
    if (IsWindowEnabled(button))
    {
        Send(button, BM_CLICK);
    }
}
