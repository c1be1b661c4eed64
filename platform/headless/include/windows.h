// Everything of Win32 that has no header to be named for itself. The resource compiler wants the constants
// only.
#pragma once

#ifdef RC_INVOKED
#include "winnt.h"
#include "winver.h"
#else
#include "winbase.h"
#include "windef.h"
#include "winerror.h"
#include "wingdi.h"
#include "winreg.h"
#endif
#include "winuser.h"
