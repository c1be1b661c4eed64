#include "support/form.h"

#include <commctrl.h>
#include <prsht.h>

namespace {
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(window, message, wParam, lParam);
}

Text ReadText(HWND window) {
    std::vector<TCHAR> text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1);
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

// List boxes and combo boxes say the same in two languages.
UINT For(HWND control, UINT listMessage, UINT comboMessage) {
    TCHAR name[16] = {};
    GetClassNameW(control, name, 16);
    return _tcsicmp(name, _T("ComboBox")) == 0 ? comboMessage : listMessage;
}
}  // namespace

HWND Form::Control(int id) const {
    const HWND control = GetDlgItem(Page(), id);
    EXPECT_NE(control, nullptr) << "control " << id;
    return control;
}

Text Form::Title() const { return ReadText(m_window); }

Text Form::TextOf(int id) const { return ReadText(Control(id)); }

LRESULT Form::CheckOf(int id) const { return Send(Control(id), BM_GETCHECK); }

LRESULT Form::SelectionOf(int id) const { return Send(Control(id), For(Control(id), LB_GETCURSEL, CB_GETCURSEL)); }

std::vector<Text> Form::ItemsOf(int id) const {
    const HWND control = Control(id);
    std::vector<Text> items(static_cast<size_t>(Send(control, For(control, LB_GETCOUNT, CB_GETCOUNT))));
    for (size_t item = 0; item < items.size(); ++item) {
        TCHAR text[64] = {};
        Send(control, For(control, LB_GETTEXT, CB_GETLBTEXT), item, reinterpret_cast<LPARAM>(text));
        items[item] = text;
    }
    return items;
}

void Form::Click(int id) const {
    if (IsEnabled(id)) { Send(Control(id), BM_CLICK); }
}

void Form::Type(int id, const Text& keys) const {
    SetFocus(Control(id));
    for (const TCHAR key : keys) { Send(Control(id), WM_CHAR, static_cast<WPARAM>(key), 1); }
}

void Form::TypeInFront(int id, const Text& keys) const {
    Send(Control(id), EM_SETSEL, 0, 0);
    Type(id, keys);
}

void Form::Retype(int id, const Text& keys) const {
    SetFocus(Control(id));
    Send(Control(id), EM_SETSEL, 0, -1);
    Type(id, keys.empty() ? _T("\b") : keys);
}

void Form::Pick(int id, int item) const {
    const HWND control = Control(id);
    SetFocus(control);
    Send(control, For(control, LB_SETCURSEL, CB_SETCURSEL), static_cast<WPARAM>(item));
    Send(GetParent(control), WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, For(control, LBN_SELCHANGE, CBN_SELCHANGE))),
         reinterpret_cast<LPARAM>(control));
}

HWND Sheet::Page() const { return reinterpret_cast<HWND>(Send(Window(), PSM_GETCURRENTPAGEHWND)); }

std::vector<Text> Sheet::Tabs() const {
    const auto tabs = reinterpret_cast<HWND>(Send(Window(), PSM_GETTABCONTROL));
    std::vector<Text> titles(static_cast<size_t>(Send(tabs, TCM_GETITEMCOUNT)));
    for (size_t index = 0; index < titles.size(); ++index) {
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

bool Sheet::Select(const Text& title) const {
    const std::vector<Text> titles = Tabs();
    for (size_t index = 0; index < titles.size(); ++index) {
        if (titles[index] == title) {
            Send(Window(), PSM_SETCURSEL, index);
            return Send(Window(), PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(Page())) == static_cast<LRESULT>(index);
        }
    }
    return false;
}

void Sheet::Press(int button) const {
    const HWND control = GetDlgItem(Window(), button);
    if (IsWindowEnabled(control)) { Send(control, BM_CLICK); }
}
