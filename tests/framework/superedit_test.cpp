// An edit that holds a number in a base: what it shows, what it makes of a text, which keys it refuses.
#include "framework/SuperEdit.h"

#include "support/controls.h"

namespace
{
class SuperEditTest : public ControlTest
{
protected:
    using Text = ControlTest::Text;

    // An edit with a text, in a base but 0, which leaves it as it comes up.
    HWND Attach(CSuperEdit& edit, LPCTSTR text, BYTE base = 0) const
    {
        const HWND window = Make(_T("EDIT"), ES_AUTOHSCROLL, text);
        edit.SubclassWindow(window);
        if (base != 0)
        {
            edit.SetBase(base);
        }
        return window;
    }

    // What the dialog's question for codes is answered, asked about a message if there is one.
    static LRESULT DialogCode(HWND window, UINT message = 0, WPARAM wParam = 0)
    {
        MSG asked = {};
        asked.message = message;
        asked.wParam = wParam;
        return Send(window, WM_GETDLGCODE, wParam, message != 0 ? reinterpret_cast<LPARAM>(&asked) : 0);
    }
};
}  // namespace

TEST_F(SuperEditTest, ShowsNumbersInItsBase)
{
    struct Case
    {
        BYTE base;
        ULONGLONG number;
        LPCTSTR text;
    };
    const Case cases[] = {
        {16, 0x506F9A, _T("506F9A")},
        {16, 0, _T("0")},
        {2, 0, _T("0")},
        {10, 1234567890123456789, _T("1234567890123456789")},
        {36, 35 * 36 + 10, _T("ZA")},
        {16, ~0ULL, _T("FFFFFFFFFFFFFFFF")},
        {2, 1ULL << 63, _T("1000000000000000000000000000000000000000000000000000000000000000")},
        {8, 0777, _T("777")}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.number << " in base " << unsigned{c.base});
        CSuperEdit edit;
        const HWND window = Attach(edit, _T(""), c.base);
        EXPECT_EQ(TextOf(window), _T("0"));
        edit.SetNumber(c.number);
        EXPECT_EQ(TextOf(window), c.text);
        EXPECT_EQ(edit.GetNumber(), c.number);
    }
}

TEST_F(SuperEditTest, MakesANumberOfAnyText)
{
    struct Case
    {
        BYTE base;
        LPCTSTR text;
        ULONGLONG number;
    };
    constexpr ULONGLONG none = 0xFFFFFFFF;  // what a character counts that is no digit anywhere
    const Case cases[] = {{16, _T(""), 0},
                          {16, _T("ff"), 255},
                          {16, _T("Ff"), 255},
                          {16, _T("00a"), 10},
                          {16, _T("z"), 35},
                          {16, _T("1G"), 16 + 16},
                          {10, _T("1a"), 10 + 10},
                          {16, _T("-1"), none * 16 + 1},
                          {16, _T("1 "), 16 + none},
                          {16, _T("`{@["), ((none * 16 + none) * 16 + none) * 16 + none},
                          {16, _T("\xE9"), none},
                          {16, _T("\x0661"), none},
                          {16, _T("123456789ABCDEF01"), 0x23456789ABCDEF01},
                          {10, _T("18446744073709551617"), 1}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << "of " << c.number << " in base " << unsigned{c.base});
        CSuperEdit edit;
        const HWND window = Attach(edit, _T(""), c.base);
        SetWindowTextW(window, c.text);
        EXPECT_EQ(edit.GetNumber(), c.number);
        EXPECT_EQ(TextOf(window), c.text);
    }
}

TEST_F(SuperEditTest, ChangeOfBaseKeepsTheNumber)
{
    CSuperEdit edit;
    const HWND window = Attach(edit, _T("255"));
    Told();
    edit.SetBase(16);
    EXPECT_EQ(TextOf(window), _T("FF"));
    EXPECT_EQ(Told(), (Codes{EN_UPDATE, EN_CHANGE}));
    edit.SetBase(2);
    EXPECT_EQ(TextOf(window), _T("11111111"));
    edit.SetBase(10);
    EXPECT_EQ(TextOf(window), _T("255"));
}

TEST_F(SuperEditTest, RefusesKeysThatAreNoDigits)
{
    struct Case
    {
        BYTE base;
        LPCTSTR typed;
        LPCTSTR text;
    };
    const Case cases[] = {{0, _T("g -Z~"), _T("g -Z~")},
                          {16, _T("0/9:@aAfFgG`zZ -x"), _T("09aAfF")},
                          {10, _T("/0a9:F-"), _T("09")},
                          {8, _T("78"), _T("7")},
                          {2, _T("012"), _T("01")},
                          {36, _T("0zZ{[9"), _T("0zZ9")},
                          // Control characters are the edit's own, and what is beyond ASCII does not print.
                          {16, _T("12\b3"), _T("13")},
                          {16, _T("\x20AC"), _T("\x20AC")}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << "base " << unsigned{c.base});
        CSuperEdit edit;
        const HWND window = Attach(edit, _T(""), c.base);
        SetWindowTextW(window, _T(""));
        Type(window, c.typed);
        EXPECT_EQ(TextOf(window), c.text);
    }
}

TEST_F(SuperEditTest, AsksItsDialogForPrintableCharacters)
{
    // A window that wants no characters by itself, as an edit would.
    CSuperEdit control;
    const HWND window = Make(_T("STATIC"), 0);
    control.SubclassWindow(window);
    const LRESULT usual = DialogCode(window);
    EXPECT_EQ(usual & DLGC_WANTCHARS, 0);
    EXPECT_EQ(DialogCode(window, WM_CHAR, 'g'), usual);
    control.SetBase(16);
    EXPECT_EQ(DialogCode(window), usual);
    EXPECT_EQ(DialogCode(window, WM_KEYDOWN, 'G'), usual);
    EXPECT_EQ(DialogCode(window, WM_CHAR, '\t'), usual);
    // Refused or not: a letter that is no digit must not press a button by its mnemonic.
    EXPECT_EQ(DialogCode(window, WM_CHAR, 'g'), usual | DLGC_WANTCHARS);
    EXPECT_EQ(DialogCode(window, WM_CHAR, 'a'), usual | DLGC_WANTCHARS);
}
