#include "afxstr.h"

#include <cstdarg>

void CString::Format(LPCTSTR format, ...)
{
    TCHAR buffer[512];
    std::va_list arguments;
    va_start(arguments, format);
    _vsntprintf(buffer, 512, format, arguments);
    va_end(arguments);
    buffer[511] = 0;
    m_text = buffer;
}
