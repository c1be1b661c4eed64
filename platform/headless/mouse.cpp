// The mouse: its place, which only the program changes, and the windows under it.
#include "window.h"

using namespace headless;

namespace
{
POINT cursor = {};
}

BOOL WINAPI GetCursorPos(LPPOINT point)
{
    *point = cursor;
    return TRUE;
}

UINT WINAPI GetDoubleClickTime()
{
    return 500;
}
