// How the functions of this library let tests count their uses and make them fail. Tests use headless.h.
#pragma once

#include <cstdint>
#include <string_view>

#include "windef.h"

namespace headless
{
// Registers a use of a function and tells whether it must fail: then *error is the armed error, and the
// function gives that back (or sets it as last error) without any effect.
bool TakeFault(const char* function, DWORD* error);

// The same for functions that must stay fast: a constant of the function's own, so that a use costs two
// increments and two tests while nothing is armed. Lives for ever; the name must be a literal.
class FaultPoint
{
public:
    enum class Kind
    {
        Plain,
        Registry
    };

    FaultPoint(const char* function, Kind kind);
    FaultPoint(const FaultPoint&) = delete;
    FaultPoint& operator=(const FaultPoint&) = delete;

    bool Take(DWORD* error)
    {
        ++m_uses;
        if (m_kind == Kind::Registry)
        {
            ++s_registryUses;
        }
        return s_anyArmed && TakeArmed(error);
    }

    const char* Function() const { return m_function; }

private:
    friend struct FaultTable;

    bool TakeArmed(DWORD* error) const;

    static inline bool s_anyArmed = false;
    static inline std::uint64_t s_registryUses = 0;

    const char* m_function;
    Kind m_kind;
    std::uint64_t m_uses = 0;
};
}  // namespace headless
