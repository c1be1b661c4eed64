#include "mausb/ToolKey.h"

const WideString& ToolKey()
{
    static const WideString key = []
    {
        WideString path;
        MakeProductKeyPath(path, KauriQB);
        return path;
    }();
    return key;
}
