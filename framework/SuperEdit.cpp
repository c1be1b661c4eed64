#include "framework/SuperEdit.h"

#include <cctype>

IMPLEMENT_DYNAMIC(CSuperEdit, CEdit)

BEGIN_MESSAGE_MAP(CSuperEdit, CEdit)
    ON_WM_CHAR()
    ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

constexpr ULONGLONG NoDigit = 0xFFFFFFFF;

// isprint and tolower accept only values of one byte. Characters above that are not printable here and no
// letters.
static bool IsPrintable(WPARAM character)
{
    return character <= 0xFF && std::isprint(static_cast<int>(character)) != 0;
}

static ULONGLONG DigitValue(TCHAR character)
{
    if (character >= _T('0') && character <= _T('9'))
    {
        return static_cast<ULONGLONG>(character - _T('0'));
    }
    const int letter = character <= 0xFF ? std::tolower(character) : 0;
    return letter >= _T('a') && letter <= _T('z') ? static_cast<ULONGLONG>(letter - _T('a') + 10) : NoDigit;
}

void CSuperEdit::SetBase(BYTE nBase)
{
    m_bRestricted = true;
    const ULONGLONG number = GetNumber();
    m_nBase = nBase;
    SetNumber(number);
}

ULONGLONG CSuperEdit::GetNumber() const
{
    CString text;
    GetWindowText(text);
    ULONGLONG number = 0;
    for (int index = 0; index < text.GetLength(); ++index)
    {
        number = number * m_nBase + DigitValue(text[index]);
    }
    return number;
}

void CSuperEdit::SetNumber(ULONGLONG nNumber)
{
    TCHAR text[65] = {};  // 64 digits in base 2
    TCHAR* first = text + 64;
    do
    {
        const auto digit = static_cast<TCHAR>(nNumber % m_nBase);
        *--first = static_cast<TCHAR>(digit + (digit < 10 ? _T('0') : _T('A') - 10));
        nNumber /= m_nBase;
    } while (nNumber != 0);
    SetWindowText(first);
}

bool CSuperEdit::IsValidDigit(TCHAR character) const
{
    return DigitValue(character) < m_nBase;
}

void CSuperEdit::OnChar(UINT nChar, UINT, UINT)
{
    if (!m_bRestricted || !IsPrintable(nChar) || IsValidDigit(static_cast<TCHAR>(nChar)))
    {
        Default();
        return;
    }
    MessageBeep(static_cast<UINT>(-1));
}

// Requests the characters that OnChar checks, so that the dialog does not treat them as mnemonics.
UINT CSuperEdit::OnGetDlgCode()
{
    const UINT code = static_cast<UINT>(Default());
    const auto* message = reinterpret_cast<const MSG*>(GetCurrentMessage()->lParam);
    const bool wanted =
        m_bRestricted && message != nullptr && message->message == WM_CHAR && IsPrintable(message->wParam);
    return wanted ? code | DLGC_WANTCHARS : code;
}
