#include "support/controls.h"

namespace
{
class ListTest : public ControlTest
{
protected:
    const Codes Changed = {LBN_SELCHANGE};
    const Codes Nothing = {};

    HWND Make(const std::vector<LPCTSTR>& items, DWORD style = LBS_NOTIFY) const
    {
        HWND list = ControlTest::Make(_T("LISTBOX"), style);
        for (LPCTSTR item : items)
        {
            Send(list, LB_ADDSTRING, 0, item);
        }
        return list;
    }

    static LRESULT Selected(HWND list) { return Send(list, LB_GETCURSEL); }

    static std::vector<Text> Items(HWND list)
    {
        std::vector<Text> items;
        for (LRESULT index = 0; index < Send(list, LB_GETCOUNT); ++index)
        {
            Text text(static_cast<size_t>(Send(list, LB_GETTEXTLEN, static_cast<WPARAM>(index))), 0);
            Send(list, LB_GETTEXT, static_cast<WPARAM>(index), text.data());
            items.push_back(text);
        }
        return items;
    }

    // The middle of an item, also of one that is not there.
    static LPARAM PlaceOf(HWND list, int index)
    {
        auto height = static_cast<int>(Send(list, LB_GETITEMHEIGHT));
        return MAKELPARAM(5, height * index + height / 2);
    }
};

TEST_F(ListTest, ContentsAndSelectionMoveTogether)
{
    HWND list = Make({_T("beta"), _T("Alpha"), _T("gamma")});
    EXPECT_EQ(Selected(list), LB_ERR);
    EXPECT_EQ(Send(list, LB_ADDSTRING, 0, _T("delta")), 3);
    EXPECT_EQ(Send(list, LB_SETCURSEL, 1), 1);
    EXPECT_EQ(Send(list, LB_INSERTSTRING, 0, _T("first")), 0);
    EXPECT_EQ(Selected(list), 2);
    EXPECT_EQ(Send(list, LB_INSERTSTRING, static_cast<WPARAM>(-1), _T("last")), 5);
    EXPECT_EQ(Send(list, LB_INSERTSTRING, 7, _T("none")), LB_ERR);
    EXPECT_EQ(Items(list), (std::vector<Text>{_T("first"), _T("beta"), _T("Alpha"), _T("gamma"), _T("delta"),
                                              _T("last")}));
    EXPECT_EQ(Send(list, LB_SETITEMDATA, 2, 77), TRUE);
    EXPECT_EQ(Send(list, LB_DELETESTRING, 0), 5);
    EXPECT_EQ(Selected(list), 1);
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 1), 77);
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 0), 0);
    EXPECT_EQ(Send(list, LB_DELETESTRING, 4), 4);
    EXPECT_EQ(Selected(list), 1);
    EXPECT_EQ(Send(list, LB_DELETESTRING, 1), 3);
    EXPECT_EQ(Selected(list), LB_ERR);
    for (WPARAM index : {WPARAM{3}, static_cast<WPARAM>(-1)})
    {
        TCHAR buffer[] = _T("#");
        EXPECT_EQ(Send(list, LB_DELETESTRING, index), LB_ERR);
        EXPECT_EQ(Send(list, LB_GETTEXTLEN, index), LB_ERR);
        EXPECT_EQ(Send(list, LB_GETTEXT, index, buffer), LB_ERR);
        EXPECT_EQ(Send(list, LB_GETITEMDATA, index), LB_ERR);
        EXPECT_EQ(Send(list, LB_SETITEMDATA, index), LB_ERR);
    }
    Send(list, LB_SETCURSEL, 0);
    Send(list, LB_RESETCONTENT);
    EXPECT_EQ(Send(list, LB_GETCOUNT), 0);
    EXPECT_EQ(Selected(list), LB_ERR);
    EXPECT_EQ(Send(list, LB_SETCURSEL, 0), LB_ERR);
    EXPECT_EQ(Told(), Nothing);
    EXPECT_EQ(Send(list, WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

TEST_F(ListTest, ASelectionOutOfRangeIsRefusedAndMinusOneDropsIt)
{
    HWND list = Make({_T("a"), _T("b")});
    Send(list, LB_SETCURSEL, 1);
    EXPECT_EQ(Send(list, LB_SETCURSEL, 2), LB_ERR);
    EXPECT_EQ(Send(list, LB_SETCURSEL, 99), LB_ERR);
    EXPECT_EQ(Selected(list), 1);
    EXPECT_EQ(Send(list, LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
    EXPECT_EQ(Selected(list), LB_ERR);
    EXPECT_EQ(Told(), Nothing);
}

TEST_F(ListTest, FindingGoesRoundWithoutCase)
{
    HWND list = Make({_T("beta"), _T("Alpha"), _T("alphabet"), _T("alpha")});
    auto none = static_cast<WPARAM>(-1);
    EXPECT_EQ(Send(list, LB_FINDSTRINGEXACT, none, _T("ALPHA")), 1);
    EXPECT_EQ(Send(list, LB_FINDSTRINGEXACT, 1, _T("alpha")), 3);
    EXPECT_EQ(Send(list, LB_FINDSTRINGEXACT, 3, _T("alpha")), 1);
    EXPECT_EQ(Send(list, LB_FINDSTRINGEXACT, 0, _T("beta")), 0);
    EXPECT_EQ(Send(list, LB_FINDSTRINGEXACT, none, _T("alph")), LB_ERR);
    EXPECT_EQ(Send(list, LB_FINDSTRING, 1, _T("ALPH")), 2);
    EXPECT_EQ(Send(list, LB_SELECTSTRING, 1, _T("al")), 2);
    EXPECT_EQ(Selected(list), 2);
    EXPECT_EQ(Send(list, LB_SELECTSTRING, none, _T("x")), LB_ERR);
    EXPECT_EQ(Selected(list), 2);
}

TEST_F(ListTest, ASortedListPutsWhatIsAddedInItsPlace)
{
    HWND list = Make({_T("beta"), _T("Alpha"), _T("gamma"), _T("alibi")}, LBS_SORT);
    EXPECT_EQ(Send(list, LB_INSERTSTRING, 0, _T("zeta")), 0);
    EXPECT_EQ(Items(list),
              (std::vector<Text>{_T("zeta"), _T("alibi"), _T("Alpha"), _T("beta"), _T("gamma")}));
}

TEST_F(ListTest, KeysChooseAndTell)
{
    HWND list = Make({_T("aa"), _T("bb"), _T("cc"), _T("ba")});
    struct
    {
        int key;
        LRESULT expected;
    } const keys[] = {{VK_DOWN, 0}, {VK_DOWN, 1}, {VK_UP, 0},    {VK_UP, 0},  {VK_END, 3},
                      {VK_DOWN, 3}, {VK_HOME, 0}, {VK_RIGHT, 1}, {VK_LEFT, 0}};
    for (const auto& [key, expected] : keys)
    {
        Key(list, key);
        EXPECT_EQ(Selected(list), expected) << key;
        EXPECT_EQ(Told(), Changed) << key;
    }
    Type(list, _T("b"));
    EXPECT_EQ(Selected(list), 1);
    Type(list, _T("B"));
    EXPECT_EQ(Selected(list), 3);
    EXPECT_EQ(Told(), (Codes{LBN_SELCHANGE, LBN_SELCHANGE}));
    Type(list, _T("x"));
    Key(list, VK_SPACE);
    Key(list, VK_RETURN);
    EXPECT_EQ(Told(), Nothing);

    // Without a selection the first key selects where the caret was left.
    for (int key : {VK_UP, VK_DOWN, VK_END})
    {
        Send(list, LB_SETCURSEL, 1);
        Send(list, LB_SETCURSEL, static_cast<WPARAM>(-1));
        Key(list, key);
        EXPECT_EQ(Selected(list), 1) << key;
    }
    Send(list, LB_RESETCONTENT);
    Told();
    Key(list, VK_DOWN);
    EXPECT_EQ(Told(), Nothing);

    HWND silent = Make({_T("a"), _T("b")}, 0);
    Key(silent, VK_DOWN);
    EXPECT_EQ(Selected(silent), 0);
    EXPECT_EQ(Told(), Nothing);
}

TEST_F(ListTest, TheMouseChoosesWhenItsButtonComesUp)
{
    HWND list = Make({_T("a"), _T("b")});
    SetFocus(list);
    EXPECT_EQ(Told(), (Codes{LBN_SETFOCUS}));
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, PlaceOf(list, 0));
    EXPECT_EQ(Selected(list), 0);
    Send(list, WM_MOUSEMOVE, MK_LBUTTON, PlaceOf(list, 1));
    EXPECT_EQ(Told(), Nothing);
    Send(list, WM_LBUTTONUP, 0, PlaceOf(list, 1));
    EXPECT_EQ(Selected(list), 1);
    EXPECT_EQ(Told(), Changed);
    EXPECT_EQ(GetCapture(), nullptr);
    Send(list, WM_LBUTTONDBLCLK, MK_LBUTTON, PlaceOf(list, 1));
    Send(list, WM_LBUTTONUP, 0, PlaceOf(list, 1));
    EXPECT_EQ(Told(), (Codes{LBN_DBLCLK}));
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, PlaceOf(list, 2));
    Send(list, WM_LBUTTONUP, 0, PlaceOf(list, 2));
    EXPECT_EQ(Selected(list), 1);
    EXPECT_EQ(Told(), Nothing);
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, PlaceOf(list, 0));
    SetFocus(Parent());
    EXPECT_EQ(Told(), (Codes{LBN_SELCHANGE, LBN_KILLFOCUS}));
}

TEST_F(ListTest, TheSelectionIsBroughtIntoView)
{
    HWND list = Make({});
    for (int count = 0; count < 50; ++count)
    {
        Send(list, LB_ADDSTRING, 0, _T("item"));
    }
    RECT client = {};
    GetClientRect(list, &client);
    for (WPARAM index : {WPARAM{49}, WPARAM{0}, WPARAM{20}})
    {
        Send(list, LB_SETCURSEL, index);
        RECT item = {};
        Send(list, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&item));
        EXPECT_GE(item.top, 0) << index;
        EXPECT_LE(item.bottom, client.bottom) << index;
    }
    Send(list, LB_SETTOPINDEX, 10);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 10);
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, PlaceOf(list, 1));
    Send(list, WM_LBUTTONUP, 0, PlaceOf(list, 1));
    EXPECT_EQ(Selected(list), 11);
}

