// What is left of drawing where nothing is drawn: fonts as tokens, and the size of a character.
#include <set>

#include "window.h"

using namespace headless;

namespace
{
constexpr LONG CharacterWidth = 6;
constexpr LONG CharacterHeight = 13;
constexpr ULONG_PTR FirstStockObject = 0x10;

// The objects that a program made. Nothing is kept of what they were to be.
std::set<HGDIOBJ>& Objects()
{
    static auto& objects = *new std::set<HGDIOBJ>;
    return objects;
}

HDC AnyContext()
{
    return reinterpret_cast<HDC>(ULONG_PTR{1});
}
}  // namespace

HFONT WINAPI CreateFontIndirectW(const LOGFONTW*)
{
    static ULONG_PTR last = 0x100;
    auto* const font = reinterpret_cast<HFONT>(++last);
    Objects().insert(font);
    return font;
}

HGDIOBJ WINAPI GetStockObject(int object)
{
    return reinterpret_cast<HGDIOBJ>(FirstStockObject + static_cast<ULONG_PTR>(object));
}

BOOL WINAPI DeleteObject(HGDIOBJ object)
{
    return Objects().erase(object) != 0;
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

HDC WINAPI GetDC(HWND window)
{
    return window == nullptr || Resolve(window) != nullptr ? AnyContext() : nullptr;
}

int WINAPI ReleaseDC(HWND, HDC dc)
{
    return dc == AnyContext();
}
