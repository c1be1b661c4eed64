// CString, implemented with std::basic_string.
#pragma once

#include <tchar.h>
#include <windows.h>

#include <string>

class CString
{
public:
    CString() = default;
    // A null pointer gives an empty text.
    CString(LPCTSTR text) : m_text(text != nullptr ? text : _T("")) {}

    operator LPCTSTR() const { return m_text.c_str(); }
    LPCTSTR GetString() const { return m_text.c_str(); }

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    TCHAR operator[](int index) const { return m_text[static_cast<size_t>(index)]; }

    // The index of the first character that is one of `characters`, or -1.
    int FindOneOf(LPCTSTR characters) const { return static_cast<int>(m_text.find_first_of(characters)); }
    // The index of the last `character`, or -1.
    int ReverseFind(TCHAR character) const { return static_cast<int>(m_text.rfind(character)); }
    void Truncate(int length) { m_text.resize(static_cast<size_t>(length)); }

    // Formats as the C library's printf does, up to 511 characters; a longer result is truncated.
    template <class... Arguments>
    void Format(LPCTSTR format, Arguments... arguments)
    {
        TCHAR buffer[512] = {};
        _sntprintf(buffer, 511, format, arguments...);
        m_text = buffer;
    }

    friend bool operator==(const CString& left, const CString& right) { return left.m_text == right.m_text; }

    // GetBuffer returns a buffer for `length` characters, which is valid until ReleaseBuffer truncates the
    // text at its first NUL.
    LPTSTR GetBuffer(int length)
    {
        m_text.resize(static_cast<size_t>(length));
        return m_text.data();
    }
    void ReleaseBuffer() { m_text.resize(std::char_traits<TCHAR>::length(m_text.c_str())); }

private:
    std::basic_string<TCHAR> m_text;
};
