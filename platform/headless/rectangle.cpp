// Arithmetic on rectangles. The right and bottom edges lie outside.
#include <algorithm>

#include "windows.h"

BOOL WINAPI IsRectEmpty(const RECT* rect)
{
    return rect->left >= rect->right || rect->top >= rect->bottom;
}

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

BOOL WINAPI IntersectRect(LPRECT target, const RECT* left, const RECT* right)
{
    const RECT both = {std::max(left->left, right->left), std::max(left->top, right->top),
                       std::min(left->right, right->right), std::min(left->bottom, right->bottom)};
    const BOOL empty = IsRectEmpty(left) || IsRectEmpty(right) || IsRectEmpty(&both);
    *target = empty ? RECT{} : both;
    return !empty;
}
