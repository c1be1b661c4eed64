// What is left of drawing where nothing is drawn: fonts and brushes as tokens, and the size of a text.
#include <algorithm>
#include <cstring>
#include <map>

#include "tchar.h"
#include "window.h"

using namespace headless;

namespace
{
constexpr LONG CharacterWidth = 6;
constexpr LONG CharacterHeight = 13;
constexpr ULONG_PTR FirstStockObject = 0x10;

// Objects that a program made, with what a font was asked to be; brushes have no record worth keeping.
std::map<HGDIOBJ, LOGFONTW>& Objects()
{
    static auto& objects = *new std::map<HGDIOBJ, LOGFONTW>;
    return objects;
}

HGDIOBJ NewObject(const LOGFONTW& record)
{
    static ULONG_PTR last = 0x100;
    auto* object = reinterpret_cast<HGDIOBJ>(++last);
    Objects()[object] = record;
    return object;
}

HDC AnyContext()
{
    return reinterpret_cast<HDC>(ULONG_PTR{1});
}
}  // namespace

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font)
{
    return static_cast<HFONT>(NewObject(*font));
}

HBRUSH WINAPI CreateSolidBrush(COLORREF)
{
    return static_cast<HBRUSH>(NewObject({}));
}

HBRUSH WINAPI GetSysColorBrush(int index)
{
    return reinterpret_cast<HBRUSH>(FirstStockObject + 0x40 + static_cast<ULONG_PTR>(index));
}

HGDIOBJ WINAPI GetStockObject(int object)
{
    return reinterpret_cast<HGDIOBJ>(FirstStockObject + static_cast<ULONG_PTR>(object));
}

int WINAPI GetObjectW(HANDLE object, int size, LPVOID data)
{
    LOGFONTW font = {};
    const auto found = Objects().find(object);
    if (found != Objects().end())
    {
        font = found->second;
    }
    else if (object == GetStockObject(SYSTEM_FONT) || object == GetStockObject(DEFAULT_GUI_FONT))
    {
        font.lfHeight = -11;
        font.lfWeight = FW_NORMAL;
        _tcscpy(font.lfFaceName, u"MS Shell Dlg");
    }
    else
    {
        return 0;
    }
    if (data == nullptr)
    {
        return sizeof(font);
    }
    const std::size_t copied = std::min(sizeof(font), static_cast<std::size_t>(std::max(size, 0)));
    std::memcpy(data, &font, copied);
    return static_cast<int>(copied);
}

HGDIOBJ WINAPI SelectObject(HDC, HGDIOBJ)
{
    return GetStockObject(SYSTEM_FONT);
}

BOOL WINAPI DeleteObject(HGDIOBJ object)
{
    return Objects().erase(object) != 0;
}

BOOL WINAPI GetTextExtentPoint32W(HDC, LPCWSTR, int length, LPSIZE size)
{
    *size = {CharacterWidth * length, CharacterHeight};
    return TRUE;
}

BOOL WINAPI GetTextMetricsW(HDC, LPTEXTMETRICW metrics)
{
    *metrics = {};
    metrics->tmHeight = CharacterHeight;
    metrics->tmAscent = CharacterHeight - 2;
    metrics->tmDescent = 2;
    metrics->tmAveCharWidth = CharacterWidth;
    metrics->tmMaxCharWidth = CharacterWidth;
    metrics->tmWeight = FW_NORMAL;
    return TRUE;
}

int WINAPI GetDeviceCaps(HDC, int index)
{
    return index == LOGPIXELSX || index == LOGPIXELSY ? static_cast<int>(GetDpiForSystem()) : 0;
}

COLORREF WINAPI SetTextColor(HDC, COLORREF)
{
    return RGB(0, 0, 0);
}

COLORREF WINAPI SetBkColor(HDC, COLORREF)
{
    return RGB(255, 255, 255);
}

int WINAPI SetBkMode(HDC, int)
{
    return OPAQUE;
}

HDC WINAPI GetDC(HWND window)
{
    return window == nullptr || Resolve(window) != nullptr ? AnyContext() : nullptr;
}

int WINAPI ReleaseDC(HWND, HDC dc)
{
    return dc == AnyContext();
}

HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint)
{
    *paint = {};
    paint->hdc = GetDC(window);
    return paint->hdc;
}

BOOL WINAPI EndPaint(HWND, const PAINTSTRUCT*)
{
    return TRUE;
}

int WINAPI FillRect(HDC, const RECT*, HBRUSH)
{
    return TRUE;
}

// Lines are not broken: DT_CALCRECT gives the size of one.
int WINAPI DrawTextW(HDC, LPCWSTR text, int length, LPRECT rect, UINT format)
{
    if ((format & DT_CALCRECT) != 0)
    {
        rect->right = rect->left + CharacterWidth * (length < 0 ? lstrlenW(text) : length);
        rect->bottom = rect->top + CharacterHeight;
    }
    return CharacterHeight;
}

BOOL WINAPI InvalidateRect(HWND window, const RECT*, BOOL)
{
    return window == nullptr || Resolve(window) != nullptr;
}

BOOL WINAPI ValidateRect(HWND window, const RECT*)
{
    return window == nullptr || Resolve(window) != nullptr;
}

BOOL WINAPI UpdateWindow(HWND window)
{
    return Resolve(window) != nullptr;
}

BOOL WINAPI RedrawWindow(HWND window, const RECT*, HRGN, UINT)
{
    return window == nullptr || Resolve(window) != nullptr;
}

int WINAPI SetScrollInfo(HWND, int, LPCSCROLLINFO info, BOOL)
{
    return info->nPos;
}

BOOL WINAPI GetScrollInfo(HWND, int, LPSCROLLINFO)
{
    return FALSE;
}

BOOL WINAPI ShowScrollBar(HWND window, int, BOOL)
{
    return Resolve(window) != nullptr;
}

BOOL WINAPI CreateCaret(HWND window, HBITMAP, int, int)
{
    return Resolve(window) != nullptr;
}

BOOL WINAPI DestroyCaret()
{
    return TRUE;
}

BOOL WINAPI SetCaretPos(int, int)
{
    return TRUE;
}

BOOL WINAPI ShowCaret(HWND)
{
    return TRUE;
}

BOOL WINAPI HideCaret(HWND)
{
    return TRUE;
}
