// What holds for all standard controls.
#include "support/controls.h"

namespace
{
TEST_F(ControlTest, EveryControlKeepsItsFontAndItsParentsIds)
{
    for (LPCTSTR name : {_T("BUTTON"), _T("STATIC"), _T("EDIT"), _T("LISTBOX"), _T("COMBOBOX")})
    {
        HWND control = Make(name, name == Text(_T("COMBOBOX")) ? DWORD{CBS_DROPDOWNLIST} : 0, _T(""), 7);
        EXPECT_EQ(GetDlgItem(Parent(), 7), control);
        WPARAM font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
        Send(control, WM_SETFONT, font, TRUE);
        EXPECT_EQ(static_cast<WPARAM>(Send(control, WM_GETFONT)), font);
        DestroyWindow(control);
        EXPECT_EQ(Told(), Codes{});
    }
}

TEST_F(ControlTest, LabelsAndGroupBoxesLetTheMouseThrough)
{
    HWND label = Make(_T("STATIC"), SS_LEFT, _T("&text"));
    EXPECT_EQ(Send(label, WM_GETDLGCODE), DLGC_STATIC);
    RECT rect = {};
    GetWindowRect(label, &rect);
    LPARAM inside = MAKELPARAM(rect.left + 1, rect.top + 1);
    EXPECT_EQ(Send(label, WM_NCHITTEST, 0, inside), HTTRANSPARENT);
    Send(label, WM_LBUTTONDOWN, MK_LBUTTON);
    EXPECT_EQ(Told(), Codes{});
    EXPECT_TRUE(SetWindowTextW(label, _T("other")));
    EXPECT_EQ(TextOf(label), _T("other"));
    EXPECT_EQ(Send(Make(_T("BUTTON"), BS_GROUPBOX), WM_NCHITTEST, 0, inside), HTTRANSPARENT);

    HWND telling = Make(_T("STATIC"), SS_LEFT | SS_NOTIFY, _T("text"));
    EXPECT_EQ(Send(telling, WM_NCHITTEST, 0, inside), HTCLIENT);
    Send(telling, WM_LBUTTONDOWN, MK_LBUTTON);
    Send(telling, WM_LBUTTONDBLCLK, MK_LBUTTON);
    EnableWindow(telling, FALSE);
    EnableWindow(telling, TRUE);
    EXPECT_EQ(Told(), (Codes{STN_CLICKED, STN_DBLCLK, STN_DISABLE, STN_ENABLE}));
}
}  // namespace
