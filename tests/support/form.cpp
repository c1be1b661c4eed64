#include "support/form.h"

#include <commctrl.h>
#include <gtest/gtest.h>
#include <prsht.h>

#include <cstring>

namespace
{
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return SendMessageW(window, message, wParam, lParam);
}

Text ReadText(HWND window)
{
    std::vector<TCHAR> text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1);
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

// List boxes and combo boxes say the same in two languages.
struct ListMessages
{
    UINT getSelection;
    UINT setSelection;
    UINT count;
    UINT getText;
    UINT getTextLength;
    WORD changed;
};

const ListMessages& MessagesOf(HWND control)
{
    static const ListMessages list = {LB_GETCURSEL, LB_SETCURSEL,  LB_GETCOUNT,
                                      LB_GETTEXT,   LB_GETTEXTLEN, LBN_SELCHANGE};
    static const ListMessages combo = {CB_GETCURSEL, CB_SETCURSEL,    CB_GETCOUNT,
                                       CB_GETLBTEXT, CB_GETLBTEXTLEN, CBN_SELCHANGE};
    TCHAR name[16] = {};
    GetClassNameW(control, name, 16);
    return _tcsicmp(name, _T("ComboBox")) == 0 ? combo : list;
}
}  // namespace

HWND Form::Control(int id) const
{
    const HWND control = GetDlgItem(m_window, id);
    EXPECT_NE(control, nullptr) << "control " << id;
    return control;
}

Text Form::Title() const
{
    return ReadText(m_window);
}

Text Form::TextOf(int id) const
{
    return ReadText(Control(id));
}

bool Form::IsEnabled(int id) const
{
    return IsWindowEnabled(Control(id)) != FALSE;
}

bool Form::IsShown(int id) const
{
    return (GetWindowLongW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

LRESULT Form::CheckOf(int id) const
{
    return Send(Control(id), BM_GETCHECK);
}

LRESULT Form::SelectionOf(int id) const
{
    const HWND control = Control(id);
    return Send(control, MessagesOf(control).getSelection);
}

std::vector<Text> Form::ItemsOf(int id) const
{
    const HWND control = Control(id);
    const ListMessages& messages = MessagesOf(control);
    std::vector<Text> items;
    const LRESULT count = Send(control, messages.count);
    for (LRESULT item = 0; item < count; ++item)
    {
        const auto index = static_cast<WPARAM>(item);
        std::vector<TCHAR> text(static_cast<size_t>(Send(control, messages.getTextLength, index)) + 1);
        Send(control, messages.getText, index, reinterpret_cast<LPARAM>(text.data()));
        items.emplace_back(text.data());
    }
    return items;
}

void Form::Click(int id) const
{
    const HWND control = Control(id);
    if (IsWindowEnabled(control))
    {
        Send(control, BM_CLICK);
    }
}

void Form::Type(int id, const Text& keys) const
{
    const HWND control = Control(id);
    SetFocus(control);
    for (const TCHAR key : keys)
    {
        Send(control, WM_CHAR, static_cast<WPARAM>(key), 1);
    }
}

void Form::TypeInFront(int id, const Text& keys) const
{
    Send(Control(id), EM_SETSEL, 0, 0);
    Type(id, keys);
}

void Form::Retype(int id, const Text& keys) const
{
    const HWND control = Control(id);
    SetFocus(control);
    Send(control, EM_SETSEL, 0, -1);
    Type(id, keys);
}

void Form::Paste(int id, const Text& text) const
{
    const size_t size = (text.size() + 1) * sizeof(TCHAR);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    ASSERT_TRUE(OpenClipboard(m_window));
    EmptyClipboard();
    EXPECT_NE(SetClipboardData(CF_UNICODETEXT, memory), nullptr);
    CloseClipboard();
    Retype(id, _T("\x16"));
}

void Form::Empty(int id) const
{
    Retype(id, _T("\b"));
}

void Form::Pick(int id, int item) const
{
    const HWND control = Control(id);
    const ListMessages& messages = MessagesOf(control);
    SetFocus(control);
    Send(control, messages.setSelection, static_cast<WPARAM>(item));
    Send(GetParent(control), WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, messages.changed)),
         reinterpret_cast<LPARAM>(control));
}

HWND Sheet::Control(int id) const
{
    const HWND control = GetDlgItem(Page(), id);
    EXPECT_NE(control, nullptr) << "control " << id;
    return control;
}

HWND Sheet::Page() const
{
    return reinterpret_cast<HWND>(Send(Window(), PSM_GETCURRENTPAGEHWND));
}

std::vector<Text> Sheet::Tabs() const
{
    const auto tabs = reinterpret_cast<HWND>(Send(Window(), PSM_GETTABCONTROL));
    std::vector<Text> titles;
    const LRESULT count = Send(tabs, TCM_GETITEMCOUNT);
    for (LRESULT index = 0; index < count; ++index)
    {
        TCHAR title[80] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = title;
        item.cchTextMax = 80;
        Send(tabs, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        titles.emplace_back(title);
    }
    return titles;
}

bool Sheet::Select(const Text& title) const
{
    const std::vector<Text> titles = Tabs();
    for (size_t index = 0; index < titles.size(); ++index)
    {
        if (titles[index] == title)
        {
            Send(Window(), PSM_SETCURSEL, index);
            const auto tabs = reinterpret_cast<HWND>(Send(Window(), PSM_GETTABCONTROL));
            return Send(tabs, TCM_GETCURSEL) == static_cast<LRESULT>(index);
        }
    }
    return false;
}

bool Sheet::CanApply() const
{
    return IsWindowEnabled(GetDlgItem(Window(), IdApply)) != FALSE;
}

void Sheet::Apply() const
{
    if (CanApply())
    {
        Send(GetDlgItem(Window(), IdApply), BM_CLICK);
    }
}

void Sheet::Ok() const
{
    Send(GetDlgItem(Window(), IDOK), BM_CLICK);
}

void Sheet::Cancel() const
{
    Send(GetDlgItem(Window(), IDCANCEL), BM_CLICK);
}

int PressTab(const Form& form)
{
    MSG message = {};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    message.lParam = 1;
    IsDialogMessageW(form.Window(), &message);
    return GetDlgCtrlID(GetFocus());
}

void ExpectTabOrder(const Form& form, const std::vector<int>& ids)
{
    SetFocus(form.Control(ids.front()));
    for (size_t next = 1; next < ids.size(); ++next)
    {
        EXPECT_EQ(PressTab(form), ids[next]);
    }
}
