// The registry key of the MAUSB tool. All its pages share the key but no value names.
#pragma once

#include "framework/ProductId.h"

// "SOFTWARE\Halvane\KauriQB"
inline const WideString& ToolKey()
{
    static const WideString key = [] {
        WideString path;
        MakeProductKeyPath(path, KauriQB);
        return path;
    }();
    return key;
}
