#include <sys/random.h>

#include <cerrno>

#include "fault.h"
#include "rpc.h"

RPC_STATUS UuidCreate(UUID* uuid)
{
    DWORD error = 0;
    if (headless::TakeFault("UuidCreate", &error))
    {
        return static_cast<RPC_STATUS>(error);
    }
    while (getrandom(uuid, sizeof(*uuid), 0) < 0 && errno == EINTR)
    {
    }
    // Version 4, random; the variant of RFC 4122.
    uuid->Data3 = static_cast<std::uint16_t>((uuid->Data3 & 0x0FFF) | 0x4000);
    uuid->Data4[0] = static_cast<std::uint8_t>((uuid->Data4[0] & 0x3F) | 0x80);
    return RPC_S_OK;
}

RPC_STATUS UuidCreateNil(UUID* uuid)
{
    DWORD error = 0;
    if (headless::TakeFault("UuidCreateNil", &error))
    {
        return static_cast<RPC_STATUS>(error);
    }
    *uuid = {};
    return RPC_S_OK;
}

int UuidIsNil(UUID* uuid, RPC_STATUS* status)
{
    *status = RPC_S_OK;
    return uuid == nullptr || *uuid == UUID{};
}
