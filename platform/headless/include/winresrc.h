// What resource scripts include.
#pragma once

#include "windows.h"

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif
