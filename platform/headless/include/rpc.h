// UUIDs.
#pragma once

#include "windef.h"
#include "winerror.h"

typedef GUID UUID;
typedef LONG RPC_STATUS;

// RPC_S_OK, or, when a test arranged it, another status with *uuid untouched.
RPC_STATUS UuidCreate(UUID* uuid);
RPC_STATUS UuidCreateNil(UUID* uuid);
int UuidIsNil(UUID* uuid, RPC_STATUS* status);
