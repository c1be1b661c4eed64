#include "support/controls.h"

namespace
{
class EditTest : public ControlTest
{
protected:
    const Codes Changed = {EN_UPDATE, EN_CHANGE};
    const Codes Nothing = {};

    HWND Make(DWORD style = 0, LPCTSTR text = _T("")) const
    {
        return ControlTest::Make(_T("EDIT"), ES_AUTOHSCROLL | style, text);
    }

    static std::pair<int, int> Selection(HWND edit)
    {
        DWORD start = 0;
        DWORD end = 0;
        Send(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return {static_cast<int>(start), static_cast<int>(end)};
    }
};

TEST_F(EditTest, TextSetByTheProgramIsToldAtOnceEvenIfItIsTheSame)
{
    HWND edit = Make(0, _T("first"));
    EXPECT_EQ(TextOf(edit), _T("first"));
    EXPECT_EQ(Told(), Nothing);

    std::vector<Text> seen;
    m_handler = [&](HWND control, int) { seen.push_back(TextOf(control)); };
    Send(edit, EM_SETMODIFY, TRUE);
    SetWindowTextW(edit, _T("second"));
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(seen, (std::vector<Text>{_T("second"), _T("second")}));
    EXPECT_FALSE(Send(edit, EM_GETMODIFY));

    Send(edit, EM_SETSEL, 1, 3);
    EXPECT_TRUE(Send(edit, WM_SETTEXT, 0, _T("second")));
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(Selection(edit), (std::pair{0, 0}));
    Send(edit, WM_SETTEXT);
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(TextOf(edit), _T(""));

    HWND refusing = Make(ES_NUMBER | ES_READONLY | WS_DISABLED);
    SetWindowTextW(refusing, _T("x1"));
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(TextOf(refusing), _T("x1"));
}

TEST_F(EditTest, TypingAndDeletingAreToldOnlyIfTheTextChanges)
{
    HWND edit = Make(0, _T("ad"));
    Send(edit, EM_SETSEL, 1, 1);
    Type(edit, _T("b"));
    EXPECT_EQ(Told(), Changed);
    EXPECT_TRUE(Send(edit, EM_GETMODIFY));
    Type(edit, _T("c"));
    EXPECT_EQ(TextOf(edit), _T("abcd"));
    Send(edit, EM_SETSEL, 0, 2);
    Type(edit, _T("x"));
    EXPECT_EQ(TextOf(edit), _T("xcd"));
    EXPECT_EQ(Selection(edit), (std::pair{1, 1}));
    Told();

    Type(edit, _T("\b"));
    EXPECT_EQ(Told(), Changed);
    Key(edit, VK_DELETE);
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(TextOf(edit), _T("d"));

    Type(edit, _T("\b\r\n\t\x1b\x7f"));  // Backspace at the start, and keys that are the dialog's
    Key(edit, VK_END);
    Key(edit, VK_DELETE);
    Send(edit, WM_CLEAR);
    Send(edit, EM_REPLACESEL, FALSE, _T(""));
    EXPECT_EQ(Told(), Nothing);
    EXPECT_EQ(TextOf(edit), _T("d"));

    Send(edit, EM_SETSEL, 0, -1);
    Key(edit, VK_DELETE);
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(TextOf(edit), _T(""));
}

TEST_F(EditTest, DigitsOnlyHoldsForTypingOnly)
{
    HWND edit = Make(ES_NUMBER);
    Type(edit, _T("-a1 .\xff15"));
    EXPECT_EQ(TextOf(edit), _T("1"));
    EXPECT_EQ(Told(), Changed);
    Send(edit, EM_REPLACESEL, FALSE, _T("z"));
    EXPECT_EQ(TextOf(edit), _T("1z"));
    SetWindowLongPtrW(edit, GWL_STYLE, GetWindowLongPtrW(edit, GWL_STYLE) & ~LONG_PTR{ES_NUMBER});
    Type(edit, _T("a"));
    EXPECT_EQ(TextOf(edit), _T("1za"));
}

TEST_F(EditTest, ReadOnlyRefusesTheUserAndNotTheProgram)
{
    HWND edit = Make(ES_READONLY, _T("abc"));
    Send(edit, EM_SETSEL, 0, 2);
    Type(edit, _T("x\b"));
    Key(edit, VK_DELETE);
    Send(edit, WM_COPY);
    Send(edit, WM_CUT);
    Send(edit, WM_PASTE);
    Send(edit, WM_CLEAR);
    EXPECT_EQ(Told(), Nothing);
    EXPECT_EQ(TextOf(edit), _T("abc"));
    Send(edit, EM_REPLACESEL, FALSE, _T("x"));
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(TextOf(edit), _T("xc"));
    EXPECT_TRUE(Send(edit, EM_SETREADONLY, FALSE));
    Type(edit, _T("y"));
    EXPECT_EQ(TextOf(edit), _T("xyc"));
}

TEST_F(EditTest, TheLimitHoldsForTypingAndReplacing)
{
    HWND edit = Make();
    EXPECT_EQ(Send(edit, EM_GETLIMITTEXT), 30000);
    SetWindowTextW(edit, Text(29999, _T('a')).c_str());
    Type(edit, _T("bc"));
    EXPECT_EQ(GetWindowTextLengthW(edit), 30000);
    SetWindowTextW(edit, Text(40000, _T('a')).c_str());
    EXPECT_EQ(GetWindowTextLengthW(edit), 40000);

    Send(edit, EM_SETLIMITTEXT, 4);
    EXPECT_EQ(Send(edit, EM_GETLIMITTEXT), 4);
    SetWindowTextW(edit, _T("1234"));
    Told();
    Type(edit, _T("x"));
    EXPECT_EQ(Told().front(), EN_MAXTEXT);
    EXPECT_EQ(TextOf(edit), _T("1234"));
    Send(edit, EM_SETSEL, 1, 3);
    Type(edit, _T("x"));
    EXPECT_EQ(Told(), Changed);
    Send(edit, EM_REPLACESEL, FALSE, _T("yyyyy"));
    EXPECT_EQ(Told(), (Codes{EN_MAXTEXT, EN_UPDATE, EN_CHANGE}));
    EXPECT_EQ(TextOf(edit), _T("1xy4"));

    Send(edit, EM_SETLIMITTEXT, 0);
    EXPECT_EQ(Send(edit, EM_GETLIMITTEXT), 0x7FFFFFFE);

    HWND narrow = ControlTest::Make(_T("EDIT"), 0);
    Told();
    Type(narrow, Text(60, _T('W')).c_str());
    EXPECT_GT(GetWindowTextLengthW(narrow), 2);
    EXPECT_LT(GetWindowTextLengthW(narrow), 60);
}

TEST_F(EditTest, SelectionAndCaretKeys)
{
    HWND edit = Make(0, _T("abc def"));
    struct
    {
        int start, end;
        std::pair<int, int> expected;
    } const selections[] = {{0, -1, {0, 7}},  {-1, 0, {7, 7}},    {2, 5, {2, 5}},
                            {-1, -1, {5, 5}}, {5, 2, {2, 5}},     {3, 100, {3, 7}},
                            {4, 4, {4, 4}},   {100, 200, {7, 7}}, {0, 0, {0, 0}}};
    for (const auto& [start, end, expected] : selections)
    {
        Send(edit, EM_SETSEL, static_cast<WPARAM>(start), end);
        EXPECT_EQ(Selection(edit), expected) << start << " " << end;
    }

    struct
    {
        int held, key;
        std::pair<int, int> expected;
    } const keys[] = {
        {0, VK_LEFT, {0, 0}},           {0, VK_RIGHT, {1, 1}},       {VK_SHIFT, VK_RIGHT, {1, 2}},
        {VK_SHIFT, VK_END, {1, 7}},     {VK_SHIFT, VK_HOME, {0, 1}}, {0, VK_DOWN, {1, 1}},
        {VK_CONTROL, VK_RIGHT, {4, 4}}, {0, VK_END, {7, 7}},         {0, VK_RIGHT, {7, 7}},
        {VK_CONTROL, VK_LEFT, {4, 4}},  {0, VK_UP, {3, 3}},          {0, VK_HOME, {0, 0}}};
    for (const auto& [held, key, expected] : keys)
    {
        Hold(held);
        Key(edit, key);
        EXPECT_EQ(Selection(edit), expected) << held << " " << key;
    }
    EXPECT_EQ(Told(), Nothing);
    EXPECT_EQ(Send(edit, WM_GETDLGCODE), DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS);
}

TEST_F(EditTest, TheClipboardCarriesTextAndThePasteEndsWithTheLine)
{
    HWND edit = Make(0, _T("hello"));
    Send(edit, EM_SETSEL, 0, 2);
    Send(edit, WM_COPY);
    EXPECT_EQ(Told(), Nothing);
    Send(edit, EM_SETSEL, 5, 5);
    Send(edit, WM_COPY);  // nothing selected: the clipboard stays
    Send(edit, WM_PASTE);
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(TextOf(edit), _T("hellohe"));
    Send(edit, EM_SETSEL, 0, 5);
    Send(edit, WM_CUT);
    EXPECT_EQ(Told(), Changed);
    HWND number = Make(ES_NUMBER);
    Send(number, WM_PASTE);
    EXPECT_EQ(TextOf(number), _T("hello"));

    SetWindowTextW(edit, _T("12\r\n34"));
    Send(edit, EM_SETSEL, 0, -1);
    Type(edit, _T("\x03"));
    Send(number, EM_SETSEL, 0, -1);
    Type(number, _T("\x16"));
    EXPECT_EQ(TextOf(number), _T("12"));
}

TEST_F(EditTest, UndoTakesBackOneStep)
{
    HWND edit = Make(0, _T("abcd"));
    EXPECT_FALSE(Send(edit, EM_CANUNDO));
    Send(edit, EM_SETSEL, 1, 3);
    Send(edit, WM_CLEAR);
    EXPECT_TRUE(Send(edit, EM_CANUNDO));
    Told();
    EXPECT_TRUE(Send(edit, EM_UNDO));
    EXPECT_EQ(TextOf(edit), _T("abcd"));
    EXPECT_EQ(Selection(edit), (std::pair{1, 3}));
    EXPECT_EQ(Told().back(), EN_CHANGE);
    Send(edit, EM_UNDO);
    EXPECT_EQ(TextOf(edit), _T("ad"));

    SetWindowTextW(edit, _T("x"));
    EXPECT_FALSE(Send(edit, EM_CANUNDO));
    Type(edit, _T("12"));
    Send(edit, EM_UNDO);
    EXPECT_EQ(TextOf(edit), _T("x"));
    Type(edit, _T("3"));
    Send(edit, EM_REPLACESEL, FALSE, _T("4"));
    EXPECT_FALSE(Send(edit, EM_CANUNDO));
    EXPECT_TRUE(Send(edit, EM_UNDO));
    EXPECT_EQ(TextOf(edit), _T("34x"));
}

TEST_F(EditTest, ReadingNeverGoesPastTheBuffer)
{
    HWND edit = Make(0, _T("abcd"));
    TCHAR buffer[6];
    for (int size = 0; size <= 6; ++size)
    {
        std::fill(std::begin(buffer), std::end(buffer), _T('#'));
        int length = size == 0 ? 0 : std::min(size - 1, 4);
        EXPECT_EQ(Send(edit, WM_GETTEXT, static_cast<WPARAM>(size), buffer), length);
        Text expected = Text(_T("abcd")).substr(0, static_cast<size_t>(length)) + Text(size == 0 ? 0 : 1, 0);
        EXPECT_EQ(Text(buffer, 6), expected + Text(6 - expected.size(), _T('#'))) << size;
    }
}

TEST_F(EditTest, FocusIsTold)
{
    HWND edit = Make(0, _T("abc"));
    SetFocus(edit);
    EXPECT_EQ(Told(), (Codes{EN_SETFOCUS}));
    Send(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 3));
    Send(edit, WM_LBUTTONUP, 0, MAKELPARAM(1, 3));
    EXPECT_EQ(Selection(edit), (std::pair{0, 0}));
    SetFocus(Parent());
    EXPECT_EQ(Told(), (Codes{EN_KILLFOCUS}));
    Send(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 3));
    EXPECT_EQ(GetFocus(), edit);
}
}  // namespace
