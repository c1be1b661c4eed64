#pragma once

#include <afxwin.h>

// An edit that holds a number in a configurable base from 2 to 36. Digits above 9 are letters, displayed in
// upper case.
class CSuperEdit : public CEdit
{
    DECLARE_DYNAMIC(CSuperEdit)

public:
    // Converts the displayed number to the new base. From then on, typed characters that are not digits of
    // that base are rejected.
    void SetBase(BYTE nBase);

    // The text as a number; 0 if it is empty. Pasted text is not filtered: a character that is not a digit
    // counts as 0xFFFFFFFF, and a number of more than 64 bits wraps.
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
