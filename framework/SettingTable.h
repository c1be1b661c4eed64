// A table of a page's numbers and flags, for pages whose settings differ in member, value name and control
// only.
#pragma once

#include "framework/RegistryAccess.h"

#include <afxwin.h>

// One row. The page's own order of rows is the order of the exchange, and of reading and writing where a page
// reads and writes the whole table.
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
