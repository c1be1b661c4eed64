// The classes of the common controls.
#include "commctrl.h"
#include "control_object.h"
#include "system_classes.h"

void headless::RegisterCommonControls()
{
    RegisterToolTips();
    RegisterTabControl();
}

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes)
{
    return classes != nullptr && classes->dwSize == sizeof(*classes);
}
