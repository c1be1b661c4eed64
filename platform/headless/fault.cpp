#include "fault.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "headless.h"

namespace headless
{
struct FaultTable
{
    struct Fault
    {
        std::string function;  // empty: any registry function
        unsigned remaining;
        DWORD error;
        bool stays;
    };

    // Never destroyed: functions are still called while the program's statics go.
    static FaultTable& Get()
    {
        static auto& table = *new FaultTable;
        return table;
    }

    void Arm(Fault fault)
    {
        if (fault.remaining > 0)
        {
            faults.push_back(std::move(fault));
            FaultPoint::s_anyArmed = true;
        }
    }

    void Clear()
    {
        faults.clear();
        FaultPoint::s_anyArmed = false;
    }

    bool Take(const FaultPoint& point, DWORD* error)
    {
        bool struck = false;
        for (Fault& fault : faults)
        {
            bool concerned = fault.function.empty() ? point.m_kind == FaultPoint::Kind::Registry
                                                    : fault.function == point.m_function;
            if (!concerned || (fault.remaining > 1 && --fault.remaining > 0))
            {
                continue;
            }
            fault.remaining = fault.stays ? 1 : 0;
            *error = fault.error;
            struck = true;
        }
        std::erase_if(faults, [](const Fault& fault) { return fault.remaining == 0; });
        FaultPoint::s_anyArmed = !faults.empty();
        return struck;
    }

    unsigned Uses(const std::string& function) const
    {
        std::uint64_t uses = 0;
        for (const FaultPoint* point : points)
        {
            uses += point->m_function == function ? point->m_uses : 0;
        }
        return static_cast<unsigned>(uses);
    }

    void ResetUses()
    {
        for (FaultPoint* point : points)
        {
            point->m_uses = 0;
        }
        FaultPoint::s_registryUses = 0;
    }

    static unsigned RegistryUses() { return static_cast<unsigned>(FaultPoint::s_registryUses); }

    std::vector<Fault> faults;
    std::vector<FaultPoint*> points;
    std::map<std::string, std::unique_ptr<FaultPoint>> pointsByName;
};

FaultPoint::FaultPoint(const char* function, Kind kind) : m_function(function), m_kind(kind)
{
    FaultTable::Get().points.push_back(this);
}

bool FaultPoint::TakeArmed(DWORD* error) const
{
    return FaultTable::Get().Take(*this, error);
}

bool TakeFault(const char* function, DWORD* error)
{
    auto& points = FaultTable::Get().pointsByName;
    auto found = points.try_emplace(function).first;
    if (!found->second)
    {
        found->second = std::make_unique<FaultPoint>(found->first.c_str(), FaultPoint::Kind::Plain);
    }
    return found->second->Take(error);
}

void FailCall(const char* function, unsigned nth, DWORD error)
{
    FaultTable::Get().Arm({function, nth, error, false});
}

void FailCallsFrom(const char* function, unsigned nth, DWORD error)
{
    FaultTable::Get().Arm({function, nth, error, true});
}

void FailAnyRegistryCall(unsigned nth, DWORD error)
{
    FaultTable::Get().Arm({{}, nth, error, false});
}

void ClearFaults()
{
    FaultTable::Get().Clear();
}

unsigned CallCount(const char* function)
{
    return FaultTable::Get().Uses(function);
}

unsigned RegistryCallCount()
{
    return FaultTable::RegistryUses();
}

void ResetCallCounts()
{
    FaultTable::Get().ResetUses();
}
}  // namespace headless
