// Has this program's calls of a system function go to one of the test's own, which may show what is
// documented and does not happen here.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>

template <class Function>
class Replaced
{
public:
    Replaced(const char* name, Function* function) : m_place(PlaceOf(name))
    {
        original = reinterpret_cast<Function*>(*m_place);
        Put(reinterpret_cast<ULONG_PTR>(function));
    }
    ~Replaced() { Put(reinterpret_cast<ULONG_PTR>(original)); }
    Replaced(const Replaced&) = delete;
    Replaced& operator=(const Replaced&) = delete;

    inline static Function* original = nullptr;

private:
    // Where the program keeps the address of the imported function.
    static ULONG_PTR* PlaceOf(const char* name)
    {
        auto* base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(
            base + nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
        for (; library->Name != 0; ++library)
        {
            const auto* names = reinterpret_cast<const ULONG_PTR*>(base + library->OriginalFirstThunk);
            auto* places = reinterpret_cast<ULONG_PTR*>(base + library->FirstThunk);
            for (; *names != 0; ++names, ++places)
            {
                if (!IMAGE_SNAP_BY_ORDINAL(*names) &&
                    std::strcmp(reinterpret_cast<const char*>(base + *names) + sizeof(WORD), name) == 0)
                {
                    return places;
                }
            }
        }
        ADD_FAILURE() << "nothing calls " << name;
        static ULONG_PTR nowhere;
        return &nowhere;
    }

    void Put(ULONG_PTR address)
    {
        DWORD before = 0;
        VirtualProtect(m_place, sizeof(address), PAGE_READWRITE, &before);
        *m_place = address;
        VirtualProtect(m_place, sizeof(address), before, &before);
    }

    ULONG_PTR* m_place;
};
