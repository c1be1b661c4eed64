// The clipboard, and the memory blocks that it is filled with: a block's handle is its address.
#include <cstdlib>
#include <map>

#include "winbase.h"
#include "winerror.h"
#include "winuser.h"

namespace
{
struct Blocks
{
    static std::map<HGLOBAL, SIZE_T>& Get()
    {
        static auto& blocks = *new std::map<HGLOBAL, SIZE_T>;
        return blocks;
    }
};

struct Clipboard
{
    static Clipboard& Get()
    {
        static auto& clipboard = *new Clipboard;
        return clipboard;
    }

    bool open = false;
    std::map<UINT, HANDLE> data;
};

Clipboard* OpenedClipboard()
{
    Clipboard& clipboard = Clipboard::Get();
    if (!clipboard.open)
    {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
        return nullptr;
    }
    return &clipboard;
}
}  // namespace

HGLOBAL WINAPI GlobalAlloc(UINT, SIZE_T size)
{
    HGLOBAL block = std::calloc(size == 0 ? 1 : size, 1);
    if (block != nullptr)
    {
        Blocks::Get()[block] = size;
    }
    return block;
}

LPVOID WINAPI GlobalLock(HGLOBAL block)
{
    return Blocks::Get().contains(block) ? block : nullptr;
}

BOOL WINAPI GlobalUnlock(HGLOBAL)
{
    SetLastError(NO_ERROR);
    return FALSE;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL block)
{
    if (Blocks::Get().erase(block) == 0)
    {
        return block;
    }
    std::free(block);
    return nullptr;
}

BOOL WINAPI OpenClipboard(HWND)
{
    Clipboard& clipboard = Clipboard::Get();
    if (clipboard.open)
    {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    clipboard.open = true;
    return TRUE;
}

BOOL WINAPI CloseClipboard()
{
    Clipboard* clipboard = OpenedClipboard();
    if (clipboard == nullptr)
    {
        return FALSE;
    }
    clipboard->open = false;
    return TRUE;
}

BOOL WINAPI EmptyClipboard()
{
    Clipboard* clipboard = OpenedClipboard();
    if (clipboard == nullptr)
    {
        return FALSE;
    }
    for (const auto& [format, block] : clipboard->data)
    {
        GlobalFree(block);
    }
    clipboard->data.clear();
    return TRUE;
}

HANDLE WINAPI SetClipboardData(UINT format, HANDLE data)
{
    Clipboard* clipboard = OpenedClipboard();
    if (clipboard == nullptr)
    {
        return nullptr;
    }
    HANDLE& stored = clipboard->data[format];
    GlobalFree(stored);
    stored = data;
    return data;
}

HANDLE WINAPI GetClipboardData(UINT format)
{
    Clipboard* clipboard = OpenedClipboard();
    if (clipboard == nullptr)
    {
        return nullptr;
    }
    auto found = clipboard->data.find(format);
    return found == clipboard->data.end() ? nullptr : found->second;
}
