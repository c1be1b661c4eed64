// Replaces functions of the system within this program.
#pragma once

#include <windows.h>

// The system's own function of that name, null if none of the libraries has it.
inline void* SystemFunction(const char* name)
{
    void* function = nullptr;
    for (const char* library : {"advapi32", "user32", "ole32", "rpcrt4"})
    {
        if (function == nullptr)
        {
            function = reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(library), name));
        }
    }
    return function;
}

// The program's calls go through a pointer to the imported function, or, on Wine's own Windows, to the
// function itself. Its name must be local to this program there.
#ifdef __WINE__
#define INTERPOSE_LOCAL(name) ".hidden " name "\n"
#else
#define INTERPOSE_LOCAL(name)
#endif

// All calls of the function in this program go to the replacement, a function of the same type.
#define INTERPOSE(function, replacement)                                                                 \
    extern decltype(&(function)) const Import##function asm("__imp_" #function);                         \
    decltype(&(function)) const Import##function = replacement;                                          \
    asm(INTERPOSE_LOCAL("__imp_" #function) ".globl " #function "\n" #function ": jmp *__imp_" #function \
                                            "(%rip)");
