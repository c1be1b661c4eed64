#include "afxwin.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(UINT nMessage, UINT nCode, UINT nID) const
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry)
        {
            if (entry->nMessage == nMessage && entry->nCode == nCode && nID >= entry->nID &&
                nID <= entry->nLastID)
            {
                return entry;
            }
        }
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, UINT nCode)
{
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(WM_COMMAND, nCode, nID);
    if (entry == nullptr)
    {
        return FALSE;
    }
    entry->pfn(this, nID, 0);
    return TRUE;
}
