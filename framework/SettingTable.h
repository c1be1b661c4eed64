// The row type of a page's table of numbers and flags. The rows differ in member, value name and control.
#pragma once

#include "framework/RegistryAccess.h"

#include <afxwin.h>

// One setting. CSettingsPage exchanges, reads and writes whole tables in the order of their rows.
template <class PageType>
struct NumberSetting
{
    using Page = PageType;
    using Member = int Page::*;

    Member member;
    WideString name;  // of the REG_DWORD
    int control;
    void (*exchange)(CDataExchange*, int, int&) = DDX_Text;  // DDX_Check for a flag
};
