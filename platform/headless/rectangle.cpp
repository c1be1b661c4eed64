// Arithmetic on rectangles. The right and bottom edges lie outside.
#include <algorithm>

#include "windows.h"

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom)
{
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT rect)
{
    *rect = {};
    return TRUE;
}

BOOL WINAPI CopyRect(LPRECT target, const RECT* source)
{
    *target = *source;
    return TRUE;
}

BOOL WINAPI IsRectEmpty(const RECT* rect)
{
    return rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL WINAPI EqualRect(const RECT* left, const RECT* right)
{
    return left->left == right->left && left->top == right->top && left->right == right->right &&
           left->bottom == right->bottom;
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

BOOL WINAPI UnionRect(LPRECT target, const RECT* left, const RECT* right)
{
    if (IsRectEmpty(left) || IsRectEmpty(right))
    {
        *target = IsRectEmpty(left) ? *right : *left;
        return !IsRectEmpty(target);
    }
    *target = {std::min(left->left, right->left), std::min(left->top, right->top),
               std::max(left->right, right->right), std::max(left->bottom, right->bottom)};
    return TRUE;
}
