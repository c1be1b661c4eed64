#include "registry_call.h"

#include "headless.h"

namespace headless::registry
{
bool recording = false;

namespace
{
std::vector<RegistryCall>& Calls()
{
    static auto& calls = *new std::vector<RegistryCall>;
    return calls;
}
}  // namespace

void RecordBegin(const char* function, const CallSubject& subject)
{
    RegistryCall& call = Calls().emplace_back();
    call.function = function;
    if (const OpenKey* open = Lookup(subject.key))
    {
        call.key = open->key->Path();
    }
    if (!View(subject.subKey).empty())
    {
        call.key.append(1, u'\\').append(subject.subKey);
    }
    call.value = View(subject.value);
    call.type = subject.type;
    if (subject.data != nullptr)
    {
        call.data.assign(subject.data, subject.data + subject.size);
    }
}

void RecordEnd(LSTATUS status)
{
    Calls().back().status = status;
}
}  // namespace headless::registry

namespace headless
{
void RecordRegistryCalls(bool on)
{
    registry::recording = on;
    if (on)
    {
        registry::Calls().clear();
    }
}

const std::vector<RegistryCall>& RegistryCalls()
{
    return registry::Calls();
}
}  // namespace headless
