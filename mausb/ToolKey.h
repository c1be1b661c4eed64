// Where the MAUSB tool reads its settings. All of its pages share the one key; no two share a value name.
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
