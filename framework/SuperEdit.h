#pragma once

#include <afxwin.h>

// An edit that holds a number in a base of its own, from 2 to 36. Digits above 9 are letters, shown as
// capitals.
class CSuperEdit : public CEdit
{
    DECLARE_DYNAMIC(CSuperEdit)

public:
    // Shows the edit's number in the new base, and from now on refuses keys that are no digits of it.
    void SetBase(BYTE nBase);

    // The text as a number, 0 for none. It may hold anything, because only keys are refused: a character that
    // is no digit still counts, and what passes 64 bits wraps.
    ULONGLONG GetNumber() const;
    void SetNumber(ULONGLONG nNumber);

    bool IsValidDigit(TCHAR character) const;

protected:
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();

    DECLARE_MESSAGE_MAP()

private:
    BYTE m_nBase = 10;
    bool m_bRestricted = false;
};
