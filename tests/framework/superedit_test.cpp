// The edit with a number base: the text that it shows, the number that any text stands for, and the keys that
// it rejects.
#include "framework/SuperEdit.h"
#include "support/calls.h"
#include "support/scripts.h"

namespace
{
// An edit in a window without a dialog.
class TrialEdit : public CSuperEdit
{
public:
    explicit TrialEdit(BYTE base)
    {
        SubclassWindow(CreateWindowExW(0, _T("EDIT"), _T(""), WS_POPUP | ES_AUTOHSCROLL, 0, 0, 100, 60,
                                       nullptr, nullptr, nullptr, nullptr));
        SetBase(base);
        EXPECT_EQ(Shown(), _T("0"));
    }

    Text Shown() const { return Form(m_hWnd).Title(); }
};
}  // namespace

TEST(SuperEditTest, ShowsNumbersInItsBaseAndMakesOneOfAnyText)
{
    constexpr ULONGLONG none = 0xFFFFFFFF;  // counts for a character that is no digit in any base
    const std::tuple<BYTE, Text, ULONGLONG, bool> cases[] = {
        {36, _T("ZA"), 35 * 36 + 10, true},
        {16, Text(16, _T('F')), ~0ULL, true},
        {2, _T("1") + Text(63, _T('0')), 1ULL << 63, true},
        {16, _T(""), 0, false},
        {16, _T("00aFf"), 0xAFF, false},
        {16, _T("1G"), 16 + 16, false},
        {16, _T("`{@["), ((none * 16 + none) * 16 + none) * 16 + none, false},
        {16, _T("/:"), none * 17, false},
        {16, _T("\xE9"), none, false},
        {16, _T("\x0661"), none, false},
        {10, _T("18446744073709551617"), 1, false}};
    for (const auto& [base, text, number, isShownSo] : cases)
    {
        TrialEdit edit(base);
        edit.SetWindowText(text.c_str());
        EXPECT_EQ(edit.GetNumber(), number) << Printable(text);
        edit.SetNumber(number);
        EXPECT_EQ(edit.Shown() == text, isShownSo) << Printable(edit.Shown());
    }
}

TEST(SuperEditTest, BeepsAtKeysThatAreNoDigits)
{
    // Control characters and characters beyond ASCII are not checked.
    const std::tuple<BYTE, Text, Text, size_t> cases[] = {{16, _T("0/9:@aAfFgG`zZ -x"), _T("09aAfF"), 11},
                                                          {10, _T("/0a9:F-"), _T("09"), 5},
                                                          {36, _T("0zZ{[9"), _T("0zZ9"), 2},
                                                          {16, _T("12\b3"), _T("13"), 0},
                                                          {16, _T("\x20AC"), _T("\x20AC"), 0}};
    for (const auto& [base, typed, text, beeps] : cases)
    {
        TrialEdit edit(base);
        edit.SetWindowText(_T(""));
        calls::Reset();
        for (const TCHAR key : typed)
        {
            SendMessageW(edit.m_hWnd, WM_CHAR, key, 1);
        }
        EXPECT_EQ(edit.Shown(), text);
        EXPECT_EQ(calls::Made("MessageBeep").size(), beeps);
    }
}
