// The measures and looks of the system: those of a plain screen at 96 dpi.
#include <utility>

#include "fault.h"
#include "tchar.h"
#include "window.h"

using namespace headless;

namespace
{
constexpr LONG ScreenWidth = 1280;
constexpr LONG ScreenHeight = 1024;
constexpr LONG CaptionHeight = 19;
constexpr LONG DialogFrame = 3;
constexpr LONG SizingFrame = 4;

LOGFONTW MessageFont()
{
    LOGFONTW font = {};
    font.lfHeight = -11;
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    _tcscpy(font.lfFaceName, u"MS Shell Dlg");
    return font;
}

bool Has(DWORD style, DWORD bits)
{
    return (style & bits) == bits;
}
}  // namespace

int WINAPI GetSystemMetrics(int index)
{
    switch (index)
    {
    case SM_CXSCREEN:
    case SM_CXVIRTUALSCREEN:
        return ScreenWidth;
    case SM_CYSCREEN:
    case SM_CYVIRTUALSCREEN:
        return ScreenHeight;
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CXSMICON:
    case SM_CYSMICON:
        return 16;
    case SM_CYCAPTION:
    case SM_CYMENU:
        return CaptionHeight;
    case SM_CXBORDER:
    case SM_CYBORDER:
        return 1;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return 2;
    case SM_CXDLGFRAME:
    case SM_CYDLGFRAME:
        return DialogFrame;
    case SM_CXFRAME:
    case SM_CYFRAME:
    case SM_CXDOUBLECLK:
    case SM_CYDOUBLECLK:
        return SizingFrame;
    case SM_CXICON:
    case SM_CYICON:
        return 32;
    default:
        return 0;
    }
}

BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle)
{
    LONG border = 0;
    if (Has(style, WS_THICKFRAME))
    {
        border = SizingFrame;
    }
    else if (Has(style, WS_DLGFRAME) || Has(exStyle, WS_EX_DLGMODALFRAME))
    {
        border = DialogFrame;
    }
    else if (Has(style, WS_BORDER) || Has(exStyle, WS_EX_STATICEDGE))
    {
        border = 1;
    }
    border += Has(exStyle, WS_EX_CLIENTEDGE) ? GetSystemMetrics(SM_CXEDGE) : 0;
    InflateRect(rect, border, border);
    rect->top -= (Has(style, WS_CAPTION) ? CaptionHeight : 0) + (menu ? CaptionHeight : 0);
    return TRUE;
}

BOOL WINAPI SystemParametersInfoW(UINT action, UINT, PVOID data, UINT)
{
    switch (action)
    {
    case SPI_GETWORKAREA:
        *static_cast<RECT*>(data) = {0, 0, ScreenWidth, ScreenHeight};
        return TRUE;
    case SPI_GETKEYBOARDCUES:
        *static_cast<BOOL*>(data) = TRUE;
        return TRUE;
    case SPI_GETNONCLIENTMETRICS:
    {
        auto& metrics = *static_cast<NONCLIENTMETRICSW*>(data);
        const UINT size = metrics.cbSize;
        metrics = {};
        metrics.cbSize = size;
        metrics.iBorderWidth = 1;
        metrics.iCaptionHeight = CaptionHeight - 1;
        metrics.lfCaptionFont = MessageFont();
        metrics.lfSmCaptionFont = MessageFont();
        metrics.lfMenuFont = MessageFont();
        metrics.lfStatusFont = MessageFont();
        metrics.lfMessageFont = MessageFont();
        return TRUE;
    }
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
}

UINT WINAPI GetDpiForSystem()
{
    return 96;
}

BOOL WINAPI MessageBeep(UINT)
{
    DWORD error = 0;
    if (TakeFault("MessageBeep", &error))
    {
        SetLastError(error);
        return FALSE;
    }
    return TRUE;
}

namespace
{
// A pointer below 64K is a character itself.
LPWSTR ConvertText(LPWSTR text, _TINT (*convert)(_TINT))
{
    if (IS_INTRESOURCE(text))
    {
        return MAKEINTRESOURCEW(convert(static_cast<_TINT>(reinterpret_cast<ULONG_PTR>(text))));
    }
    for (LPWSTR at = text; *at != 0; ++at)
    {
        *at = static_cast<WCHAR>(convert(*at));
    }
    return text;
}
}  // namespace

LPWSTR WINAPI CharLowerW(LPWSTR text)
{
    return ConvertText(text, _totlower);
}
