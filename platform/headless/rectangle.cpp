// Arithmetic on rectangles. The right and bottom edges lie outside.

#include "windows.h"

BOOL WINAPI OffsetRect(LPRECT rect, int x, int y)
{
    *rect = {rect->left + x, rect->top + y, rect->right + x, rect->bottom + y};
    return TRUE;
}

BOOL WINAPI InflateRect(LPRECT rect, int x, int y)
{
    *rect = {rect->left - x, rect->top - y, rect->right + x, rect->bottom + y};
    return TRUE;
}

BOOL WINAPI PtInRect(const RECT* rect, POINT point)
{
    return point.x >= rect->left && point.x < rect->right && point.y >= rect->top && point.y < rect->bottom;
}