class ComboTest : public ControlTest
{
protected:
    const Codes Chosen = {CBN_SELENDOK, CBN_SELCHANGE};
    const Codes Nothing = {};

    HWND Make(const std::vector<LPCTSTR>& items) const
    {
        HWND combo = ControlTest::Make(_T("COMBOBOX"), CBS_DROPDOWNLIST, _T("title"));
        for (LPCTSTR item : items)
        {
            Send(combo, CB_ADDSTRING, 0, item);
        }
        return combo;
    }

    static LRESULT Selected(HWND combo) { return Send(combo, CB_GETCURSEL); }
};

TEST_F(ComboTest, TheTextIsThatOfTheSelection)
{
    HWND combo = Make({_T("beta"), _T("Alpha"), _T("gamma"), _T("alpha two")});
    EXPECT_EQ(TextOf(combo), _T(""));
    EXPECT_EQ(Send(combo, CB_SETCURSEL, 1), 1);
    EXPECT_EQ(TextOf(combo), _T("Alpha"));
    SetWindowTextW(combo, _T("gamma"));
    EXPECT_EQ(Selected(combo), 1);
    EXPECT_EQ(Send(combo, CB_INSERTSTRING, 0, _T("first")), 0);
    EXPECT_EQ(Selected(combo), 2);
    EXPECT_EQ(Send(combo, CB_SELECTSTRING, static_cast<WPARAM>(-1), _T("GA")), 3);
    EXPECT_EQ(TextOf(combo), _T("gamma"));
    EXPECT_EQ(Send(combo, CB_DELETESTRING, 3), 4);
    EXPECT_EQ(Selected(combo), CB_ERR);
    EXPECT_EQ(TextOf(combo), _T(""));
    Send(combo, CB_SETCURSEL, 0);
    EXPECT_EQ(Send(combo, CB_SETCURSEL, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(TextOf(combo), _T(""));
    Send(combo, CB_SETCURSEL, 0);
    Send(combo, CB_RESETCONTENT);
    EXPECT_EQ(Send(combo, CB_GETCOUNT), 0);
    EXPECT_EQ(TextOf(combo), _T(""));
    EXPECT_EQ(Send(combo, CB_SETCURSEL, 0), CB_ERR);
    EXPECT_EQ(Told(), Nothing);
}

TEST_F(ComboTest, ItemsAreReadAndFound)
{
    HWND combo = Make({_T("beta"), _T("Alpha"), _T("alpha two"), _T("alpha")});
    TCHAR buffer[] = _T("##########");
    EXPECT_EQ(Send(combo, CB_GETLBTEXTLEN, 2), 9);
    EXPECT_EQ(Send(combo, CB_GETLBTEXT, 2, buffer), 9);
    EXPECT_EQ(Text(buffer), _T("alpha two"));
    Send(combo, CB_SETITEMDATA, 2, 5);
    EXPECT_EQ(Send(combo, CB_GETITEMDATA, 2), 5);
    for (WPARAM index : {WPARAM{4}, static_cast<WPARAM>(-1)})
    {
        EXPECT_EQ(Send(combo, CB_GETLBTEXTLEN, index), CB_ERR);
        EXPECT_EQ(Send(combo, CB_GETLBTEXT, index, buffer), CB_ERR);
        EXPECT_EQ(Send(combo, CB_GETITEMDATA, index), CB_ERR);
        EXPECT_EQ(Send(combo, CB_DELETESTRING, index), CB_ERR);
    }
    struct
    {
        int after;
        LPCTSTR text;
        LRESULT expected;
    } const searches[] = {{-1, _T("ALPHA"), 1}, {1, _T("alpha"), 3},  {3, _T("Alpha"), 1},
                          {0, _T("beta"), 0},   {-1, _T("alph"), -1}, {-1, _T("alpha t"), -1},
                          {-1, _T(""), -1}};
    for (const auto& [after, text, expected] : searches)
    {
        EXPECT_EQ(Send(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(after), text), expected) << after;
    }
    EXPECT_EQ(Send(combo, CB_FINDSTRING, 1, _T("ALPH")), 2);
}

TEST_F(ComboTest, KeysOnTheClosedListChoose)
{
    HWND combo = Make({_T("aa"), _T("bb"), _T("cc")});
    SetFocus(combo);
    EXPECT_EQ(Told(), (Codes{CBN_SETFOCUS}));
    struct
    {
        int key;
        LPCTSTR expected;
    } const keys[] = {{VK_DOWN, _T("aa")}, {VK_DOWN, _T("bb")}, {VK_UP, _T("aa")},  {VK_UP, _T("aa")},
                      {VK_END, _T("cc")},  {VK_DOWN, _T("cc")}, {VK_HOME, _T("aa")}};
    for (const auto& [key, expected] : keys)
    {
        Key(combo, key);
        EXPECT_EQ(TextOf(combo), expected) << key;
        EXPECT_EQ(Told(), Chosen) << key;
    }
    Type(combo, _T("B"));
    EXPECT_EQ(Selected(combo), 1);
    EXPECT_EQ(Told(), Chosen);
    Type(combo, _T("x\r\x1b"));
    Key(combo, VK_RETURN);
    Key(combo, VK_ESCAPE);
    Send(combo, CB_SHOWDROPDOWN, FALSE);
    EXPECT_EQ(Told(), Nothing);
    Send(combo, CB_RESETCONTENT);
    Key(combo, VK_DOWN);
    EXPECT_EQ(Told(), Nothing);
    SetFocus(Parent());
    EXPECT_EQ(Told(), (Codes{CBN_SELENDCANCEL, CBN_KILLFOCUS}));
}

TEST_F(ComboTest, TheOpenListTellsHowItCloses)
{
    HWND combo = Make({_T("aa"), _T("bb"), _T("cc")});
    Send(combo, CB_SETCURSEL, 0);
    SetFocus(combo);
    Told();
    auto open = [&]
    {
        EXPECT_TRUE(Send(combo, CB_SHOWDROPDOWN, TRUE));
        EXPECT_TRUE(Send(combo, CB_GETDROPPEDSTATE));
        EXPECT_EQ(Told(), (Codes{CBN_DROPDOWN}));
    };
    MSG enter = {};
    enter.hwnd = combo;
    enter.message = WM_KEYDOWN;
    enter.wParam = VK_RETURN;
    auto wantsEnter = [&] {
        return (Send(combo, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter)) & DLGC_WANTMESSAGE) !=
               0;
    };
    EXPECT_FALSE(wantsEnter());
    open();
    EXPECT_TRUE(wantsEnter());
    EXPECT_EQ(Send(combo, WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    Send(combo, CB_SHOWDROPDOWN, TRUE);
    EXPECT_EQ(Told(), Nothing);
    Key(combo, VK_DOWN);
    EXPECT_EQ(Told(), (Codes{CBN_SELCHANGE}));
    Key(combo, VK_RETURN);
    EXPECT_FALSE(Send(combo, CB_GETDROPPEDSTATE));
    EXPECT_EQ(Told(), (Codes{CBN_SELENDOK, CBN_CLOSEUP}));

    const Codes cancelled = {CBN_SELENDCANCEL, CBN_CLOSEUP};
    open();
    Key(combo, VK_ESCAPE);
    EXPECT_EQ(Told(), cancelled);
    open();
    Send(combo, CB_SHOWDROPDOWN, FALSE);
    EXPECT_EQ(Told(), cancelled);
    Key(combo, VK_F4);
    Key(combo, VK_F4);
    EXPECT_EQ(Told(), (Codes{CBN_DROPDOWN, CBN_SELENDCANCEL, CBN_CLOSEUP}));
    Send(combo, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    Send(combo, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(Told(), (Codes{CBN_DROPDOWN}));
    SetFocus(Parent());
    EXPECT_EQ(Told(), (Codes{CBN_SELENDCANCEL, CBN_CLOSEUP, CBN_KILLFOCUS}));
    EXPECT_EQ(Selected(combo), 1);
}

TEST_F(ComboTest, TheClosedControlIsOneLineHigh)
{
    HWND combo = Make({});
    RECT rect = {};
    GetWindowRect(combo, &rect);
    EXPECT_LT(rect.bottom - rect.top, 30);
    EXPECT_EQ(rect.right - rect.left, 100);
}
}  // namespace
